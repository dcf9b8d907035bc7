#pragma once

#include <QString>
#include <functional>

class QWidget;

/// The windows of picture editing.
void ShowEditing(const std::function<void(const QString& name, QWidget& window)>& take);
