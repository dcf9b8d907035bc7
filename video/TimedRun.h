#pragma once

#include "video/AutoRun.h"

#include <QTimer>

/// Plays every video of the list and writes a picture every so many seconds of it.
class TimedRun final : public AutoRun {
    Q_OBJECT

public:
    explicit TimedRun(const Parts& parts);

    void VideoEnded() override;

protected:
    void Prepare() override;
    void StartVideo(const QString& path) override;
    QString CountedText() const override { return tally_.TimeText(); }

private:
    void Tick();
    void TakeNext();
    void Written(const QString& path);
    void LeaveWhenWritten();

    QTimer CapTimer;
    bool isPlaying_ = false;
    bool isEnding_ = false; ///< its video has ended, pictures of it are still being written
};
