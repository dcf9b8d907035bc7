#pragma once

#include "desktop/Printers.h"

#include <QByteArray>

/// The sheet of a job as a PDF document: the page at its place, pixel for pixel, grey when it is printed
/// without colour. Throws PrinterError when there is no such sheet.
QByteArray PagePdf(const PrintJob& job);
