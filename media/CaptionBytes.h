#pragma once

#include "media/CodedUnits.h"
#include <QByteArray>

/// Finds closed captions where broadcasts and discs put them: in the coded pictures themselves. They come as
/// triplets, a byte that tells the kind and the field and two bytes of captions.
namespace media {

constexpr int TripletBytes = 3;

/// The triplets in a unit of additional information (SEI) of H.264 or HEVC, without the unit's own header.
QByteArray CaptionsInSei(Bytes unit);

/// The triplets in the user data before a picture of an MPEG-2 packet.
QByteArray CaptionsInUserData(Bytes packet);

} // namespace media
