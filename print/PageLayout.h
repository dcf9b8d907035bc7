#pragma once

#include "desktop/Printers.h"
#include "toolkit/Twips.h"

#include <QMargins>
#include <QPoint>
#include <QSize>

/// Where a picture stands on a page, and how large the page is. Sizes are in pixels of the screen, 96 to the
/// inch, unless they say otherwise.
namespace PageLayout {

/// What a preview is smaller than the page that is printed.
inline constexpr Twips PreviewNarrower = 420_twips;
inline constexpr Twips PreviewLower = 780_twips;

/// The paper of a setting PaperSize, 0 to 6; 0 is the user's own size, in millimetres. Any other is A4.
Paper PaperOf(int paperSize, QSize custom);

/// The paper in millimetres less the margins, which are in printer pixels. Can be empty.
QSize PageSize(QSize paper, QMargins margins);

/// The same page as a preview shows it.
QSize PreviewSize(QSize page);

/// The top left corner of a picture on the page: align is 0 to 8, from the top left row by row to the bottom
/// right; any other is the top left corner. Negative where the picture is larger than the page.
QPoint PlaceOf(int align, QSize page, QSize picture);

} // namespace PageLayout
