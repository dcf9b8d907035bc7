#pragma once

#include <QRect>

#include <algorithm>

/// A place moved so that all of it stands in the area; one larger than the area begins where the area does.
inline QRect MovedInside(const QRect& area, QRect place)
{
    place.moveLeft(std::max(area.left(), std::min(place.left(), area.right() + 1 - place.width())));
    place.moveTop(std::max(area.top(), std::min(place.top(), area.bottom() + 1 - place.height())));
    return place;
}
