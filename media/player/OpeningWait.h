#pragma once

#include <functional>

class QWidget;

namespace player {

/// Waits under the user's eyes until something that may take long, as the opening of an address, has come to
/// its end. False when the user cancelled, or when owner, the control that waits, is gone.
using OpeningWait = std::function<bool(QWidget& owner, const std::function<bool()>& hasOpened)>;

/// Windows go on painting and timers ticking, the user can do nothing but cancel: after a short while a box
/// says so.
bool AwaitWithBox(QWidget& owner, const std::function<bool()>& hasOpened);

} // namespace player
