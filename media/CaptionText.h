#pragma once

#include "media/Caption.h"

class QByteArray;

namespace media {

/// Captions as the library's decoder writes them: ASS, each row with its place, tags for what changes.
Caption CaptionFromAss(const QByteArray& ass);

} // namespace media
