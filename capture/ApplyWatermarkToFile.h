#pragma once

class Frame;

/// With UseWatermark on, draws the user's text on the picture in the file CurrentFile, which stands on the disk
/// already, and writes it back in the true format of its extension, whatever format it had; an extension of no
/// format is written in the one that captures are saved in. Shows "Watermark Applied" and leaves it to be hidden by
/// who flashes the labels. Throws ControlError, and the file stands as it was.
void ApplyWatermarkToFile(Frame& frame);
