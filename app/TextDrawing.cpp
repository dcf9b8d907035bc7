#include "app/TextDrawing.h"

#include "imaging/PictureText.h"

using imaging::TextStyle;

imaging::TextLook LookOf(const TextDrawing& drawing)
{
    const bool isStyle = drawing.TextStyle >= 0 && drawing.TextStyle < int(TextStyle::Count);
    return {
        .font = drawing.Font.Name,
        .points = drawing.Font.size,
        .isBold = drawing.Font.Bold,
        .isItalic = drawing.Font.Italic,
        .color = ColorOf(drawing.DrawFontColor),
        .style = isStyle ? TextStyle(drawing.TextStyle) : TextStyle::Normal,
        .hilite = ColorOf(drawing.TextHiliteColor),
        .shadow = ColorOf(drawing.ShadowColor),
        .shadowDepth = { drawing.ShadowXDepth, drawing.ShadowYDepth },
        .place = { drawing.TextLeft, drawing.TextTop, drawing.TextWidth, drawing.TextHeight },
        .angle = drawing.TextAngle,
        .wraps = drawing.TextWordWrap,
    };
}
