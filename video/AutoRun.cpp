#include "video/AutoRun.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "capture/ApplyWatermarkToFile.h"
#include "capture/SavePicture.h"
#include "video/Opening.h"
#include "video/Transport.h"
#include "video/VideoNames.h"
#include "video/ltmmPlay.h"

#include <utility>

AutoRun::AutoRun(const Parts& parts, PictureWriter::AfterFailure afterFailure)
    : parts_(parts)
{
    parts_.writer.SetAfterFailure(afterFailure);
    connect(&parts_.player, &ltmmPlay::SourceOpened, this, &AutoRun::FinishLoading);
}

AutoRun::~AutoRun()
{
    if (std::exchange(isOpening_, false)) {
        parts_.player.ResetSource();
        SetPointer(Pointer::Normal);
    }
    parts_.writer.Drop();
    if (!isOver_)
        Quieten();
}

ApplicationState& AutoRun::State() const
{
    return parts_.frame.State();
}

void AutoRun::Start()
{
    KeepVideos(State());
    State().VideoPath.clear();
    list_ = State().Videos.mid(1, State().VideoCount);
    tally_ = AutoTally(int(list_.size()));
    parts_.transport.EnableVideoControls(false, parts_.player);
    Prepare();
    GoOn();
}

void AutoRun::NextVideo()
{
    QMetaObject::invokeMethod(this, &AutoRun::GoOn, Qt::QueuedConnection);
}

void AutoRun::GoOn()
{
    if (IsLastVideo())
        return Finish();
    StartVideo(list_.at(next_++));
}

void AutoRun::LoadVideo(const QString& path)
{
    ApplicationState& state = State();
    state.CurrentFile = path;
    state.VideoPath = path;
    state.VideoExt = VideoExtension(path);
    isOpening_ = true;
    SetPointer(Pointer::Busy);
    parts_.player.BeginSourceFile(path);
}

void AutoRun::FinishLoading()
{
    if (!std::exchange(isOpening_, false))
        return;
    SetPointer(Pointer::Normal);
    parts_.player.SetPlayCount(1); // a video that is repeated for ever would be captured for ever
    parts_.transport.ReleasePause();
    parts_.transport.StartVideo();
    parts_.frame.ShowStatus(StatusLabel::Position, true);
    Q_EMIT VideoLoaded();
    Opened(parts_.player.SourceKind() != ltmmPlay::NoSource);
}

/// A player that gives up in the middle does not come to the end of its video.
void AutoRun::PlayerFailed()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (parts_.player.State() == ltmmPlay::Stopped)
                VideoEnded();
        },
        Qt::QueuedConnection);
}

void AutoRun::TakeStill()
{
    const QImage still = parts_.player.GetStillPicture(StillTimeout);
    PictureWriter::Finish finish;
    if (const std::optional<FileText> text = TextForFiles(State(), names_->At(1)))
        finish = [text = *text](const QString& path) { ApplyWatermarkToFile(path, text); };
    parts_.writer.Write(still, *names_, finish);
}

void AutoRun::Count(const QString& path)
{
    State().CurrentFile = path;
    if (State().UseWatermark) {
        parts_.frame.SetStatus(StatusLabel::Watermark, QStringLiteral("Watermark Applied"));
        parts_.frame.ShowStatus(StatusLabel::Watermark, true);
    }
    tally_.Count(interval_);
    told_ = CountedText();
    parts_.frame.SetStatusAlert(StatusLabel::AutoCapture, told_);
}

void AutoRun::ShowVideoNumber()
{
    parts_.frame.SetStatus(StatusLabel::Operation, QStringLiteral("Video #:") + QString::number(next_));
    parts_.frame.ShowStatus(StatusLabel::Operation, true);
}

void AutoRun::Quieten() const
{
    if (told_.isEmpty())
        return;
    parts_.frame.SetStatus(StatusLabel::AutoCapture, told_);
    parts_.frame.ShowStatus(StatusLabel::Watermark, false);
}

void AutoRun::Finish()
{
    Quieten();
    isOver_ = true;
    Q_EMIT Over();
}
