#pragma once

#include <QSize>

/// The size at which a page stands in the room of a preview: its sides divided by the smallest whole number
/// for which both fit, without remainders, so that every preview keeps the page's proportions.
QSize PreviewSize(QSize page, QSize room);
