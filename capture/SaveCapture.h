#pragma once

class Frame;

/// Saves the picture of the active capture window, or with VidSave a fresh still of the video, where the
/// settings say, under an automatic name or one the user is asked for. With UseWatermark on, a capture gets
/// the user's text first, and keeps it unless the save fails; a still of the video gets none. Tells the
/// result in the status label, a failure in the message form; after a failure the window stays.
void SaveCapture(Frame& frame);

/// What a capture window does first with NoCap on: writes a fresh still of the video as bitmap data under the
/// next automatic name of the folder "AutoSave", with the extension last read. Throws ControlError.
void ImmediateSave(Frame& frame);
