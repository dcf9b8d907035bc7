#include "video/TimedRun.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "capture/PictureWriter.h"
#include "capture/TimedSteps.h"
#include "video/Transport.h"
#include "video/ltmmPlay.h"

#include <utility>

TimedRun::TimedRun(const Parts& parts)
    : AutoRun(parts, PictureWriter::AfterFailure::GoOn)
{
    CapTimer.setTimerType(Qt::PreciseTimer);
    connect(&CapTimer, &QTimer::timeout, this, &TimedRun::Tick);
    connect(&parts_.writer, &PictureWriter::Written, this, &TimedRun::Written);
    connect(&parts_.writer, &PictureWriter::Failed, this, &TimedRun::MakeRoom);
}

void TimedRun::Prepare()
{
    State().Reload(Key::UsersCaptureTime, Reader::AutoRun);
    interval_ = State().UsersCaptureTime;
}

void TimedRun::StartVideo(const QString& path)
{
    ShowVideoNumber();
    State().Reload(Key::Ext);
    names_.emplace(State().Beside(QStringLiteral("AutoFrame")), State().CurrentExt);
    tally_.StartVideo();
    LoadVideo(path);
}

void TimedRun::Opened(bool isLoaded)
{
    if (!isLoaded)
        return NextVideo();
    parts_.transport.EnablePauseAndSound();
    parts_.player.Run();
    isPlaying_ = true;
    isDue_ = false;
    CapTimer.start(TimedSteps::FirstDelay(interval_));
}

void TimedRun::VideoEnded()
{
    if (!std::exchange(isPlaying_, false))
        return;
    CapTimer.stop();
    isEnding_ = true;
    LeaveWhenWritten();
}

/// The pictures of a video count as its own, so the next one waits for the last of them.
void TimedRun::LeaveWhenWritten()
{
    if (!isEnding_ || parts_.writer.Waiting() > 0)
        return;
    isEnding_ = false;
    NextVideo();
}

/// A failed picture is passed over without a word, and the next one comes in its time.
void TimedRun::Tick()
{
    parts_.frame.ShowStatus(StatusLabel::AutoCapture, true);
    const bool isRunning = parts_.player.State() == ltmmPlay::Running;
    parts_.frame.SetStatus(
        StatusLabel::Flashing, isRunning ? QStringLiteral("Auto") : QStringLiteral("Paused"));
    if (!isRunning)
        return;
    isDue_ = true;
    TakeDue();
    CapTimer.start(TimedSteps::NextDelay(parts_.player.CurrentPosition(), interval_, parts_.player.Rate()));
    Q_EMIT PictureTaken();
}

/// A disk that cannot follow delays a picture, and does not take it away unless the next is due by then.
void TimedRun::TakeDue()
{
    if (!isDue_ || parts_.writer.Waiting() >= MostWaiting)
        return;
    isDue_ = false;
    try {
        TakeStill();
    } catch (const ControlError&) {
        parts_.writer.Skip(*names_);
    }
}

void TimedRun::Written(const QString& path)
{
    Count(path);
    MakeRoom();
}

void TimedRun::MakeRoom()
{
    TakeDue();
    LeaveWhenWritten();
}
