#pragma once

#include "base/Rows.h"

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRectF>
#include <QString>

#include <array>

namespace imaging {

/// How letters stand out from their picture, by the numbers that settings keep.
enum class TextStyle {
    Normal,
    InsetLight, ///< pressed in: a dark edge above, a lit one below
    InsetHeavy,
    RaisedLight, ///< the same edges the other way round
    RaisedHeavy,
    DropShadow, ///< a copy of the letters at the shadow's offset
    BlockShadow, ///< everything between the letters and that copy: they become blocks
    OutlineBlock, ///< a line around the letters, which become blocks too
    Count
};

struct TextStyleRow {
    TextStyle style;
    const char* name;
};
inline constexpr std::array<TextStyleRow, size_t(TextStyle::Count)> TextStyles { {
    { TextStyle::Normal, "Normal" },
    { TextStyle::InsetLight, "Inset Light" },
    { TextStyle::InsetHeavy, "Inset Heavy" },
    { TextStyle::RaisedLight, "Raised Light" },
    { TextStyle::RaisedHeavy, "Raised Heavy" },
    { TextStyle::DropShadow, "DropShadow" },
    { TextStyle::BlockShadow, "BlockShadow" },
    { TextStyle::OutlineBlock, "Outline Block" },
} };
static_assert(IsOneRowEach(TextStyles, &TextStyleRow::style, TextStyles.size()));

/// Furthest offset of a shadow, in pixels; a longer one is held there.
inline constexpr int MaxShadowDepth = 60;

/// Sizes of letters; others are held there.
inline constexpr double SmallestPoints = 1;
inline constexpr double LargestPoints = 1000;

/// How a text is drawn on a picture. The same look gives the same pixels whatever screen the program runs on.
struct TextLook {
    QString font; ///< family; one like it where it is missing
    double points = 10; ///< at 96 dots per inch
    bool isBold = false;
    bool isItalic = false;
    QColor color;
    TextStyle style = TextStyle::Normal;
    QColor hilite; ///< of outlines and lit edges
    QColor shadow; ///< of shadows and dark edges
    QPoint shadowDepth; ///< pixels to the right and down
    /// Pixels of the picture. The drawn text, turned or not, has its upper left corner there; lines that
    /// begin further down than the rectangle is high are left out.
    QRectF place;
    int angle = 0; ///< tenths of a degree, counter-clockwise
    bool wraps = false; ///< breaks lines at the edge of place or of the picture, whichever comes first
};

/// The picture with the text on it; the same picture when nothing of it would show. The text's own line
/// breaks count always, and each of its paragraphs has the direction of its script. Pictures with a palette
/// become true-colour.
QImage WithText(const QImage& picture, const QString& text, const TextLook& look);

} // namespace imaging
