#pragma once

#include <QString>

#include <functional>

class ApplicationState;
class Frame;

/// What the open dialog offers; the extension test, not this filter, decides what counts as a video.
inline constexpr auto OpenFilter =
    "Video Files (*.avi;*.mpeg;*.mpg;*.mpa;*.wmv)|*.avi;*.mpeg;*.mpg;*.mpa;*.wmv|AVI, DivX Files "
    "(*.avi)|*.avi|"
    "MPEG Files (*.mpeg)|*.mpeg|MPG Files (*.mpg)|*.mpg|MPA Files (*.mpa)|*.mpa|WMV Files (*.wmv)|*.wmv|"
    "All Files (*.*)|*.*";

/// Forgets the last selection, whatever comes of it, and asks for a new one: fills FileFolder, FileNames and
/// FileCount, or sets OpenCancelled. unloadList closes the list of the old selection.
void ShowOpenDialog(Frame& frame, const std::function<void()>& unloadList);

/// Fills Videos with the full paths, in the current folder, of those FileNames that count as videos;
/// VideoPath is the first of them, "" when there is none.
void KeepVideos(ApplicationState& state);

/// VideoName and VideoFolder of a path or an address; one without a separator leaves both as they were.
void TakeNameAndFolder(ApplicationState& state, const QString& path);
