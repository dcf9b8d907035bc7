#include "settingsui/PreviewSize.h"

#include <algorithm>

QSize PreviewSize(QSize page, QSize room)
{
    const auto parts = [](int side, int of) { return (side + of - 1) / of; };
    const int divisor = std::max({ 1, parts(page.width(), room.width()), parts(page.height(), room.height()) });
    return { page.width() / divisor, page.height() / divisor };
}
