#pragma once

class Frame;
class QImage;
enum class Reader;

/// Hands an edited picture over as a new capture, as the stored OpThumb says to this reader: in a window of
/// its own, on the strip of thumbnails, or both. On the strip alone comes what the clipboard holds, whatever
/// that is. Events are handled meanwhile, so anything may have gone. Throws ControlError.
void OpenEdited(Frame& frame, Reader reader, const QImage& picture);
