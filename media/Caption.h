#pragma once

#include <QRgb>
#include <QString>
#include <vector>

namespace media {

/// Text of one look within a row of captions.
struct CaptionRun {
    QString text;
    QRgb colour = qRgb(255, 255, 255);
    bool isItalic = false;
    bool isUnderlined = false;

    bool operator==(const CaptionRun&) const = default;
};

/// A row of captions and its place on the grid of captions.
struct CaptionRow {
    int row = 0; ///< from 0, the upper
    int column = 0; ///< of the first letter, from 0
    std::vector<CaptionRun> runs;

    bool operator==(const CaptionRow&) const = default;
};

/// The captions of a moment, from the upper row down; empty when nothing is said.
using Caption = std::vector<CaptionRow>;

/// The grid that captions stand on.
inline constexpr int CaptionRows = 15;
inline constexpr int CaptionColumns = 32;

} // namespace media
