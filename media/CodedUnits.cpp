#include "media/CodedUnits.h"

#include <algorithm>
#include <cstring>

namespace media {

namespace {

constexpr int StartCodeBytes = 3;

} // namespace

/// Ones are rare, and the library of the language finds them fast.
const uint8_t* NextStartCode(const uint8_t* from, const uint8_t* end)
{
    for (const uint8_t* at = from + 2; at < end; ++at) {
        at = static_cast<const uint8_t*>(std::memchr(at, 1, size_t(end - at)));
        if (!at)
            break;
        if (at[-1] == 0 && at[-2] == 0)
            return at - 2;
    }
    return end;
}

void ForEachUnit(Bytes packet, int lengthSize, const std::function<void(Bytes)>& take)
{
    if (lengthSize > 0) {
        while (packet.size() > size_t(lengthSize)) {
            size_t length = 0;
            for (int i = 0; i < lengthSize; ++i)
                length = length << 8 | packet[size_t(i)];
            packet = packet.subspan(size_t(lengthSize));
            length = std::min(length, packet.size());
            take(packet.first(length));
            packet = packet.subspan(length);
        }
        return;
    }
    const uint8_t* const end = packet.data() + packet.size();
    const uint8_t* unit = NextStartCode(packet.data(), end);
    while (unit != end) {
        const uint8_t* const begin = unit + StartCodeBytes;
        unit = NextStartCode(begin, end);
        take({ begin, unit });
    }
}

int UnitLengthSize(const AVCodecParameters& parameters)
{
    const uint8_t* extra = parameters.extradata;
    const bool isAvc =
        parameters.codec_id == AV_CODEC_ID_H264 && parameters.extradata_size >= 7 && extra[0] == 1;
    const bool isHvc = parameters.codec_id == AV_CODEC_ID_HEVC && parameters.extradata_size >= 23
        && (extra[0] || extra[1] || extra[2] > 1);
    return isAvc ? (extra[4] & 3) + 1 : isHvc ? (extra[21] & 3) + 1 : 0;
}

} // namespace media
