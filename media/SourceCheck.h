#pragma once

#include "media/Source.h"

namespace media {

/// The address to hand to the demuxer for a source that may be opened: "file:" and the absolute path, or the
/// web address as it stands; empty for memory. Looks at a file's kind without ever blocking on it. Throws
/// MediaError for what must not be opened: no regular file, nothing in it, an address that is not http or
/// https.
QByteArray CheckedAddress(const Source& source);

/// Whether the first bytes of a file or a block look like one of the container formats that are opened.
bool LooksLikeVideo(const Source& source);

/// Names of the demuxers that may open a source, separated by commas.
QByteArray AllowedFormats(Source::Kind kind);
/// Names of the protocols that may be used for a source, separated by commas.
const char* AllowedProtocols(Source::Kind kind);

} // namespace media
