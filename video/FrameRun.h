#pragma once

#include "capture/FrameSteps.h"
#include "video/AutoRun.h"

#include <QTimer>

/// Steps through every video of the list and writes a picture every so many frames. Frames are made ready and
/// written on other threads; what is counted and told stands on the disk.
class FrameRun final : public AutoRun {
    Q_OBJECT

public:
    explicit FrameRun(const Parts& parts);

    void VideoEnded() override;

protected:
    void Prepare() override;
    void StartVideo(const QString& path) override;
    void Opened(bool isLoaded) override;
    QString CountedText() const override { return tally_.FrameText(); }

private:
    enum class Stage {
        Idle,
        Opening,
        OpeningToPlay, ///< a video that cannot be stepped through
        Counting, ///< how many frames the video has
        Stepping,
        Draining, ///< all is taken, and being written
        Playing,
    };

    void AwaitCount();
    void PlayThrough();
    void Step();
    void TakeNext();
    void Continue();
    void EnableCapturing(bool enabled);
    void Written(const QString& path);
    /// Nothing more is taken of this video; it ends with its last picture on the disk.
    void Drain();
    void EndVideo();
    /// False when the run was left while the message stood.
    bool Tell(const QString& title, const QString& message);

    Stage stage_ = Stage::Idle;
    int autoNumber_ = 0;
    std::optional<FrameSteps> steps_;
    std::optional<int> frame_; ///< to be taken next
    bool isExpected_ = false; ///< the player was told of frame_
    bool isContinuing_ = false; ///< a step is on its way
    QTimer countTimer_;
};
