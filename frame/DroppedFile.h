#pragma once

#include <QString>

class QMimeData;

/// The first of what is dropped, when it is a file on this machine: its raw bytes. Empty otherwise.
QString FirstFile(const QMimeData& data);
