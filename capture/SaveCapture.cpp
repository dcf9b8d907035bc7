#include "capture/SaveCapture.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/CurrentFolder.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/AutoName.h"
#include "capture/FormatInForce.h"
#include "capture/SavePicture.h"
#include "capture/SaveTarget.h"
#include "desktop/WholeFile.h"
#include "text/PrintUserText.h"
#include "text/frmWatermark.h"
#include "video/ltmmPlay.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace {

/// A confirmed name is replaced whole; a new one must be free.
enum class Name { New, Confirmed };
/// Writes the picture under a path; false when a new name is taken.
using Writer = std::function<bool(const QString& path, Name name)>;

/// The extension forced for the time of a save, which VidSave does.
class ForcedExtension {
public:
    ForcedExtension(ApplicationState& state, const QString& extension)
        : state_(state)
        , before_(std::exchange(state.CurrentExt, extension))
    {
    }
    ~ForcedExtension() { state_.CurrentExt = before_; }
    ForcedExtension(const ForcedExtension&) = delete;
    ForcedExtension& operator=(const ForcedExtension&) = delete;

private:
    ApplicationState& state_;
    QString before_;
};

QString FolderOf(SaveTarget::Folder folder, const ApplicationState& state)
{
    switch (folder) {
    case SaveTarget::Folder::Chosen:
        return state.OldFolder;
    case SaveTarget::Folder::AutoSave:
        return state.Beside(QStringLiteral("AutoSave"));
    case SaveTarget::Folder::Current:
        return CurrentFolder();
    }
    Q_UNREACHABLE();
}

/// The name the user chose, empty when he thought better of it.
QString AskName(Frame& frame, SaveTarget::Folder folder)
{
    const PointerPause pause;
    ApplicationState& state = frame.State();
    if (folder == SaveTarget::Folder::Chosen)
        SetCurrentFolder(state.OldFolder);
    const QString answer = frame.Dialogs().AskSaveName(frame.ActiveForm(),
        QStringLiteral("Save Video Frame to Preselected Format"), SaveFilter(), CurrentFolder());
    if (answer.isEmpty())
        return {};
    const QString path = WithExtension(answer, state.CurrentExt);
    // The dialog asked about the name as it was typed.
    const bool isAsked = path == answer || !FileHasContent(path);
    return isAsked || frame.Dialogs().ConfirmReplace(frame.ActiveForm(), path) ? path : QString();
}

Writer StillWriter(Frame& frame)
{
    const QImage still = frame.CurrentPlayer().GetStillPicture(StillTimeout);
    return [still](const QString& path, Name name) {
        if (name == Name::New)
            return SaveNewPicture(still, path);
        SavePicture(still, path);
        return true;
    };
}

/// A capture as it was; comes back unless what was done to it is kept.
class CaptureBefore {
public:
    explicit CaptureBefore(Lead& capture)
        : capture_(&capture)
        , before_(capture.Bitmap())
    {
    }
    ~CaptureBefore()
    {
        if (capture_ && !isKept_)
            capture_->SetBitmap(before_);
    }
    CaptureBefore(const CaptureBefore&) = delete;
    CaptureBefore& operator=(const CaptureBefore&) = delete;

    void Keep() { isKept_ = true; }

private:
    QPointer<Lead> capture_;
    QImage before_;
    bool isKept_ = false;
};

/// The words are asked for unless every capture gets the same.
void AskForText(Frame& frame)
{
    const ApplicationState& state = frame.State();
    if (state.UseWatermark && !state.WatermarkBATCH)
        AskUserText(frame);
}

/// The text is on the capture when it is written and stays there. A save that fails takes it back, or the
/// next try would draw it twice.
Writer CaptureWriter(Frame& frame)
{
    const imaging::SaveValues values = FormatInForce(frame.State());
    AskForText(frame);
    Lead* capture = frame.ActiveCapture();
    if (!capture)
        throw ControlError(QStringLiteral("The active window holds no capture."));
    const auto before = std::make_shared<CaptureBefore>(*capture);
    PrintUserText(frame);
    return [capture, values, before](const QString& path, Name name) {
        const bool isNew = name == Name::New;
        if (isNew && !capture->SaveNew(path, values.format, values.bits, values.quality))
            return false;
        if (!isNew)
            capture->Save(path, values.format, values.bits, values.quality, false);
        before->Keep();
        return true;
    };
}

/// Every name that is tried is the shared path while it is tried.
void WriteUnder(const AutoName& names, const Writer& write, ApplicationState& state)
{
    names.Write([&](const QString& path) {
        state.CurrentFile = path;
        return write(path, Name::New);
    });
}

void WriteConfirmed(const QString& path, const Writer& write, ApplicationState& state)
{
    state.CurrentFile = path;
    write(path, Name::Confirmed);
}

void Save(Frame& frame)
{
    ApplicationState& state = frame.State();
    state.Reload(Key::Ext);
    const bool isStill = state.VidSave;
    std::optional<ForcedExtension> forced;
    if (isStill)
        forced.emplace(state, QStringLiteral(".bmp"));
    const SaveTarget target = TargetOf(state.SpecialFolder, state.AutoSave, state.AutoDir);
    const bool isAsked = target.naming == SaveTarget::Naming::Asked;
    const QString chosen = isAsked ? AskName(frame, target.folder) : QString();
    if (isAsked && chosen.isEmpty())
        return;
    const QString extension = state.CurrentExt;

    frame.ShowStatus(StatusLabel::AutoCapture, false);
    const Writer write = isStill ? StillWriter(frame) : CaptureWriter(frame);
    if (isAsked)
        WriteConfirmed(chosen, write, state);
    else
        WriteUnder(AutoName(FolderOf(target.folder, state), extension), write, state);
    if (!isStill)
        frame.SetStatus(StatusLabel::Operation, QStringLiteral("Capture Saved"));
    if (QWidget* form = frame.ActiveForm(); form && state.NoWin)
        form->close();
}

} // namespace

void SaveCapture(Frame& frame)
{
    const Hourglass hourglass;
    try {
        Save(frame);
    } catch (const ControlError&) {
        frame.Errors().Show(frame.FrameWindow(), QStringLiteral("Error!"),
            QStringLiteral("Error saving captured video frame."));
        frame.ShowStatus(StatusLabel::AutoCapture, false);
    }
}

void ImmediateSave(Frame& frame)
{
    ApplicationState& state = frame.State();
    const AutoName names(state.Beside(QStringLiteral("AutoSave")), state.CurrentExt);
    WriteUnder(names, StillWriter(frame), state);
}
