#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

namespace player {

/// Lets reports of progress through at most ten times a second; the last one is never lost, only late.
class ProgressMeter {
public:
    explicit ProgressMeter(std::function<void()> report);

    /// Something moved: reports now, or when it is time again.
    void Offer();
    /// Reports at once.
    void Force();
    /// Forgets what was offered and not yet reported.
    void Cancel() { timer_.stop(); }

    static constexpr int IntervalMs = 100;

private:
    std::function<void()> report_;
    QElapsedTimer sinceReport_;
    QTimer timer_;
};

} // namespace player
