#include "video/Opening.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/CurrentFolder.h"
#include "app/Frame.h"
#include "app/Talk.h"
#include "toolkit/FileDialog.h"
#include "toolkit/PathText.h"
#include "video/VideoNames.h"

namespace {

void ForgetSelection(ApplicationState& state)
{
    state.FileCount = 0;
    state.FileNames.clear();
    state.VideoCount = 0;
    state.ListIndex = 1;
    state.VideoPath.clear();
}

} // namespace

void ShowOpenDialog(Frame& frame, const std::function<void()>& unloadList)
{
    ApplicationState& state = frame.State();
    ForgetSelection(state);
    unloadList();

    state.Reload(Key::OldDir);
    if (state.OldDir.isEmpty())
        IgnoreErrors([&] { state.OldDir = CurrentFolder(); });
    state.OpenCancelled = false;
    QString chosen;
    IgnoreErrors([&] {
        chosen = frame.Dialogs().AskOpenNames(frame.FrameWindow(), QStringLiteral("Open Videos To Capture"),
            QLatin1String(OpenFilter), state.OldDir);
    });
    IgnoreErrors([&] {
        state.OldDir = CurrentFolder();
        state.Store(Key::OldDir);
    });
    state.OpenCancelled = !ParseMultiFileName(chosen, state.FileFolder, state.FileNames, state.FileCount);
}

void SelectFiles(ApplicationState& state, const QStringList& paths)
{
    ForgetSelection(state);
    state.FileNames = paths;
    state.FileCount = qint32(paths.size());
    const QString first = paths.value(0);
    state.FileFolder = first.left(PathText::LastSeparator(first));
    IgnoreErrors([&] { SetCurrentFolder(state.FileFolder + PathText::Separator()); });
}

void KeepVideos(ApplicationState& state)
{
    state.VideoCount = 0;
    state.VideoPath.clear();
    state.Videos = QStringList(state.FileCount + 1);
    QString folder;
    IgnoreErrors([&] { folder = CurrentFolder(); });
    for (const QString& name : state.FileNames) {
        if (name.trimmed().isEmpty())
            continue;
        TestVideoExtension(state, name);
        if (!state.NotVideo)
            state.Videos[++state.VideoCount] =
                name.startsWith(PathText::Separator()) ? name : folder + PathText::Separator() + name;
        state.NotVideo = false;
    }
    state.VideoPath = state.Videos.value(1);
}

void TakeNameAndFolder(ApplicationState& state, const QString& path)
{
    const VideoPathParts parts = SplitVideoPath(path);
    if (!parts.isSplit)
        return;
    state.VideoName = parts.name;
    state.VideoFolder = parts.folder;
}
