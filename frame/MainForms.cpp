// The child windows of the frame: how they come, stand in front or behind, and go.
#include "app/ApplicationState.h"
#include "app/FormShadow.h"
#include "app/Hourglass.h"
#include "app/SystemDialogs.h"
#include "edit/Tools.h"
#include "edit/Visual.h"
#include "frame/HelpWindow.h"
#include "frame/Main.h"
#include "settingsui/Options.h"
#include "settingsui/Power.h"
#include "video/VideoList.h"
#include "viewers/FullS.h"
#include "viewers/QuickShots.h"
#include "viewers/Viewer.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

/// Each form that fades holds a picture of itself.
constexpr int MostFadesBeside = 8;

} // namespace

QWidget* Main::ActiveForm()
{
    return area_->currentSubWindow();
}

Lead* Main::ActiveCapture()
{
    CaptureWindow* const window = ActiveCaptureWindow();
    return window ? &window->Picture() : nullptr;
}

CaptureWindow* Main::ActiveCaptureWindow()
{
    return qobject_cast<Viewer*>(ActiveForm());
}

void Main::AddChild(QWidget* form)
{
    auto* child = qobject_cast<ChildForm*>(form);
    Q_ASSERT(child);
    if (child->CurrentShape() == ChildForm::Shape::Minimized)
        child->Restore();
    ShowInFront(*child);
}

void Main::ShowInFront(ChildForm& child)
{
    if (!area_->subWindowList().contains(&child))
        area_->addSubWindow(&child, child.windowFlags());
    child.show();
    child.BringToFront();
}

void Main::SendToBack(QWidget* form)
{
    if (auto* child = qobject_cast<ChildForm*>(form))
        child->SendToBack();
}

void Main::AddKid(quintptr handle)
{
    ++state_.KidCount;
    kids_.RedimKids();
    kids_.AddKid(handle);
}

void Main::RemoveKid(quintptr handle)
{
    kids_.RemoveKid(handle, [this] { ShowStatus(StatusLabel::AutoCapture, false); });
    --state_.KidCount;
    tidying_.start();
}

void Main::MakeKidActive(int index)
{
    kids_.MakeKidActive(
        index, [this] { return quintptr(ActiveForm()); }, [this] { SendToBack(ActiveForm()); });
}

void Main::OpenViewer()
{
    AddChild(new Viewer(*this));
    tidying_.start();
    if (!state_.ToolsOpen && !areToolsUnwanted_)
        ShowTools();
}

void Main::AddThumbnail()
{
    const bool isNew = !quickShots_ || !state_.QuickShotsOpen; // one that is closing takes no more
    if (isNew)
        quickShots_ = new QuickShots(*this);
    quickShots_->mnuControlsAdd2();
    if (!isNew) {
        if (quickShots_->CurrentShape() != ChildForm::Shape::Minimized)
            SendToBack(quickShots_);
        return;
    }
    // A strip that was active only for a moment would come up when a capture closes.
    auto* const front = qobject_cast<ChildForm*>(ActiveForm());
    ShowInFront(*quickShots_);
    SendToBack(quickShots_);
    if (front && front != quickShots_)
        ShowInFront(*front);
}

void Main::ShowThumbnails()
{
    if (quickShots_)
        ShowInFront(*quickShots_);
}

void Main::OpenTools()
{
    areToolsUnwanted_ = false;
    ShowTools();
}

/// The keyboard stays with the frame.
void Main::ShowTools()
{
    auto* tools = qobject_cast<Tools*>(state_.Tools.data());
    if (!tools) {
        tools = new Tools(*this);
        // Whoever closes them while there is something to edit does not want them with the next capture.
        connect(tools, &QDialog::finished, this, [this] { areToolsUnwanted_ = state_.KidCount > 0; });
    }
    const bool wasActive = isActiveWindow();
    tools->LTools(ActiveForm());
    if (wasActive)
        activateWindow();
}

void Main::OpenVisual()
{
    if (visual_ && visual_->isVisible()) // one that is closing takes nothing more
        return visual_->ComeBack();
    visual_ = new Visual(*this);
    if (!state_.VisualReady)
        delete visual_;
}

void Main::OpenOptions()
{
    // The dialog lets events through while it draws its page, the second press of a double click among them.
    if (areOptionsOpening_)
        return;
    const QScopedValueRollback opening(areOptionsOpening_, true);
    const Hourglass waiting;
    if (!defaultPrinter_)
        defaultPrinter_.emplace(printers_);
    const QPointer<Options> form = new Options(*this, this, *defaultPrinter_, AskSystemColor);
    if (isVisible()) {
        const PointerPause pause;
        form->exec();
    }
    delete form;
    state_.ApplyToolTips(*this);
}

void Main::ShowPower()
{
    if (!power_)
        power_ = new Power(*this);
    power_->Open();
}

void Main::ShowFullScreen(const QImage& picture)
{
    const Hourglass waiting; // while the pages of one that moves are read
    const QPointer<FullS> form = new FullS(*this, picture);
    const PointerPause pause;
    form->exec();
    delete form;
}

void Main::CloseActiveForm()
{
    // Behind a picture that fills the screen nobody sees what would go.
    if (QWidget* form = ActiveForm(); form && !IsFullScreen())
        form->close();
}

void Main::CloseAllWindows()
{
    const Hourglass waiting;
    if (state_.QuickShotsOpen)
        SendToBack(quickShots_);
    // Whatever child is active goes, a video in front of the captures too.
    for (int fades = 0; state_.KidCount > 0 && HasCaptures(); ++fades) {
        if (state_.QuickShotsOpen && ActiveForm() == quickShots_)
            SendToBack(quickShots_); // it may be the one that was active before
        const QPointer<QWidget> form = ActiveForm();
        // The last capture waits for the end of its fade, and with it for those of the others.
        const bool isLast = state_.KidCount == 1 && qobject_cast<Viewer*>(form);
        if (form && !isLast && fades < MostFadesBeside)
            BeginFadeAtClosing(*form, state_);
        else if (form && !isLast)
            form->hide();
        const bool isClosed = form && form->close();
        if (!isClosed || form == ActiveForm()) // the last is one that is on its way out already
            break;
    }
    EnableCommand(Command::Print, false);
    if (state_.Tools)
        state_.Tools->close();
    ShowStatus(StatusLabel::AutoCapture, false);
}

/// A capture window counts as a kid before it is a child: while it is being made.
bool Main::HasCaptures() const
{
    return std::ranges::any_of(
        area_->subWindowList(), [](QMdiSubWindow* form) { return qobject_cast<Viewer*>(form) != nullptr; });
}

void Main::UnloadForms()
{
    // With the frame gone from the screen nobody waits for the fades of its forms.
    hide();
    CloseAllFormsExcept(objectName());
    // A form can open or raise another while it closes; the second round takes what the first passed over.
    CloseAllFormsExcept(objectName());
    delete help_;
    delete visual_;
    // One that was made on demand and never shown; one that is still fading goes by itself.
    if (state_.CurrentVideo && state_.CurrentVideo->parentWidget() == this)
        delete state_.CurrentVideo;
}

void Main::CloseAllFormsExcept(const QString& name)
{
    // Events are handled while a form closes, and others may go meanwhile.
    QList<QPointer<QWidget>> forms;
    for (QMdiSubWindow* form : area_->subWindowList())
        forms << form;
    for (QWidget* form : QApplication::topLevelWidgets())
        if (form->isVisible())
            forms << form;
    for (const QPointer<QWidget>& form : forms)
        if (form && form->objectName() != name)
            form->close();
}

void Main::closeEvent(QCloseEvent* event)
{
    state_.ExitRequested = true;
    UnloadForms();
    QWidget::closeEvent(event);
}
