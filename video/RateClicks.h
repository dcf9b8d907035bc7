#pragma once

#include <optional>

/// The two click counters behind the rate buttons. A series of clicks on increase asks for 1, 2, 3, 4, 5 and
/// then for 1 again; on decrease for 1, 0.9 … 0.2 and then for 1 again.
class RateClicks {
public:
    /// The rate that this click asks for; none where the click goes back to 1.0, which every player can do.
    std::optional<double> Increase(double rate)
    {
        return Count(increases_) ? std::optional(rate + 1.0) : std::nullopt;
    }
    std::optional<double> Decrease(double rate)
    {
        return Count(decreases_) ? std::optional(rate - 0.1) : std::nullopt;
    }

private:
    /// Both counters fold back before either click is counted. True from the second click of a series on.
    bool Count(short& counter)
    {
        if (increases_ > 4)
            increases_ = 0;
        if (decreases_ > 8)
            decreases_ = 0;
        return counter++ != 0;
    }

    short increases_ = 0;
    short decreases_ = 0;
};
