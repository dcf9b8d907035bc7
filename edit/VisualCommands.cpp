// What the buttons of the visual editor do.
#include "edit/Visual.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/OpenUserPicture.h"
#include "app/Talk.h"
#include "capture/NewCapture.h"
#include "edit/ColorRes.h"
#include "edit/EdgeFilters.h"
#include "edit/OptionGroup.h"
#include "edit/PicturePane.h"
#include "edit/SliderFile.h"
#include "edit/SliderRow.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QPointer>
#include <QSlider>

namespace {

constexpr auto GraphicFilter =
    "Graphic files|*.bmp;*.jpg;*.jpeg;*.tga;*.gif;*.tif;*.tiff;*.png;*.psd|All files|*";

} // namespace

bool Visual::Change(Back back, const std::function<void(Lead&)>& operation)
{
    if (isChanging_) // a key held down would begin one within another without end
        return false;
    const QPointer<Visual> alive(this);
    EndClipboardView();
    BeginBusy();
    if (back == Back::Kept)
        Back1 = Effect->Bitmap();
    isChanging_ = true;
    IgnoreErrors([&] { operation(*Effect); });
    if (!alive)
        return false;
    isChanging_ = false;
    if (isClosed_)
        return false;
    EffectMe();
    Effect->ForceRepaint();
    Effect->setFocus();
    return true;
}

void Visual::GetFilt()
{
    FilterType = Option1->Chosen();
    FilterDirection = Option2->Chosen();
}

void Visual::ApplyRow(int index)
{
    SliderRow& row = *rows_[size_t(index)];
    const int value = row.Value();
    GetFilt();
    const auto operation = [&](Lead& effect) {
        EffectRows()[size_t(index)].apply(effect, value, FilterDirection);
    };
    if (Change(Back::Kept, operation))
        row.ReAnswer();
}

void Visual::ApplyEdgeFilter(const EdgeFilterRow& row)
{
    GetFilt();
    const int code = int(SpatialCodeOf(row, FilterType, FilterDirection));
    Change(Back::Kept, [code](Lead& effect) { effect.SpatialFilter(code); });
}

void Visual::TurnByAngle()
{
    constexpr int hundredthsPerTenth = 10;
    const int angle = Angle->value() * hundredthsPerTenth;
    const bool grows = Check1->isChecked();
    if (Change(Back::LeftAsItIs, [=](Lead& effect) { effect.Rotate(angle, grows, Qt::white); }))
        Angle->setValue(0);
}

void Visual::GoBack()
{
    ShowEffect(Back1);
    Effect->setFocus();
}

void Visual::UndoTo()
{
    EndClipboardView();
    ShowEffect(Undos->Bitmap());
    Effect->setFocus();
}

void Visual::SetBookmark()
{
    EndClipboardView();
    SetUndos(Effect->Bitmap());
    Effect->setFocus();
}

void Visual::BookmarkOriginal()
{
    SetUndos(Original->Bitmap());
    Effect->setFocus();
}

/// Looked at twice in a row, the picture being worked on is still the one in Back1.
void Visual::ViewClipboard()
{
    if (!ClipTimer.isActive())
        Back1 = Effect->Bitmap();
    ClipTimer.start();
    ShowEffect(Lead1->Bitmap());
    Effect->setFocus();
}

void Visual::CopyEffect()
{
    const Hourglass waiting;
    EndClipboardView();
    IgnoreErrors([&] { Effect->Copy(frame_.SystemClipboard(), true); });
    IgnoreErrors([&] { Lead1->Paste(frame_.SystemClipboard(), Lead::PasteTake); });
    clipPane_->Arrange();
    Lead1->ForceRepaint();
    RefreshClipboardState();
    Effect->setFocus();
}

void Visual::PasteUnder()
{
    const int flag = Option3->Chosen() == 0 ? Lead::UnderlayTile : Lead::UnderlayStretch;
    Change(Back::Kept, [this, flag](Lead& effect) { effect.Underlay(Lead1->Bitmap(), flag); });
}

/// Edits are dropped whether or not a file was chosen.
void Visual::OpenDifferent()
{
    const QPointer<Visual> alive(this);
    const Hourglass waiting;
    SelectGraphicFile();
    if (!alive || isClosed_)
        return;
    ClipTimer.stop();
    if (!LoadOriginal())
        return;
    TakeOriginal();
    LoadClipboard();
    Effect->setFocus();
}

bool Visual::LoadOriginal()
{
    if (file_.isEmpty())
        return true;
    Frame& frame = frame_;
    const QPointer<Visual> alive(this);
    const auto isOpen = [&alive] { return alive && !alive->isClosed_; };
    const auto wait = [&] {
        if (isOpen())
            alive->ShowWaiting();
        frame.PumpPaintEvents();
    };
    QImage picture;
    QString reason;
    try {
        picture = OpenUserPicture(QString(file_), wait);
    } catch (const ControlError& error) {
        reason = error.Reason();
    }
    if (!isOpen())
        return false;
    if (picture.isNull())
        frame.SetStatusAlert(StatusLabel::Operation, reason);
    else
        Original->SetBitmap(picture);
    if (imaging::IsAnimated(picture))
        frame.State().CurrentFile = file_; // which the whole screen takes the other pages from
    return true;
}

void Visual::SelectGraphicFile()
{
    const PointerPause pause;
    ApplicationState& state = frame_.State();
    state.Reload(Key::OldFolder2, Reader::Visual);
    const QFileInfo last(state.OldFolder2); // the file opened last, or a folder
    const QPointer<Visual> alive(this);
    const QString chosen = frame_.Dialogs().AskOpenName(this, QStringLiteral("Select Graphic To Edit"),
        QLatin1String(GraphicFilter), last.isDir() ? state.OldFolder2 : last.path(), QStringLiteral("jpg"));
    if (!alive || chosen.isEmpty())
        return;
    file_ = chosen;
    state.OldFolder2 = chosen;
    state.Store(Key::OldFolder2);
    ShowFolder();
}

void Visual::ChangeResolution()
{
    if (isChanging_)
        return;
    EndClipboardView();
    Back1 = Effect->Bitmap();
    const QPointer<Visual> alive(this);
    const QPointer<ColorRes> form = new ColorRes(frame_, this, Effect->BitmapBits());
    form->exec();
    if (!alive || isClosed_ || !form)
        return;
    const auto change = [bits = form->GetBits(), palette = form->GetPalette(), dither = form->GetDither(),
                            colours = form->GetColours()](
                            Lead& effect) { effect.SetColorResolution(bits, palette, dither, colours); };
    const bool isAccepted = form->UserResult();
    delete form;
    if (isAccepted)
        Change(Back::LeftAsItIs, change);
    else
        Effect->setFocus();
}

void Visual::ViewFullScreen()
{
    const QPointer<Visual> alive(this);
    const Hourglass waiting;
    frame_.ShowFullScreen(Effect->Bitmap());
    if (alive && !isClosed_)
        Effect->setFocus();
}

void Visual::SaveSliders()
{
    SliderFile::Values values {};
    for (size_t index = 0; index < rows_.size(); ++index)
        values[index] = rows_[index]->Value();
    SliderFile::Save(frame_.State().Beside(QStringLiteral("Settings.Ini")), values);
    const QPointer<Visual> alive(this);
    frame_.Errors().Show(
        this, QStringLiteral(" SAVED! "), QStringLiteral("  The settings have been saved.  "));
    if (alive)
        Effect->setFocus();
}

void Visual::LoadSliders()
{
    try {
        const auto texts = SliderFile::Load(frame_.State().Beside(QStringLiteral("Settings.Ini")));
        if (!texts)
            return;
        for (size_t index = 0; index < rows_.size(); ++index) {
            rows_[index]->SetValue(AnswerText::Number((*texts)[index]));
            rows_[index]->SetText((*texts)[index]);
        }
    } catch (const ControlError& error) {
        return frame_.Errors().Show(this, QStringLiteral("Error!"), error.Reason());
    }
    Effect->setFocus();
}

/// Closes only when the picture has come to where it was to go.
void Visual::Accept()
{
    Frame& frame = frame_;
    const QPointer<Visual> alive(this);
    const Hourglass waiting;
    EndClipboardView();
    const QImage picture = Effect->Bitmap();
    IgnoreErrors([&] { Effect->Copy(frame_.SystemClipboard(), true); });
    try {
        ShowEdited(frame, Reader::Visual, picture);
    } catch (const ControlError& error) {
        return frame.SetStatusAlert(StatusLabel::Operation, error.Reason());
    }
    if (alive)
        close();
}
