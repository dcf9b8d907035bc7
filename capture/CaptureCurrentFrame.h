#pragma once

class Frame;

/// Takes the frame that the current video shows through the clipboard to a new capture window, to the strip
/// of thumbnails or to both, as the stored OpThumb says. Leaves "Save Capture" enabled when a capture window
/// got it. A refused clipboard is silent and disables "Save Capture"; any other failure is told in the
/// message form.
void CaptureCurrentFrame(Frame& frame);
