#pragma once

#include "media/Libav.h"
#include "media/Source.h"

namespace media {

/// The address to hand to the demuxer for a source that may be opened: "file:" and the absolute path, or the
/// web address as it stands; empty for memory. Looks at a file's kind without ever blocking on it. Throws
/// MediaError for what must not be opened: no regular file, nothing in it, an address that is not http or
/// https.
QByteArray CheckedAddress(const Source& source);

/// Whether an address begins as one of the web does: http:// or https://, in any case of letters.
bool IsWebAddress(const QByteArray& address);

/// Whether the first bytes of a file or a block look like one of the container formats that are opened.
bool LooksLikeVideo(const Source& source);

/// What keeps the library to the protocols of a source, and to their times on the web.
void KeepToProtocols(Options& options, Source::Kind kind);
/// Names of the demuxers that may open a source, separated by commas.
QByteArray AllowedFormats(Source::Kind kind);

} // namespace media
