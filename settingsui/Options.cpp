#include "settingsui/Options.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "settingsui/AutoNamePage.h"
#include "settingsui/DisplayPage.h"
#include "settingsui/PlainPages.h"
#include "settingsui/PrintPage.h"
#include "settingsui/TimedPage.h"
#include "settingsui/WatermarkPage.h"
#include "toolkit/Button_XP.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>

#include <optional>
#include <utility>

namespace {

/// A page's caption, and the group of radio buttons on it that is set from the store whenever the page comes
/// up: a click on any radio button of the dialog clears all others.
struct PageRow {
    const char* caption;
    std::optional<Key> group;
};
constexpr PageRow Pages[] = {
    { "AutoName", Key::AutoDir },
    { " Video", {} },
    { " Window", Key::OpThumb },
    { "Display", Key::OpPic },
    { "Format", Key::Ext },
    { "Print", {} },
    { "Timed Capture", {} },
    { " Watermark", {} },
};

constexpr Key FillOrder[] = { Key::OpThumb, Key::SpecialFolder, Key::Ext, Key::PositionX, Key::PositionY,
    Key::OpPic, Key::SetFocusYES, Key::WordWrap, Key::UseWatermark, Key::WatermarkBATCH, Key::AutoCapture,
    Key::OpenVidList, Key::FadeOuts, Key::VidWinOnly, Key::OldFolder, Key::PicFolder, Key::VidSave,
    Key::NoCap, Key::ToolTip, Key::AutoDir, Key::NoWin, Key::LoadVid, Key::HighQ, Key::BW, Key::NameFull,
    Key::AutoSave, Key::AutoFrame, Key::AutoNumber, Key::CaptureTime, Key::UsersCaptureTime };

constexpr Key SaveOrder[] = { Key::PositionX, Key::PositionY, Key::WordWrap, Key::AutoDir, Key::sFontText,
    Key::OpPic, Key::OpThumb, Key::SetFocusYES, Key::OpenVidList, Key::UseWatermark, Key::WatermarkBATCH,
    Key::AutoSave, Key::VidSave, Key::NoCap, Key::NoWin, Key::LoadVid, Key::FadeOuts, Key::VidWinOnly,
    Key::SpecialFolder, Key::OldFolder, Key::Ext, Key::HighQ, Key::BW, Key::ToolTip, Key::PPosition,
    Key::AutoCapture, Key::CaptureTime, Key::UsersCaptureTime, Key::AutoFrame, Key::AutoNumber,
    Key::NameFull };

/// Of these the copy takes what is stored after the save.
constexpr Key ReadBack[] = { Key::UsersCaptureTime, Key::AutoNumber };

} // namespace

Options::Options(Frame& frame, QWidget* owner, cSetDfltPrinter& defaultPrinter, AskColor askColor)
    : FormDialog(frame.State(), owner, QStringLiteral("Options"))
    , frame_(frame)
    , fields_(frame.State())
    , VideoSoftIndexTab1(new QTabWidget(this))
{
    SetTitle(QStringLiteral("Options"));
    Build(defaultPrinter, std::move(askColor));
    Fill();
    connect(VideoSoftIndexTab1, &QTabWidget::currentChanged, this, &Options::ComeTo);
    Dress();
}

void Options::Build(cSetDfltPrinter& defaultPrinter, AskColor askColor)
{
    AddCloseButton("Close without saving.", "Close without saving")->setObjectName(QStringLiteral("Close"));
    VideoSoftIndexTab1->setObjectName(QStringLiteral("VideoSoftIndexTab1"));
    VideoSoftIndexTab1->setUsesScrollButtons(false);
    VideoSoftIndexTab1->setFocusPolicy(Qt::NoFocus); // its row of tabs takes the keys
    VideoSoftIndexTab1->tabBar()->setFocusPolicy(Qt::TabFocus);
    VideoSoftIndexTab1->tabBar()->setAccessibleName(QStringLiteral("Pages"));
    AddPage(autoName_ = new AutoNamePage(frame_, fields_));
    AddPage(new VideoPage(fields_));
    AddPage(new WindowPage(fields_));
    AddPage(new DisplayPage(frame_, fields_));
    AddPage(new FormatPage(fields_));
    AddPage(print_ = new PrintPage(frame_, fields_, defaultPrinter));
    AddPage(new TimedPage(fields_));
    AddPage(watermark_ = new WatermarkPage(frame_, fields_, std::move(askColor)));
    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(2 * Grid, 2 * Grid, 2 * Grid, 2 * Grid);
    column->setSpacing(2 * Grid);
    column->addWidget(VideoSoftIndexTab1);
    column->addWidget(BuildFoot());
    AddBody(body);
    KeepFitting();
    VideoSoftIndexTab1->tabBar()->setFocus();
}

void Options::AddPage(QWidget* page)
{
    VideoSoftIndexTab1->addTab(page, QLatin1String(Pages[VideoSoftIndexTab1->count()].caption));
}

QWidget* Options::BuildFoot()
{
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(Grid, 0, Grid, Grid);
    row->addStretch();
    auto* save = new Button_XP(foot);
    save->setObjectName(QStringLiteral("Cmds(0)"));
    save->setProperty("Tag", QStringLiteral("Keep everything on all pages, and close."));
    save->SetCaption(QStringLiteral("&Save Options"));
    save->Set(&ButtonProperties::XPShowBorderAlways, 1);
    connect(save, &Button_XP::Click, this, &Options::Save);
    row->addWidget(save);
    return foot;
}

void Options::Fill()
{
    for (const Key key : FillOrder)
        fields_.Show(key);
    fields_.ShowCopy(Key::UseShadows); // what its box turns over, and no save keeps
    autoName_->EnableImmediateSave();
    watermark_->ShowStoredFont();
    fields_.Show(Key::sFontText);
    fields_.Show(Key::PPosition);
    print_->ShowPreview();
    print_->ShowPrinters();
}

void Options::ComeTo(int page)
{
    // What was chosen on a page whose group is not kept at once counts only while the page is in sight.
    for (const int changed : { std::exchange(shownPage_, page), page })
        if (const std::optional<Key> group = Pages[changed].group)
            fields_.Restore(*group);
}

void Options::Save()
{
    fields_.Save(SaveOrder);
    for (const Key key : ReadBack)
        frame_.State().Reload(key, Reader::Options);
    SwapCaptureCommands();
    accept();
}

void Options::done(int result)
{
    const QPointer<Options> alive(this);
    TellWhatIsNotStored();
    if (alive)
        FormDialog::done(result);
}

/// Once, however often the end begins.
void Options::TellWhatIsNotStored()
{
    if (isTold_ || fields_.IsAllStored())
        return;
    isTold_ = true;
    frame_.Errors().Show(this, QStringLiteral("Error!"),
        QStringLiteral("The options could not be stored. They are used until the program ends."));
}

/// With a video open the frame's two buttons follow at once.
void Options::SwapCaptureCommands()
{
    const ApplicationState& state = frame_.State();
    if (state.VideoPath.isEmpty())
        return;
    frame_.EnableCommand(Command::Save, state.NoCap);
    frame_.EnableCommand(Command::Capture, !state.NoCap);
}
