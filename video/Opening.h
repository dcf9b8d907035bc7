#pragma once

#include <QString>
#include <QStringList>

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

/// Makes these full paths the selection in place of a choice in the dialog. As that does, it leaves the
/// process's current folder at the first one's, where it may be entered.
void SelectFiles(ApplicationState& state, const QStringList& paths);

/// Fills Videos with the full paths, in the current folder unless they are such already, of those FileNames
/// that count as videos; VideoPath is the first of them, "" when there is none.
void KeepVideos(ApplicationState& state);

/// VideoName and VideoFolder of a path or an address; one without a separator leaves both as they were.
void TakeNameAndFolder(ApplicationState& state, const QString& path);
