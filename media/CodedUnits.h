#pragma once

#include "media/Libav.h"
#include <functional>
#include <span>

/// The units that packets of the MPEG codecs consist of.
namespace media {

using Bytes = std::span<const uint8_t>;

/// The next start code (0 0 1) from a place on, or the end.
const uint8_t* NextStartCode(const uint8_t* from, const uint8_t* end);

/// Calls take with each unit of an H.264 or HEVC packet, in which units follow start codes or, where
/// lengthSize is not 0, their own length of so many bytes.
void ForEachUnit(Bytes packet, int lengthSize, const std::function<void(Bytes)>& take);

/// Bytes of the length before each unit, from the decoder configuration; 0 when units follow start codes.
int UnitLengthSize(const AVCodecParameters& parameters);

} // namespace media
