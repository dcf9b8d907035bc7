#pragma once

#include <functional>

class QString;
class QWidget;

/// Gives the pages of the options and the control panel, with a name for each picture.
void ShowOptions(const std::function<void(const QString& name, QWidget& window)>& take);
