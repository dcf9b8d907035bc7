#pragma once

#include <QChar>
#include <QString>

/// How a path's text is taken apart.
namespace PathText {

/// What separates the folders of a path on this machine.
QChar Separator();
/// Place of the last separator, -1 without one. A web address is taken apart at "\" only, so that its forward
/// slashes stay part of the name.
qsizetype LastSeparator(const QString& path);

} // namespace PathText
