#pragma once

class Frame;
class QImage;
enum class Reader;

/// Shows the picture on the clipboard as a new capture, as the stored OpThumb says to this reader: in a
/// window of its own, on the strip of thumbnails, or both. Leaves "Save Capture" enabled when a window got
/// it. Events are handled meanwhile, so anything may have gone. Throws ControlError.
void ShowNewCapture(Frame& frame, Reader reader);
/// The same for a picture that was edited: the window takes it, whatever the clipboard holds, and the strip
/// comes to the front. On the strip alone comes what the clipboard holds. A step that fails keeps none of the
/// others from being done; the first failure is thrown at the end.
void ShowEdited(Frame& frame, Reader reader, const QImage& edited);
