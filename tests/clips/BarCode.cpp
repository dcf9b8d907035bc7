#include "tests/clips/BarCode.h"

#include <QPainter>
#include <cstdlib>
#include <ostream>

namespace {

constexpr int numberBits = 12;
constexpr int columns = 16;
constexpr int stripsInHeight = 15;
constexpr int clearDifference = 64;

QRect Cell(int column, int strip, QSize size)
{
    const int left = column * size.width() / columns;
    const int top = strip * size.height() / stripsInHeight;
    const int right = (column + 1) * size.width() / columns;
    const int bottom = (strip + 1) * size.height() / stripsInHeight;
    return QRect(left, top, right - left, bottom - top);
}

int Brightness(const QImage& picture, int column, int strip)
{
    return qGray(picture.pixel(Cell(column, strip, picture.size()).center()));
}

} // namespace

std::optional<BarCode> ReadBarCode(const QImage& picture)
{
    if (picture.width() < 3 * columns || picture.height() < 2 * stripsInHeight)
        return std::nullopt;
    int bits = 0;
    for (int column = 0; column < columns; ++column) {
        const int difference = Brightness(picture, column, 0) - Brightness(picture, column, 1);
        if (std::abs(difference) < clearDifference)
            return std::nullopt;
        if (difference > 0)
            bits |= 1 << column;
    }
    return BarCode { bits % (1 << numberBits), bits >> numberBits };
}

int NumberIn(const QImage& picture)
{
    const auto code = ReadBarCode(picture);
    return code ? code->Number : -1;
}

QImage PictureWith(const BarCode& code, QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    QPainter painter(&picture);
    const int bits = code.Number | code.Tag << numberBits;
    for (int column = 0; column < columns; ++column) {
        const bool isSet = bits >> column & 1;
        painter.fillRect(Cell(column, 0, size), isSet ? Qt::white : Qt::black);
        painter.fillRect(Cell(column, 1, size), isSet ? Qt::black : Qt::white);
    }
    return picture;
}

void PrintTo(const BarCode& code, std::ostream* out)
{
    *out << "number " << code.Number << " of tag " << code.Tag;
}
