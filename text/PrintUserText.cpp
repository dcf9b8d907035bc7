#include "text/PrintUserText.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "imaging/PictureText.h"

#include <QScopeGuard>

namespace {

constexpr int TenthsPerDegree = 10;
/// Room below the picture's height for text that is turned or wrapped.
constexpr double ExtraHeight = 220;

void TakeFont(TextDrawing& drawing, const TextSettings& text)
{
    drawing.Font.Name = text.SFontName;
    drawing.Font.size = double(text.SFontSize);
    drawing.Font.Italic = text.SFontItalic;
    drawing.DrawFontColor = ColorNumber(text.sFontColor);
    drawing.TextStyle = 0;
    drawing.TextHiliteColor = 0;
    drawing.TextAngle = 0;
}

void TakePlace(TextDrawing& drawing, const TextSettings& text, QSizeF shown)
{
    drawing.TextTop = double(text.PositionY);
    drawing.TextLeft = double(text.PositionX);
    drawing.TextWidth = shown.width();
    drawing.TextHeight = shown.height() + ExtraHeight;
}

void TakeEffects(TextDrawing& drawing, const TextSettings& text)
{
    drawing.TextAngle = text.sFontWatermarkTextAngle * TenthsPerDegree;
    drawing.TextHiliteColor = ColorNumber(text.sFontBorderColor);
    drawing.TextStyle = text.WatermarkTextStyle;
    drawing.ShadowColor = ColorNumber(text.sFontShadowColor);
    drawing.ShadowXDepth = text.TextShadowPosX;
    drawing.ShadowYDepth = text.TextShadowPosY;
}

/// shown: DstWidth and DstHeight of the picture.
void Take(TextDrawing& drawing, const TextSettings& text, QSizeF shown)
{
    TakeFont(drawing, text);
    TakePlace(drawing, text, shown);
    if (text.UseShadows)
        TakeEffects(drawing, text);
    drawing.DrawPersistence = true;
    drawing.TextWordWrap = text.WordWrap;
}

} // namespace

void PrintUserText(Lead& lead, const TextSettings& text)
{
    const auto end = qScopeGuard([&lead] {
        lead.SetAutoRepaint(true);
        lead.DrawPersistence = false;
        lead.SetAutoScroll(true);
    });
    lead.SetAutoRepaint(true);
    lead.SetAutoScroll(false);
    lead.SetBackErase(false);
    Take(lead, text, { lead.DstWidth(), lead.DstHeight() });
    lead.DrawText(text.sFontText, 0);
    lead.ForceRepaint();
}

QImage WithUserText(const QImage& picture, const TextSettings& text)
{
    TextDrawing drawing;
    Take(drawing, text, picture.size());
    return imaging::WithText(picture, text.sFontText, LookOf(drawing));
}

void PrintUserText(Frame& frame)
{
    if (!frame.State().UseWatermark)
        return;
    Lead* capture = frame.ActiveCapture();
    if (!capture)
        throw ControlError(QStringLiteral("The active window holds no capture."));
    PrintUserText(*capture, frame.State());
}
