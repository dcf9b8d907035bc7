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
    void Opened(bool isLoaded) override;
    QString CountedText() const override { return tally_.TimeText(); }

private:
    void Tick();
    void TakeDue();
    void Written(const QString& path);
    void MakeRoom();
    void LeaveWhenWritten();

    QTimer CapTimer;
    bool isPlaying_ = false;
    bool isDue_ = false; ///< a picture that found no room
    bool isEnding_ = false; ///< its video has ended, pictures of it are still being written
};
