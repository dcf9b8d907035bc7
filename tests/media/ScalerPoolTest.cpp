#include "media/ScalerPool.h"

#include <QByteArray>

#include <gtest/gtest.h>
#include <thread>

namespace media {

namespace {

constexpr int Side = 64;

ScalerKind KindOf(int height)
{
    return { Side, Side, AV_PIX_FMT_GRAY8, Side, height, AV_PIX_FMT_GRAY8, SWS_BICUBIC, SWS_CS_ITU709, true };
}

/// A grey picture, its samples depending on seed, brought to another height.
QByteArray Scaled(ScalerPool& pool, int height, int seed)
{
    QByteArray samples(Side * Side, '\0');
    for (qsizetype i = 0; i < samples.size(); ++i)
        samples[i] = char(i * seed % 251);
    QByteArray result(qsizetype(Side) * height, '\0');
    EXPECT_TRUE(pool.With(KindOf(height), [&](SwsContext& scaler) {
        const auto* const from = reinterpret_cast<const uint8_t*>(samples.constData());
        auto* const to = reinterpret_cast<uint8_t*>(result.data());
        constexpr int stride = Side;
        sws_scale(&scaler, &from, &stride, 0, Side, &to, &stride);
    }));
    return result;
}

} // namespace

TEST(ScalerPool, TwoThreadsNeverShareAScaler)
{
    ScalerPool pool;
    constexpr int heights[] = { 16, 32, 48, 80, 96, 112 }; // more kinds than the pool keeps idle
    std::vector<QByteArray> expected[2];
    for (const int seed : { 3, 7 })
        for (const int height : heights) {
            ScalerPool own;
            expected[seed == 7].push_back(Scaled(own, height, seed));
        }
    const auto work = [&](int seed) {
        for (int round = 0; round < 200; ++round)
            for (size_t i = 0; i < std::size(heights); ++i)
                ASSERT_EQ(Scaled(pool, heights[i], seed), expected[seed == 7][i]) << heights[i];
    };
    std::thread other(work, 3);
    work(7);
    other.join();
}

TEST(ScalerPool, AScalerThatCannotBeMadeIsTold)
{
    ScalerPool pool;
    ScalerKind none = KindOf(16);
    none.target = AV_PIX_FMT_VAAPI; // pictures that only a graphics card reads
    EXPECT_FALSE(pool.With(none, [](SwsContext&) { FAIL() << "nothing can be done"; }));
}

} // namespace media
