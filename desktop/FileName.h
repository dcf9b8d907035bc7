#pragma once

#include <QByteArray>
#include <QString>

/// File names on the disk are bytes, texts in the program are QStrings. A byte that is no UTF-8 travels
/// through a QString as one lone low surrogate (U+DC80 to U+DCFF), so that every name survives the way there
/// and back.
namespace FileName {

/// The text that stands for a name on the disk.
QString FromBytes(const QByteArray& name);
/// The bytes on the disk that a text of FromBytes, or any ordinary text, names.
QByteArray ToBytes(const QString& name);
/// The name as it can be shown on one line: control characters and undecodable bytes become replacement
/// signs.
QString Shown(const QString& name);

} // namespace FileName
