#pragma once

#include "media/Interrupt.h"
#include "media/Source.h"

namespace media {

/// The first reference of an .asx play list, its entities resolved; empty when there is none. Reads the marks
/// form (<ref href="…">) in any case of letters, and the older lines "Ref1=…".
QByteArray FirstReference(const QByteArray& list);

/// The source that an .asx play list names first; any other source is itself. A list on this machine leads to
/// files on this machine only, one on the web to the web only, because whoever made the list is not the user.
/// Throws MediaError: NotAVideo for a list without a reference, Refused for one that leads elsewhere.
Source Followed(const Source& source, Interrupt& interrupt);

/// What a reference in a list means: a whole address or path, or one that begins at the list's own folder.
/// Throws MediaError, Refused, for what a list may not lead to, and for another list.
Source ReferredTo(const Source& list, const QByteArray& reference);

} // namespace media
