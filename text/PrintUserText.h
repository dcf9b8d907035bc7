#pragma once

class Frame;
class QImage;
class Lead;
struct TextSettings;

/// Draws the user's text into the picture of a control. Bold is the one setting left out: pictures get the
/// text in whatever weight the control's font has. Throws ControlError, and the picture is as it was.
void PrintUserText(Lead& lead, const TextSettings& text);

/// The picture with the text that PrintUserText draws; to be called on any thread. Throws std::bad_alloc.
QImage WithUserText(const QImage& picture, const TextSettings& text);

/// PrintUserText on the active capture when UseWatermark is on; drawn again when called again. Throws
/// ControlError, also when there is no capture to draw on.
void PrintUserText(Frame& frame);
