#include "video/FrameRun.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Talk.h"
#include "capture/PictureWriter.h"
#include "video/Transport.h"
#include "video/VideoNames.h"
#include "video/ltmmPlay.h"

#include <QPointer>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto CountInterval = 50ms; ///< between two looks whether the frames of a large file are counted

constexpr auto RefusalTitle = "Auto Frame Capture";
constexpr auto RefusalText = "The frame command is not supported by this video format.\n"
                             "Multi capture not enabled.\n"
                             "Turn off this feature for this video, reload it, and use the capture button.";
constexpr auto SingleFrameTitle = "Capture Not Supported";
constexpr auto SingleFrameText = "The frame command is not supported by this video format. Turn off this "
                                 "feature for this video and use the capture button.";

} // namespace

FrameRun::FrameRun(const Parts& parts)
    : AutoRun(parts, PictureWriter::AfterFailure::Stop)
{
    countTimer_.setSingleShot(true);
    countTimer_.setInterval(CountInterval);
    connect(&countTimer_, &QTimer::timeout, this, &FrameRun::AwaitCount);
    connect(&parts_.player, &ltmmPlay::FramesReady, this, &FrameRun::Continue);
    connect(&parts_.writer, &PictureWriter::Written, this, &FrameRun::Written);
    connect(&parts_.writer, &PictureWriter::Failed, this, &FrameRun::Drain);
}

void FrameRun::Prepare()
{
    parts_.writer.Restart();
    State().Reload(Key::AutoNumber);
    autoNumber_ = State().AutoNumber;
    State().Reload(Key::UsersCaptureTime);
    interval_ = State().UsersCaptureTime;
    for (const StatusLabel label :
        { StatusLabel::AutoCapture, StatusLabel::Operation, StatusLabel::Position })
        parts_.frame.ShowStatus(label, true);
}

void FrameRun::StartVideo(const QString& path)
{
    State().CurrentExt = QStringLiteral(".bmp");
    names_.emplace(State().Beside(QStringLiteral("AutoFrame")), State().CurrentExt);
    steps_.reset();
    parts_.transport.EnablePlaying(false);
    ShowVideoNumber();
    stage_ = VideoExtension(path) == QLatin1String(".wmv") ? Stage::OpeningToPlay : Stage::Opening;
    if (stage_ == Stage::Opening || Tell(QLatin1String(RefusalTitle), QLatin1String(RefusalText)))
        LoadVideo(path);
}

void FrameRun::Opened(bool isLoaded)
{
    if (stage_ == Stage::OpeningToPlay)
        return isLoaded ? PlayThrough() : NextVideo();
    if (!isLoaded)
        return EndVideo();
    stage_ = Stage::Counting;
    AwaitCount();
}

void FrameRun::AwaitCount()
{
    if (!parts_.player.HasFrameCount())
        return countTimer_.start();
    steps_.emplace(parts_.player.FrameCount(), autoNumber_, !tally_.FirstDone());
    frame_.reset();
    stage_ = Stage::Stepping;
    Continue();
}

/// One frame at a time, and events in between: the window repaints and its buttons answer.
void FrameRun::Continue()
{
    if (stage_ == Stage::Stepping && !std::exchange(isContinuing_, true))
        QMetaObject::invokeMethod(this, &FrameRun::Step, Qt::QueuedConnection);
}

void FrameRun::Step()
{
    isContinuing_ = false;
    if (stage_ != Stage::Stepping || parts_.writer.Waiting() >= MostWaiting)
        return;
    if (!frame_) {
        frame_ = steps_->Next(parts_.player.CurrentFrame());
        isExpected_ = false;
    }
    if (!frame_)
        return Drain();
    if (!std::exchange(isExpected_, true))
        parts_.player.ExpectFrames(*frame_, steps_->Step());
    if (parts_.player.IsFrameReady(*frame_))
        TakeNext();
}

void FrameRun::TakeNext()
{
    try {
        parts_.player.SetCurrentFrame(*std::exchange(frame_, std::nullopt));
        TakeStill();
    } catch (const ControlError&) {
        parts_.writer.Skip(*names_);
        return Drain();
    }
    Continue();
}

void FrameRun::Written(const QString& path)
{
    Count(path);
    if (stage_ == Stage::Draining)
        Drain();
    else
        Continue();
}

void FrameRun::Drain()
{
    stage_ = Stage::Draining;
    if (parts_.writer.Waiting() == 0)
        EndVideo();
}

void FrameRun::EndVideo()
{
    stage_ = Stage::Idle;
    parts_.transport.EnablePlaying(true);
    if (steps_ && steps_->IsSingleFrame()
        && !Tell(QLatin1String(SingleFrameTitle), QLatin1String(SingleFrameText)))
        return;
    State().VideoPath = State().CurrentFile; // the title names the picture written last
    Q_EMIT TitleChanged();
    ShowVideoNumber();
    parts_.frame.ShowStatus(StatusLabel::Position, true);
    NextVideo();
}

/// The format is told apart by its name, whatever the player could do with it. The video plays, and the run
/// waits for it.
void FrameRun::PlayThrough()
{
    parts_.player.Stop();
    parts_.transport.EnableVideoControls(true, parts_.player);
    parts_.player.Run();
    if (IsLastVideo())
        return Finish();
    stage_ = Stage::Playing;
    EnableCapturing(true); // as the user was just advised
}

/// By hand, while a video plays that cannot be stepped through: with the one of the two commands that is in
/// use.
void FrameRun::EnableCapturing(bool enabled)
{
    parts_.frame.EnableCommand(State().NoCap ? Command::Save : Command::Capture, enabled);
}

void FrameRun::VideoEnded()
{
    if (stage_ != Stage::Playing)
        return;
    stage_ = Stage::Idle;
    EnableCapturing(false);
    NextVideo();
}

bool FrameRun::Tell(const QString& title, const QString& message)
{
    const QPointer<FrameRun> alive(this);
    parts_.frame.Errors().Show(parts_.frame.FrameWindow(), title, message);
    return alive;
}
