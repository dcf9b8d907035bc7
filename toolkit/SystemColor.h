#pragma once

#include <QColor>

/// The colour of a number as forms store it: 0x00BBGGRR, or with the high bit set the number of a system
/// colour, looked up in the palette now in force. An unknown system colour is black.
QRgb ResolvedColor(quint32 stored);
