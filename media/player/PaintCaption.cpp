#include "media/player/PaintCaption.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>

namespace player {

namespace {

constexpr double SafePart = 0.8; // of the picture's width and height carries captions
constexpr double GridShape = 4.0 / 3;
constexpr double LetterPart = 0.88; // of a cell's height
constexpr QColor Box(0, 0, 0, 200);

/// The cells of a picture's captions.
class Grid {
public:
    explicit Grid(const QRectF& place)
        : height_(place.height() * SafePart / media::CaptionRows)
        , width_(std::min(place.width(), place.height() * GridShape) * SafePart / media::CaptionColumns)
        , origin_(place.center() - QPointF(width_ * media::CaptionColumns, height_ * media::CaptionRows) / 2)
    {
    }
    QRectF Cells(int row, int column, qsizetype letters) const
    {
        return { origin_ + QPointF(column * width_, row * height_),
            QSizeF(double(letters) * width_, height_) };
    }
    double Padding() const { return width_ / 2; }
    /// Of one width for all letters, that of a cell.
    QFont Font() const
    {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPixelSize(std::max(1, int(height_ * LetterPart)));
        const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
        if (advance > width_)
            font.setStretch(std::max(1, int(100 * width_ / advance)));
        font.setLetterSpacing(
            QFont::AbsoluteSpacing, width_ - QFontMetricsF(font).horizontalAdvance(QLatin1Char('M')));
        return font;
    }

private:
    double height_;
    double width_;
    QPointF origin_;
};

qsizetype LettersIn(const media::CaptionRow& row)
{
    qsizetype letters = 0;
    for (const media::CaptionRun& run : row.runs)
        letters += run.text.size();
    return letters;
}

void PaintRow(QPainter& painter, const Grid& grid, const media::CaptionRow& row, const QFont& plain)
{
    const double padding = grid.Padding();
    painter.fillRect(grid.Cells(row.row, row.column, LettersIn(row)).adjusted(-padding, 0, padding, 0), Box);
    int column = row.column;
    for (const media::CaptionRun& run : row.runs) {
        QFont font = plain;
        font.setItalic(run.isItalic);
        font.setUnderline(run.isUnderlined);
        painter.setFont(font);
        painter.setPen(QColor::fromRgb(run.colour));
        painter.drawText(grid.Cells(row.row, column, run.text.size()),
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip | Qt::TextSingleLine, run.text);
        column += int(run.text.size());
    }
}

} // namespace

void PaintCaption(QPainter& painter, const media::Caption& caption, const QRectF& place)
{
    if (caption.empty() || place.isEmpty())
        return;
    const Grid grid(place);
    const QFont font = grid.Font();
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    for (const media::CaptionRow& row : caption)
        PaintRow(painter, grid, row, font);
    painter.restore();
}

} // namespace player
