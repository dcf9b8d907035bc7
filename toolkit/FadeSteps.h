#pragma once

#include <QtGlobal>

/// How a fade loses opacity: at each tick it takes a step sized by the time left, so that a late tick takes a
/// bigger one. The last opacity is not forced to 0; the fade is simply over.
class FadeSteps {
public:
    static constexpr int Interval = 20; ///< milliseconds from tick to tick

    explicit FadeSteps(int duration = 0)
        : duration_(duration)
    {
    }
    /// 255 to 1.
    int Alpha() const { return alpha_; }
    /// Takes a step, elapsed milliseconds after the start. False when the fade is over.
    bool Tick(qint64 elapsed);

private:
    int duration_;
    int alpha_ = 255;
};
