#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>

/// Handles events until the condition holds; false when that took too long. Unlike QTest::qWaitFor it wakes at
/// every event, so that what goes on in many short steps is not held up.
template <typename Condition> bool Await(Condition condition, std::chrono::milliseconds patience)
{
    using namespace std::chrono_literals;
    QTimer wake; // for a condition that comes true without an event
    wake.start(10ms);
    const QDeadlineTimer deadline(patience);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
}
