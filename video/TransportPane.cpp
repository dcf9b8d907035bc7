#include "video/TransportPane.h"

#include "toolkit/PositionSlider.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"

#include <QHBoxLayout>

namespace {

constexpr int GroupGap = 12;

template <typename Button, size_t N>
std::array<StripButton*, N> MakeButtons(
    const std::array<TransportButton, N>& rows, const char* family, bool latching, QWidget* parent)
{
    std::array<StripButton*, N> buttons {};
    for (size_t i = 0; i < N; ++i) {
        buttons[i] = new Button(parent);
        buttons[i]->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(family)).arg(i));
        buttons[i]->SetFace(rows[i].face, rows[i].latchedFace);
        buttons[i]->SetToggle(latching);
        buttons[i]->setAccessibleName(QLatin1String(rows[i].name));
        buttons[i]->setProperty("Tag", QLatin1String(rows[i].tip));
    }
    return buttons;
}

} // namespace

TransportPane::TransportPane(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("BottomPane"));
    Cmd2 = MakeButtons<Videobuttons>(RunButtons, "Cmd2", true, this);
    Cmd3 = MakeButtons<VideoEditButtons>(SeekButtons, "Cmd3", true, this);
    speedbtn = MakeButtons<Videobuttons>(RateButtons, "speedbtn", false, this);
    CmdList = MakeButtons<Videobuttons>(ListButtons, "CmdList", false, this);
    // Without a video there is nothing to move.
    const auto disable = [](const auto& buttons) {
        for (StripButton* button : buttons)
            button->setEnabled(false);
    };
    disable(Cmd2);
    disable(Cmd3);
    Cmd3[SoundButton]->setEnabled(true); // one that is up is never woken
    disable(CmdList);
    trkPosition = new PositionSlider(this);
    trkPosition->setObjectName(QStringLiteral("trkPosition"));
    trkPosition->setAccessibleName(QStringLiteral("Position"));
    LayOut();
}

void TransportPane::LayOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2 * Grid, Grid, 2 * Grid, Grid);
    row->setSpacing(Grid);
    const auto add = [&](std::initializer_list<QWidget*> group) {
        for (QWidget* widget : group)
            row->addWidget(widget);
        row->addSpacing(GroupGap);
    };
    add({ Cmd3[SeekStartButton], Cmd2[FrameBackButton], Cmd2[PlayButton], Cmd2[PauseButton],
        Cmd2[FrameForwardButton], Cmd3[SeekEndButton] });
    add({ Cmd3[MarkStartButton], Cmd3[MarkEndButton] });
    add({ Cmd3[AutoRewindButton], Cmd3[LoopButton], Cmd3[SoundButton] });
    row->addWidget(trkPosition, 1);
    row->addSpacing(GroupGap);
    add({ speedbtn[DecreaseRateButton], speedbtn[IncreaseRateButton] });
    row->addWidget(CmdList[PreviousVideoButton]);
    row->addWidget(CmdList[NextVideoButton]);
    TabInOrderOfSight(row);
}

void TransportPane::TabInOrderOfSight(const QHBoxLayout* row)
{
    QWidget* before = nullptr;
    for (int i = 0; i < row->count(); ++i) {
        QWidget* widget = row->itemAt(i)->widget();
        if (widget && before)
            setTabOrder(before, widget);
        before = widget ? widget : before;
    }
}
