#pragma once

#include "media/Libav.h"
#include <QSize>

/// The quick road to a still for the pictures that nearly all videos hold: 8 bits, colour at half the size
/// both ways, square pixels. It gives to the last bit what the scaler library gives with its best settings,
/// in a fifth of the time.
namespace media::QuickStill {

/// Whether a frame can take this road on this machine.
bool CanTake(const AVFrame& frame, QSize size);

/// Writes the frame in its own size as rows of blue, green, red. matrix: the library's coefficients.
void Write(const AVFrame& frame, const int* matrix, bool isFullRange, uint8_t* rows, int rowBytes);

} // namespace media::QuickStill
