#pragma once

#include "toolkit/Button_XP.h"

#include <QRegion>

#include <optional>

class QPainter;

/// The two lines of a push button's raised or sunken edge: the first runs below and at the right, the second
/// above and at the left.
struct EdgeColors {
    ColorNumber first;
    ColorNumber second;
    bool operator==(const EdgeColors&) const = default;
};
/// The edge of the styles other than Default and Shaped; none when nothing is drawn.
std::optional<EdgeColors> EdgeOf(int style, const ButtonFlags& flags);

/// All that a push button's face depends on.
struct ButtonFace {
    const ButtonProperties& properties;
    ButtonFlags flags;
    QSize size;
    ButtonLayout::Places places;
    QString caption;
    QIcon picture;
    bool isEnabled;
    QRegion shape;
};
/// Paints the whole of it.
void PaintButtonFace(QPainter& painter, const ButtonFace& face);
