#include "viewers/Backgrounds.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/AutoName.h"
#include "desktop/Wallpaper.h"
#include "imaging/FormatTable.h"
#include "toolkit/PathText.h"

#include <QDir>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

constexpr int BitmapBits = 24;
constexpr int BitmapQuality = 1;

void Tell(Frame& frame, const QString& what, const QString& reason)
{
    frame.Errors().Show(frame.FrameWindow(), QStringLiteral("Error!"), what + u' ' + reason);
}

void TellUnchanged(Frame& frame, const ControlError& error)
{
    Tell(frame, QStringLiteral("The wallpaper was not changed."), error.Reason());
}

QString SaveForDesktop(const ApplicationState& state, const Lead& capture)
{
    const QString folder = state.Folders().Backgrounds();
    QDir().mkpath(folder); // where that fails, the saving says it
    QString path = folder + PathText::Separator() + QStringLiteral("TAQ Wallpaper.Bmp");
    capture.Save(path, imaging::DesktopBmp, BitmapBits, BitmapQuality, false);
    return path;
}

QString SaveForProgram(ApplicationState& state, const Lead* capture)
{
    if (!capture)
        throw ControlError(QStringLiteral("The active window holds no capture."));
    const auto& jpeg =
        *std::ranges::find(imaging::FormatTable, int(imaging::Jpg), &imaging::FormatRow::format);
    const AutoName names(
        state.Beside(QStringLiteral("WallPaper")), QLatin1String(jpeg.extension), QStringLiteral("wpaper"));
    names.Write([&](const QString& path) {
        state.CurrentFile = path;
        return capture->SaveNew(path, jpeg.format, jpeg.bits, jpeg.quality);
    });
    return state.CurrentFile;
}

} // namespace

void MakeSystemWallpaper(Frame& frame, const Lead& capture)
{
    const Hourglass waiting;
    try {
        const QPointer<QWidget> alive(frame.FrameWindow());
        frame.DesktopWallpaper().Set(
            SaveForDesktop(frame.State(), capture), [&frame, alive](const Wallpaper::Outcome& outcome) {
                using enum Wallpaper::Result;
                if (alive && (outcome.result == NotSet || outcome.result == NotHere))
                    Tell(frame, QStringLiteral("The desktop did not take the wallpaper."), outcome.reason);
            });
    } catch (const ControlError& error) {
        TellUnchanged(frame, error);
    }
}

void MakeProgramWallpaper(Frame& frame, const Lead* capture)
{
    const Hourglass waiting;
    ApplicationState& state = frame.State();
    try {
        QString before = std::exchange(state.BackgroundFile, SaveForProgram(state, capture));
        if (!state.Store(Key::PicFolder)) {
            state.BackgroundFile = std::move(before); // which the settings still name
            throw ControlError(QStringLiteral("The settings could not be saved."));
        }
        frame.SetStatus(StatusLabel::Operation, QStringLiteral("Wallpaper Saved"));
    } catch (const ControlError& error) {
        TellUnchanged(frame, error);
    }
}
