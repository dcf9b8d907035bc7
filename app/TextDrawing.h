#pragma once

#include "toolkit/SystemColors.h"

#include <QString>

namespace imaging {
struct TextLook;
}

/// How an imaging control draws text, until it is set anew.
struct TextDrawing {
    struct {
        QString Name = QStringLiteral("Arial");
        double size = 10; ///< points
        bool Bold = false;
        bool Italic = false;
    } Font;
    ColorNumber DrawFontColor = 0;
    int TextStyle = 0; ///< number of imaging::TextStyle; any other is the normal style
    ColorNumber TextHiliteColor = 0;
    ColorNumber ShadowColor = 0;
    int ShadowXDepth = 0; ///< pixels of the picture
    int ShadowYDepth = 0;
    double TextLeft = 0; ///< pixels of the picture
    double TextTop = 0;
    /// As DstWidth and DstHeight tell sizes; what goes beyond them is in pixels of the picture. So the
    /// display's zoom does not show in what is drawn.
    double TextWidth = 0;
    double TextHeight = 0;
    int TextAngle = 0; ///< tenths of a degree
    bool TextWordWrap = false;
    /// Whether drawing changes the picture itself, or what the screen shows until the picture changes.
    bool DrawPersistence = false;
};

/// The look of a text drawn so on a picture that is shown pixel by pixel.
imaging::TextLook LookOf(const TextDrawing& drawing);
