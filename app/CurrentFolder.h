#pragma once

#include <QString>

/// The process's current folder as a text of FileName. Throws ControlError when it has been removed.
QString CurrentFolder();
/// Throws ControlError when the folder is missing or may not be entered.
void SetCurrentFolder(const QString& folder);
