#include "settingsui/TimedPage.h"

#include "app/TimeText.h"
#include "settingsui/NumberLine.h"
#include "toolkit/DigitLabel.h"

#include <QGridLayout>

namespace {

constexpr PairRow OnOff[] = {
    { "AutoCaptureOnOff(0)", "Auto Capture ON", "Opening videos captures them all." },
    { "AutoCaptureOnOff(1)", "Auto Capture OFF", "Opening videos shows the first one." },
};
constexpr BoxRow ByTime { Key::CaptureTime, "AutoCap1", " Set Auto Capture time rate.",
    "Auto Capture every [ ? ] seconds, using AutoName and AutoFrame folder." };
constexpr BoxRow ByFrame { Key::AutoFrame, "AutoCap2", " Set Auto Capture frame rate.",
    "Auto Capture every [ ? ] frame, using AutoName and AutoFrame folder." };
constexpr int TwoHours = 7200; // seconds
constexpr NumberRow Seconds { Key::UsersCaptureTime, "Label6", "HSlider2", "Every", "Seconds.",
    "Seconds between captures", "Seconds from one capture to the next.", 1, TwoHours };
constexpr NumberRow Frames { Key::AutoNumber, "Label3", "HSlider1", "Every", "  Frames.",
    "Frames between captures", "Frames from one capture to the next.", 1, 1000 };

} // namespace

TimedPage::TimedPage(OptionFields& fields)
    : OptionsPage(fields)
{
    AddPair(AddRow(Column()), Key::AutoCapture, OnOff);
    QGridLayout& time = AddRate(ByTime);
    auto* LblTime = new DigitLabel(this);
    LblTime->setObjectName(QStringLiteral("LblTime"));
    LblTime->SetSample(SecondsToTime(TwoHours));
    connect(AddNumber(time, 0, Seconds), &NumberLine::Moved, LblTime,
        [LblTime](int value) { LblTime->setText(SecondsToTime(value)); });
    time.addWidget(LblTime, 0, time.columnCount());
    AddNumber(AddRate(ByFrame), 0, Frames);
    Column().addStretch();
}

/// A group that one radio button switches on, with a line for its rate.
QGridLayout& TimedPage::AddRate(const BoxRow& row)
{
    QVBoxLayout& group = AddGroup(Column(), "");
    AddFlag(group, row);
    auto* grid = new QGridLayout;
    group.addLayout(grid);
    return *grid;
}
