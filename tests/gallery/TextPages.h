#pragma once

#include <functional>

class QString;
class QWidget;

/// Gives the text styles and settings on pictures and the dialogs that set them, with a name for each
/// picture.
void ShowTexts(const std::function<void(const QString& name, QWidget& window)>& take);
