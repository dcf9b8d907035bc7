#pragma once

#include <QString>

/// How an automatic run counts its pictures and tells of them.
class AutoTally {
public:
    /// Counts for a run over so many videos. A run over several counts one more from its start on: the first
    /// picture of its second video is told under the total that stood already.
    explicit AutoTally(int videos = 0)
        : captureCount_(videos >= 2 ? 1 : 0)
    {
    }

    /// The next picture is a first one again.
    void StartVideo();
    /// One more picture stands on the disk; interval lies between two, in seconds.
    void Count(int interval);

    bool FirstDone() const { return firstDone_; }
    /// Captures less one.
    int CaptureCount() const { return captureCount_; }
    int ElapsedSeconds() const { return elapsedSeconds_; }

    /// What the run by time tells of the picture counted last.
    QString TimeText() const;
    /// What the run by frames tells. Its "Frame #" is ElapsedSeconds, whatever the step in frames: users know
    /// this number.
    QString FrameText() const;

private:
    QString FirstText() const;
    QString Total() const;

    int captureCount_;
    int elapsedSeconds_ = 0;
    bool firstDone_ = false;
    bool isFirst_ = false; ///< the picture counted last was a first one
};
