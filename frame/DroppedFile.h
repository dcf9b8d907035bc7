#pragma once

#include <QString>

class QMimeData;

/// The first local file of what is dragged or dropped, by its raw bytes; empty when there is none.
QString FirstFile(const QMimeData& data);
