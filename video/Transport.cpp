#include "video/Transport.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/TimeText.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/StripButton.h"
#include "video/TransportPane.h"
#include "video/ltmmPlay.h"

#include <QLocale>

namespace {

constexpr auto ClearedTip = " Cleared Marked Selection ";

/// What a latching button says and does, by the value it had before the click.
struct ToggleRow {
    SeekButton button;
    const char* tipWhenDown;
    const char* tipWhenUp;
    void (*apply)(ltmmPlay&, bool wasDown);
};
constexpr ToggleRow Toggles[] {
    { AutoRewindButton, " Auto Rewind OFF ", " Auto Rewind ON ",
        [](ltmmPlay& player, bool wasDown) { player.SetAutoRewind(!wasDown); } },
    { LoopButton, " Loop OFF ", " Loop ON ",
        [](ltmmPlay& player, bool wasDown) { player.SetPlayCount(wasDown ? 1 : 0); } },
    { SoundButton, " Sound OFF ", " Sound ON ",
        [](ltmmPlay& player, bool wasDown) { player.SetMute(wasDown); } },
};

bool IsDown(const StripButton* button)
{
    return button->Value() != 0;
}

} // namespace

QString PositionText(const ltmmPlay& player)
{
    return FormatPosition(player.CurrentPosition()) + QStringLiteral("  -  ")
        + FormatPosition(player.Duration());
}

Transport::Transport(TransportPane& pane, Frame& frame, std::function<void()> openListed)
    : QObject(&pane)
    , pane_(pane)
    , frame_(frame)
    , openListed_(std::move(openListed))
{
    Bind();
}

void Transport::Bind()
{
    const auto onClick = [this](StripButton* button, auto action) {
        connect(button, &StripButton::Click, this, action);
    };
    onClick(pane_.Cmd2[PlayButton], [this] { Play(); });
    onClick(pane_.Cmd2[PauseButton], [this] { PauseOrRun(); });
    onClick(pane_.Cmd2[FrameBackButton], [this] { StepFrame(-1); });
    onClick(pane_.Cmd2[FrameForwardButton], [this] { StepFrame(+1); });
    for (int i = 0; i < SeekButtonCount; ++i)
        onClick(pane_.Cmd3[size_t(i)], [this, i] { SeekClicked(SeekButton(i)); });
    for (int i = 0; i < RateButtonCount; ++i)
        onClick(pane_.speedbtn[size_t(i)], [this, i] { ChangeRate(RateButton(i)); });
    onClick(pane_.CmdList[PreviousVideoButton], [this] { WalkList(-1); });
    onClick(pane_.CmdList[NextVideoButton], [this] { WalkList(+1); });
    connect(pane_.trkPosition, &PositionSlider::Scroll, this, [this] { Scroll(pane_.trkPosition->Value()); });
}

void Transport::EnableVideoControls(bool enabled, const ltmmPlay& player)
{
    EnablePlaying(enabled);
    for (const SeekButton button : { AutoRewindButton, LoopButton })
        if (!IsDown(pane_.Cmd3[button]))
            pane_.Cmd3[button]->setEnabled(enabled);
    if (IsDown(pane_.Cmd3[SoundButton]))
        pane_.Cmd3[SoundButton]->setEnabled(enabled);
    frame_.ShowStatus(StatusLabel::Operation, enabled);
    frame_.ShowStatus(StatusLabel::Position, enabled);
    if (!enabled)
        for (StripButton* button : pane_.CmdList)
            button->setEnabled(false);

    const int seeking = player.CheckSeeking(ltmmPlay::EveryCapability);
    pane_.Cmd3[SeekStartButton]->setEnabled(seeking & ltmmPlay::ToStart);
    pane_.Cmd3[SeekEndButton]->setEnabled(seeking & ltmmPlay::ToEnd);
    // After an open or a clear the marks wait for the slider.
    const bool marksUsable = seeking & (ltmmPlay::MarkStart | ltmmPlay::MarkEnd) && !State().MarksCleared;
    for (const SeekButton button : { MarkStartButton, MarkEndButton })
        pane_.Cmd3[button]->setEnabled(marksUsable);
}

void Transport::EnablePlaying(bool enabled)
{
    for (StripButton* button : pane_.Cmd2)
        button->setEnabled(enabled);
}

void Transport::EnablePauseAndSound()
{
    pane_.Cmd2[PauseButton]->setEnabled(true);
    pane_.Cmd3[SoundButton]->setEnabled(true);
}

void Transport::ForgetMarks()
{
    ClearMarks();
    for (const SeekButton button : { MarkStartButton, MarkEndButton })
        pane_.Cmd3[button]->SetValue(0);
}

void Transport::ClearMarks()
{
    State().MarksSet = false;
    State().MarksCleared = true;
    for (const SeekButton button : { MarkStartButton, MarkEndButton }) {
        pane_.Cmd3[button]->setToolTip(QLatin1String(ClearedTip));
        pane_.Cmd3[button]->setEnabled(false);
    }
}

void Transport::EnableList()
{
    for (StripButton* button : pane_.CmdList)
        button->setEnabled(State().VideoCount >= 2);
}

void Transport::StartVideo()
{
    EnableList();
    IgnoreErrors([&] { Player().SetCurrentPosition(0); });
    pane_.trkPosition->SetMax(Player().TrackingMax());
    pane_.trkPosition->SetValue(0);
}

void Transport::ReleasePause()
{
    pane_.Cmd2[PauseButton]->SetValue(0);
}

void Transport::ReleaseRepeats()
{
    for (const SeekButton button : { AutoRewindButton, LoopButton })
        pane_.Cmd3[button]->SetValue(0);
}

void Transport::ObeyLoop()
{
    Player().SetPlayCount(IsDown(pane_.Cmd3[LoopButton]) ? 0 : 1);
}

void Transport::SetSoundOn()
{
    pane_.Cmd3[SoundButton]->SetValue(1);
}

void Transport::ShowPane(bool visible)
{
    pane_.setVisible(visible);
}

void Transport::FollowProgress(int position)
{
    pane_.trkPosition->SetValue(position);
}

void Transport::ShowSelection(int start, int end)
{
    pane_.trkPosition->SetSelStart(start);
    pane_.trkPosition->SetSelLength(qMax(0, end - start));
}

void Transport::Play()
{
    ReleasePause();
    if (State().MarksSet) {
        Player().Run();
    } else {
        Player().SetSelectionStart(0.0);
        Player().Run();
        frame_.SetStatus(StatusLabel::Operation, QStringLiteral("Reset"));
    }
    SetPointer(Pointer::Normal);
}

void Transport::PauseOrRun()
{
    const bool isRunning = Player().State() == ltmmPlay::Running;
    if (isRunning)
        Player().Pause();
    else
        Player().Run();
    pane_.Cmd2[PauseButton]->SetValue(isRunning ? 1 : 0);
    frame_.SetStatus(StatusLabel::Flashing, isRunning ? QStringLiteral("Paused") : QStringLiteral("Auto"));
}

void Transport::StepFrame(int direction)
{
    IgnoreErrors([&] {
        if (State().VideoExt == QLatin1String(".wmv"))
            Player().SetTrackingPosition(Player().TrackingPosition() + 10 * direction);
        else if (direction < 0)
            Player().PreviousFrame();
        else
            Player().NextFrame();
    });
}

void Transport::SeekClicked(SeekButton button)
{
    switch (button) {
    case SeekStartButton:
        IgnoreErrors([&] { Player().SeekStart(); });
        return;
    case SeekEndButton:
        IgnoreErrors([&] { Player().SeekEnd(); });
        return;
    case MarkStartButton:
    case MarkEndButton:
        if (State().VideoPath.isEmpty())
            return;
        Mark(button);
        break;
    case AutoRewindButton:
    case LoopButton:
    case SoundButton:
        Toggle(button);
        break;
    case SeekButtonCount:
        return;
    }
    pane_.Cmd3[button]->SetValue(IsDown(pane_.Cmd3[button]) ? 0 : 1);
}

void Transport::Mark(SeekButton button)
{
    const SeekButton other = button == MarkStartButton ? MarkEndButton : MarkStartButton;
    if (IsDown(pane_.Cmd3[button])) {
        Player().SetSelectionStart(0.0);
        Player().SetSelectionEnd(Player().Duration());
        pane_.Cmd3[other]->SetValue(0);
        ClearMarks();
        return;
    }
    if (button == MarkStartButton)
        Player().MarkSelectionStart();
    else
        Player().MarkSelectionEnd();
    pane_.Cmd3[button]->setToolTip(button == MarkStartButton ? QStringLiteral(" Start Selection Marked ")
                                                             : QStringLiteral(" End Selection Marked "));
    State().MarksSet = true;
}

void Transport::Toggle(SeekButton button)
{
    for (const ToggleRow& row : Toggles) {
        if (row.button != button)
            continue;
        const bool wasDown = IsDown(pane_.Cmd3[button]);
        pane_.Cmd3[button]->setToolTip(QLatin1String(wasDown ? row.tipWhenDown : row.tipWhenUp));
        row.apply(Player(), wasDown);
    }
}

void Transport::ChangeRate(RateButton button)
{
    StripButton* clicked = pane_.speedbtn[button];
    const double rate = Player().Rate();
    const auto wanted =
        button == IncreaseRateButton ? rateClicks_.Increase(rate) : rateClicks_.Decrease(rate);
    const double next = wanted.value_or(1.0);
    const QString number = QLocale().toString(next, 'g', 3);
    if (!wanted || Player().IsRateSupported(next)) {
        Player().SetRate(next);
        clicked->setToolTip(number);
    } else {
        clicked->setToolTip(number + QStringLiteral(" Rate not supported  -"));
        Player().SetRate(1.0);
    }
}

void Transport::Scroll(int value)
{
    IgnoreErrors([&] { Player().SetTrackingPosition(value); });
    frame_.SetStatus(StatusLabel::Operation, QString::number(value / 100) + u'%');
    frame_.SetStatus(StatusLabel::Position, PositionText(Player()));
    if (State().MarksCleared) {
        State().MarksCleared = false;
        for (const SeekButton button : { MarkStartButton, MarkEndButton })
            pane_.Cmd3[button]->setEnabled(true);
    }
}

void Transport::WalkList(int direction)
{
    ApplicationState& state = State();
    state.ListIndex = short(state.ListIndex + direction);
    if (state.ListIndex < 1)
        state.ListIndex = short(state.FileCount);
    else if (state.ListIndex > state.FileCount)
        state.ListIndex = 1;
    state.VideoPath = state.Videos.value(state.FirstOfList ? 1 : state.ListIndex);
    state.FirstOfList = false;
    state.CaptureName = state.VideoPath;
    state.FromList = true;
    openListed_();
}

ltmmPlay& Transport::Player()
{
    return frame_.CurrentPlayer();
}

ApplicationState& Transport::State()
{
    return frame_.State();
}
