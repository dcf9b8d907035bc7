#pragma once

#include <functional>
#include <optional>

namespace player {

/// Which picture to decode next while the user steps frame by frame and the engine has nothing to do.
class StepAhead {
public:
    /// A step, or a jump when the neighbours are of no interest, led to number.
    void Stepped(int number);
    void Jumped() { *this = StepAhead(); }
    /// The picture wanted next of count; none when all that is likely to be asked is cached. reserve:
    /// pictures that may be had ready at most.
    std::optional<int> Wanted(int count, int reserve, const std::function<bool(int)>& isCached) const;

private:
    std::optional<int> at_;
    int direction_ = 0;
    int stepsInARow_ = 0;
};

} // namespace player
