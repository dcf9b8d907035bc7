#pragma once

class Frame;
class Lead;

/// Makes a capture the wallpaper of the user's desktop: one file in his folder for backgrounds, replaced each
/// time. A failure is told; nothing is said when all goes well, as the wallpaper says it.
void MakeSystemWallpaper(Frame& frame, const Lead& capture);

/// Makes a capture the picture behind the frame's windows, which is drawn when the frame next comes up or is
/// sized: a new file beside the others each time. capture is null where there is none to take.
void MakeProgramWallpaper(Frame& frame, const Lead* capture);
