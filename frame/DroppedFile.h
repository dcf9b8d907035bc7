#pragma once

#include <QString>

class QMimeData;
class QUrl;

/// The file that an address names, by its raw bytes; empty when that is no file of this machine.
QString FileOf(const QUrl& address);

/// The first of what is dragged or dropped, as FileOf gives it.
QString FirstFile(const QMimeData& data);
