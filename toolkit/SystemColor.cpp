#include "toolkit/SystemColor.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

constexpr quint32 SystemColor = 0x80000000;

struct Row {
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

/// By number.
constexpr Row Rows[] {
    { QPalette::Button }, // scroll bar
    { QPalette::Window }, // desktop
    { QPalette::Highlight }, // caption
    { QPalette::Window, QPalette::Inactive }, // caption of an inactive window
    { QPalette::Window }, // menu
    { QPalette::Base }, // inside of a window
    { QPalette::Shadow }, // window frame
    { QPalette::WindowText }, // menu text
    { QPalette::Text }, // window text
    { QPalette::HighlightedText }, // caption text
    { QPalette::Mid }, // border
    { QPalette::Mid, QPalette::Inactive }, // border of an inactive window
    { QPalette::Dark }, // ground behind child windows
    { QPalette::Highlight },
    { QPalette::HighlightedText },
    { QPalette::Button },
    { QPalette::Dark }, // shadow of a button
    { QPalette::Text, QPalette::Disabled },
    { QPalette::ButtonText },
    { QPalette::WindowText, QPalette::Inactive }, // caption text of an inactive window
    { QPalette::Light }, // light edge of a button
    { QPalette::Shadow }, // dark edge of a button
    { QPalette::Midlight }, // second light edge
    { QPalette::ToolTipText },
    { QPalette::ToolTipBase },
};

} // namespace

QRgb ResolvedColor(quint32 stored)
{
    if (!(stored & SystemColor))
        return qRgb(int(stored & 0xff), int(stored >> 8 & 0xff), int(stored >> 16 & 0xff));
    const quint32 number = stored & ~SystemColor;
    if (number >= std::size(Rows))
        return qRgb(0, 0, 0);
    return QGuiApplication::palette().color(Rows[number].group, Rows[number].role).rgb();
}
