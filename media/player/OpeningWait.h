#pragma once

#include <QWidget>

#include <functional>

namespace player {

/// Waits for something that may take long, as the opening of an address: windows go on painting and timers
/// ticking, the user can do nothing but cancel. After a short while a box says so. False when the user
/// cancelled, or when owner, the control that waits, is gone.
bool AwaitOpening(QWidget& owner, const std::function<bool()>& hasOpened);

} // namespace player
