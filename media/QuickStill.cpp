#include "media/QuickStill.h"

#ifdef __x86_64__

#include "media/CubicTaps.h"

#include <algorithm>
#include <immintrin.h>
#include <vector>

namespace media::QuickStill {

namespace {

constexpr int Block = 16; ///< samples that are worked on at once
constexpr int Margin = 2; ///< samples on either side that a widened one reaches to
constexpr int Smallest = 64; ///< samples of the shorter side

constexpr int RowUnit = 1 << 14;
constexpr int ColumnUnit = 1 << 12;
constexpr int WidenedShift = 7; ///< leaves a sample seven bits more than it had
constexpr int ColourShift = 10; ///< leaves nine bits more
constexpr int NoColour = 128 << 19; ///< the middle of the colour samples before that shift
constexpr int ResultShift = 22;

// Four rows of samples and their weights, and what they make, are each kept in the shape in which one
// instruction multiplies and adds neighbouring pairs.
struct Weights {
    __m256i first;
    __m256i last;
};
struct Sums {
    __m256i low; ///< of samples 0 to 3 and 8 to 11 of a block
    __m256i high;
};

[[gnu::target("avx2")]] inline Weights WeightsOf(const CubicTaps& taps)
{
    const auto [a, b, c, d] = taps.weights;
    return { _mm256_set1_epi32(uint16_t(a) | b * 65536), _mm256_set1_epi32(uint16_t(c) | d * 65536) };
}

[[gnu::target("avx2")]] inline Sums Weigh(
    __m256i a, __m256i b, __m256i c, __m256i d, const Weights& weights, int bias, int shift)
{
    const __m256i extra = _mm256_set1_epi32(bias);
    const __m256i low = _mm256_add_epi32(_mm256_madd_epi16(_mm256_unpacklo_epi16(a, b), weights.first),
        _mm256_madd_epi16(_mm256_unpacklo_epi16(c, d), weights.last));
    const __m256i high = _mm256_add_epi32(_mm256_madd_epi16(_mm256_unpackhi_epi16(a, b), weights.first),
        _mm256_madd_epi16(_mm256_unpackhi_epi16(c, d), weights.last));
    return { _mm256_srai_epi32(_mm256_add_epi32(low, extra), shift),
        _mm256_srai_epi32(_mm256_add_epi32(high, extra), shift) };
}

[[gnu::target("avx2")]] inline __m256i Bytes(const uint8_t* from)
{
    return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
}

[[gnu::target("avx2")]] inline __m256i Words(const int16_t* from)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

/// Makes a row of colour samples as long as the picture is wide.
class Widener {
public:
    explicit Widener(int samples)
        : samples_(samples)
        , even_(CubicTaps::Of(samples & ~1, samples, RowUnit))
        , odd_(CubicTaps::Of((samples & ~1) + 1, samples, RowUnit))
    {
        for (int i = 0; i < 2 * Margin; ++i) {
            ends_.push_back(i);
            ends_.push_back(2 * samples - 1 - i);
        }
    }

    [[gnu::target("avx2")]] void Widen(const uint8_t* from, int16_t* to) const
    {
        const Weights even = WeightsOf(even_);
        const Weights odd = WeightsOf(odd_);
        const ptrdiff_t lastBlock = samples_ - Margin - Block;
        for (ptrdiff_t at = Margin; at < lastBlock; at += Block)
            WidenBlock(from + at, even, odd, to + 2 * at);
        WidenBlock(from + lastBlock, even, odd, to + 2 * lastBlock);
        for (const int end : ends_)
            to[end] = Single(from, end);
    }

private:
    [[gnu::target("avx2")]] static void WidenBlock(
        const uint8_t* from, const Weights& even, const Weights& odd, int16_t* to)
    {
        const __m256i a = Bytes(from - 2);
        const __m256i b = Bytes(from - 1);
        const __m256i c = Bytes(from);
        const __m256i d = Bytes(from + 1);
        const __m256i e = Bytes(from + 2);
        const Sums evens = Weigh(a, b, c, d, even, 0, WidenedShift);
        const Sums odds = Weigh(b, c, d, e, odd, 0, WidenedShift);
        const __m256i left = _mm256_packs_epi32(evens.low, evens.high);
        const __m256i right = _mm256_packs_epi32(odds.low, odds.high);
        const __m256i low = _mm256_unpacklo_epi16(left, right);
        const __m256i high = _mm256_unpackhi_epi16(left, right);
        auto* const block = reinterpret_cast<__m256i*>(to);
        _mm256_storeu_si256(block, _mm256_permute2x128_si256(low, high, 0x20));
        _mm256_storeu_si256(block + 1, _mm256_permute2x128_si256(low, high, 0x31));
    }
    int16_t Single(const uint8_t* from, int at) const
    {
        const CubicTaps taps = CubicTaps::Of(at, samples_, RowUnit);
        int sum = 0;
        for (int i = 0; i < 4; ++i)
            sum += from[taps.first + i] * taps.weights[size_t(i)];
        return int16_t(std::min(sum >> WidenedShift, INT16_MAX));
    }

    int samples_;
    CubicTaps even_;
    CubicTaps odd_;
    std::vector<int> ends_;
};

/// What a picture's luma and colour differences count for in red, green and blue, with 13 bits of fraction.
struct Matrix {
    int luma;
    int black;
    int redOfV;
    int greenOfV;
    int greenOfU;
    int blueOfU;

    static Matrix Of(const int* matrix, bool isFullRange)
    {
        const auto of = [&](int64_t coefficient) {
            const int64_t ranged = isFullRange ? coefficient * 224 / 255 : coefficient;
            return int((ranged * 8192 + 32768) >> 16);
        };
        constexpr int one = 8192;
        constexpr int studio = int((int64_t(65536 * 255 / 219) * 8192 + 32768) >> 16);
        return { isFullRange ? one : studio, isFullRange ? 0 : 16 * 512, of(matrix[0]), of(-matrix[3]),
            of(-matrix[2]), of(matrix[1]) };
    }
};

/// Four rows of widened colour samples around a row of the picture.
using Rows = std::array<const int16_t*, 4>;

[[gnu::target("avx2")]] inline Sums Colour(const Rows& rows, int at, const Weights& weights)
{
    constexpr int half = 1 << (ColourShift - 1);
    return Weigh(Words(rows[0] + at), Words(rows[1] + at), Words(rows[2] + at), Words(rows[3] + at), weights,
        half - NoColour, ColourShift);
}

[[gnu::target("avx2")]] inline Sums Luma(const uint8_t* from, const Matrix& matrix)
{
    constexpr int half = 1 << (ResultShift - 1);
    const __m256i zero = _mm256_setzero_si256();
    const __m256i samples = Bytes(from);
    const __m256i factor = _mm256_set1_epi32(matrix.luma);
    const __m256i offset = _mm256_set1_epi32(half - matrix.black * matrix.luma);
    const __m256i low = _mm256_madd_epi16(_mm256_unpacklo_epi16(samples, zero), factor);
    const __m256i high = _mm256_madd_epi16(_mm256_unpackhi_epi16(samples, zero), factor);
    return { _mm256_add_epi32(_mm256_slli_epi32(low, 9), offset),
        _mm256_add_epi32(_mm256_slli_epi32(high, 9), offset) };
}

[[gnu::target("avx2")]] inline Sums Plus(const Sums& sums, const Sums& colour, int factor)
{
    const __m256i times = _mm256_set1_epi32(factor);
    return { _mm256_add_epi32(sums.low, _mm256_mullo_epi32(colour.low, times)),
        _mm256_add_epi32(sums.high, _mm256_mullo_epi32(colour.high, times)) };
}

[[gnu::target("avx2")]] inline __m256i Result(const Sums& sums)
{
    return _mm256_packs_epi32(
        _mm256_srai_epi32(sums.low, ResultShift), _mm256_srai_epi32(sums.high, ResultShift));
}

[[gnu::target("avx2")]] inline __m256i Twice(__m128i half)
{
    return _mm256_broadcastsi128_si256(half);
}

/// Eight pixels of each half take 24 bytes.
[[gnu::target("avx2")]] inline void Store(__m256i blue, __m256i green, __m256i red, uint8_t* to)
{
    const __m256i blueGreen = _mm256_packus_epi16(blue, green);
    const __m256i reds = _mm256_packus_epi16(red, red);
    const __m256i head =
        _mm256_or_si256(_mm256_shuffle_epi8(blueGreen,
                            Twice(_mm_setr_epi8(0, 8, -1, 1, 9, -1, 2, 10, -1, 3, 11, -1, 4, 12, -1, 5))),
            _mm256_shuffle_epi8(
                reds, Twice(_mm_setr_epi8(-1, -1, 0, -1, -1, 1, -1, -1, 2, -1, -1, 3, -1, -1, 4, -1))));
    const __m256i tail = _mm256_or_si256(
        _mm256_shuffle_epi8(
            blueGreen, Twice(_mm_setr_epi8(13, -1, 6, 14, -1, 7, 15, -1, -1, -1, -1, -1, -1, -1, -1, -1))),
        _mm256_shuffle_epi8(
            reds, Twice(_mm_setr_epi8(-1, 5, -1, -1, 6, -1, -1, 7, -1, -1, -1, -1, -1, -1, -1, -1))));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(head));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to + 16), _mm256_castsi256_si128(tail));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 24), _mm256_extracti128_si256(head, 1));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to + 40), _mm256_extracti128_si256(tail, 1));
}

[[gnu::target("avx2")]] void WriteRow(const uint8_t* luma, const Rows& u, const Rows& v,
    const CubicTaps& taps, const Matrix& matrix, int width, uint8_t* to)
{
    const Weights weights = WeightsOf(taps);
    for (int next = 0; next < width; next += Block) {
        const int at = std::min(next, width - Block);
        const Sums light = Luma(luma + at, matrix);
        const Sums blueness = Colour(u, at, weights);
        const Sums redness = Colour(v, at, weights);
        const Sums blue = Plus(light, blueness, matrix.blueOfU);
        const Sums green = Plus(Plus(light, redness, matrix.greenOfV), blueness, matrix.greenOfU);
        const Sums red = Plus(light, redness, matrix.redOfV);
        Store(Result(blue), Result(green), Result(red), to + ptrdiff_t(3) * at);
    }
}

} // namespace

bool CanTake(const AVFrame& frame, QSize size)
{
    const bool isKind = frame.format == AV_PIX_FMT_YUV420P || frame.format == AV_PIX_FMT_YUVJ420P;
    const bool isEven = frame.width % 2 == 0 && frame.height % 2 == 0;
    return isKind && isEven && size == QSize(frame.width, frame.height)
        && std::min(frame.width, frame.height) >= Smallest && __builtin_cpu_supports("avx2");
}

void Write(const AVFrame& frame, const int* matrix, bool isFullRange, uint8_t* rows, int rowBytes)
{
    constexpr int kept = 4; // rows of colour
    const int width = frame.width;
    const Matrix own = Matrix::Of(matrix, isFullRange);
    const Widener widener(width / 2);
    std::vector<int16_t> widened(size_t(2 * kept * width));
    const auto place = [&](int row, int plane) {
        return &widened[size_t((row % kept) * 2 + plane) * size_t(width)];
    };
    int ready = 0;
    for (int y = 0; y < frame.height; ++y) {
        const CubicTaps taps = CubicTaps::Of(y, frame.height / 2, ColumnUnit);
        for (; ready < taps.first + kept; ++ready)
            for (const int plane : { 0, 1 })
                widener.Widen(frame.data[plane + 1] + ptrdiff_t(ready) * frame.linesize[plane + 1],
                    place(ready, plane));
        Rows u;
        Rows v;
        for (int i = 0; i < kept; ++i) {
            u[size_t(i)] = place(taps.first + i, 0);
            v[size_t(i)] = place(taps.first + i, 1);
        }
        WriteRow(frame.data[0] + ptrdiff_t(y) * frame.linesize[0], u, v, taps, own, width,
            rows + ptrdiff_t(y) * rowBytes);
    }
}

} // namespace media::QuickStill

#else // the road is paved with the instructions of one kind of machine; on others no frame takes it

bool media::QuickStill::CanTake(const AVFrame&, QSize)
{
    return false;
}

void media::QuickStill::Write(const AVFrame&, const int*, bool, uint8_t*, int) { }

#endif
