#pragma once

namespace media {

/// Turns stamps, which may begin anew in the middle of a file, into times that go on.
template <typename Time> class StampLine {
public:
    /// shift is added to the first stamps; tick is the unit of times in seconds.
    explicit StampLine(double tick, Time shift = {})
        : longestStepBack_(Time(LongestStepBack / tick))
        , shift_(shift)
    {
    }
    /// The time of a stamp; usual where the stamps begin anew, which is known by the step back from before.
    Time TimeOf(Time stamp, Time before, Time usual)
    {
        if (before - (stamp + shift_) > longestStepBack_)
            shift_ = usual - stamp;
        return stamp + shift_;
    }
    /// The time of the first stamp.
    Time TimeOf(Time stamp) const { return stamp + shift_; }
    /// Makes the time of a stamp 0 at the least.
    void StartBy(Time stamp) { shift_ = shift_ + stamp < Time() ? -stamp : shift_; }

private:
    static constexpr double LongestStepBack = 0.5; ///< seconds

    Time longestStepBack_;
    Time shift_;
};

} // namespace media
