#pragma once

#include <functional>

class QString;
class QWidget;

/// Gives every window of the program as a user sees it, with a name for its picture.
void ShowWindows(const std::function<void(const QString& name, QWidget& window)>& take);
