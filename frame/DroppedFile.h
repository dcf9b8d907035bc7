#pragma once

#include <QString>

class QMimeData;

/// The first of what is dragged or dropped, by its raw bytes; empty when that is no file of this machine.
QString FirstFile(const QMimeData& data);
