#pragma once

#include <optional>

/// The frames that a run by frames takes from one video, one after the other.
///
/// The first file of the whole run is frame 0; any other video begins with its frame "step". There are at
/// most frameCount - 1 rounds, so that a step of 1 leaves out the last frame of the video that frame 0 was
/// taken from. A video shorter than the step gives its last frame instead of none.
class FrameSteps {
public:
    /// A step below 1 counts as 1.
    FrameSteps(int frameCount, int step, bool isFirstOfRun);

    /// The frame to take next, while the player stands at currentFrame; none when the video is done. A player
    /// that stands behind the last frame is asked once more, for frame number frameCount.
    std::optional<int> Next(int currentFrame);
    int Step() const { return step_; }
    /// The video has a single frame: there is nothing to step to, and nothing is taken.
    bool IsSingleFrame() const { return frameCount_ == 1; }

private:
    bool IsShort() const { return frameCount_ > 1 && frameCount_ < step_; }
    int Last(int frame);

    int frameCount_;
    int step_;
    int roundsLeft_;
    int next_ = 0;
    bool isFirstOfRun_;
};
