#pragma once

#include "media/player/PlayPlan.h"

#include <vector>

/// A video with pictures at given times, whose last one ends at end.
class FakeTimeline : public player::Timeline {
public:
    FakeTimeline(std::vector<double> times, double end)
        : times_(std::move(times))
        , end_(end)
    {
    }
    /// count pictures of a constant rate.
    static FakeTimeline Even(int count, double step)
    {
        std::vector<double> times;
        for (int i = 0; i < count; ++i)
            times.push_back(i * step);
        return { times, count * step };
    }
    bool Reaches(int number) override { return number < int(times_.size()); }
    double TimeOf(int number) override { return times_.at(std::size_t(number)); }
    double EndOf(int number) override { return Reaches(number + 1) ? TimeOf(number + 1) : end_; }
    std::optional<int> Last() override { return int(times_.size()) - 1; }

private:
    std::vector<double> times_;
    double end_;
};
