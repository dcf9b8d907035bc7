#include "settingsui/Power.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/Style.h"
#include "toolkit/xpcheckbox.h"

#include <QGridLayout>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int Columns = 2;
constexpr QPoint FromCorner(24, 64); ///< of the frame's window: below its title and beside its edge

template <auto Copy> bool IsOn(const ApplicationState& state)
{
    return state.*Copy;
}

/// The copy takes what the box had before the click. Users have learned to live with it: it stays.
template <auto Copy> void Take(ApplicationState& state, int valueBefore)
{
    state.*Copy = valueBefore != xpcheckbox::Clear;
}

bool HasThumbnails(const ApplicationState& state)
{
    return state.OpThumb == 0 || state.OpThumb == 1;
}

void TakeThumbnails(ApplicationState& state, int valueBefore)
{
    state.OpThumb = valueBefore == xpcheckbox::Set ? 2 : 1;
}

/// In the order in which they are read.
constexpr Key FillOrder[] = { Key::SFontBold, Key::UseShadows, Key::WordWrap, Key::WatermarkBATCH,
    Key::OpenVidList, Key::OpThumb, Key::AutoCapture, Key::UseWatermark };

} // namespace

/// Control(index).
struct Power::Row {
    const char* label;
    const char* tip;
    bool (*isOn)(const ApplicationState& state);
    void (*take)(ApplicationState& state, int valueBefore);
};

using State = ApplicationState;
const std::array<Power::Row, 8> Power::Rows { {
    { "Timed", "Automatic capture.", IsOn<&State::AutoCapture>, Take<&State::AutoCapture> },
    { "Watermark", "Your text on captures.", IsOn<&State::UseWatermark>, Take<&State::UseWatermark> },
    { "Shadow", "The text's shadow.", IsOn<&State::UseShadows>, Take<&State::UseShadows> },
    { "Bold", "The text in bold.", IsOn<&State::SFontBold>, Take<&State::SFontBold> },
    { "Manual", "How words get on captures.", IsOn<&State::WatermarkBATCH>, Take<&State::WatermarkBATCH> },
    { "Wordwrap", "Long text is wrapped.", IsOn<&State::WordWrap>, Take<&State::WordWrap> },
    { "Thumbnail", "Captures join the thumbnails.", HasThumbnails, TakeThumbnails },
    { "Video List", "The list stays closed.", IsOn<&State::OpenVidList>, Take<&State::OpenVidList> },
} };

Power::Power(Frame& frame)
    : FormDialog(frame.State(), frame.FrameWindow(), QStringLiteral("Power"))
    , frame_(frame)
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Control Panel"));
    Build();
    Fill();
    Bind();
    Dress();
}

void Power::Build()
{
    auto* restore = new smallXPbuttons(this);
    restore->setObjectName(QStringLiteral("smallXPbuttons1"));
    restore->SetFace(Face::Undo);
    restore->setAccessibleName(QStringLiteral("Restore"));
    restore->setProperty("Tag", QStringLiteral("Restore"));
    connect(restore, &smallXPbuttons::Click, this, &Power::Fill);
    Head().AddButton(restore);
    AddCloseButton("Close", "Close control panel");

    auto* body = new QWidget(this);
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(3 * Grid, 2 * Grid, 3 * Grid, 2 * Grid);
    grid->setHorizontalSpacing(4 * Grid);
    grid->setVerticalSpacing(Grid);
    const int lines = int(Rows.size()) / Columns;
    for (int i = 0; i < int(Rows.size()); ++i) {
        auto* box = new xpcheckbox(body);
        box->setObjectName(QStringLiteral("Control(%1)").arg(i));
        box->SetCaption(QLatin1String(Rows[size_t(i)].label));
        box->setAccessibleName(box->Caption());
        box->setProperty("Tag", QLatin1String(Rows[size_t(i)].tip));
        grid->addWidget(box, i % lines, i / lines);
        Control[size_t(i)] = box;
    }
    AddBody(body);
    KeepFitting();
    Control.front()->setFocus();
}

void Power::Bind()
{
    for (size_t i = 0; i < Rows.size(); ++i)
        connect(Control[i], &xpcheckbox::Click, this,
            [this, i] { Rows[i].take(frame_.State(), Control[i]->Value()); });
}

void Power::Fill()
{
    for (const Key key : FillOrder)
        frame_.State().Reload(key);
    for (size_t i = 0; i < Rows.size(); ++i)
        Control[i]->SetValue(Rows[i].isOn(frame_.State()) ? xpcheckbox::Set : xpcheckbox::Clear);
}

void Power::Open()
{
    if (!isVisible()) {
        adjustSize();
        const QWidget& window = *parentWidget();
        const QRect room = screen()->availableGeometry();
        const QPoint corner =
            window.mapToGlobal(window.rect().topRight()) + QPoint(-FromCorner.x() - width(), FromCorner.y());
        move(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - width())),
            std::clamp(corner.y(), room.top(), std::max(room.top(), room.bottom() - height())));
    }
    show();
    raise();
    activateWindow();
}
