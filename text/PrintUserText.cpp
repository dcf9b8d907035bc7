#include "text/PrintUserText.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Lead.h"

#include <QScopeGuard>

namespace {

constexpr int TenthsPerDegree = 10;
/// Room below the picture's height for text that is turned or wrapped.
constexpr double ExtraHeight = 220;

void TakeFont(Lead& lead, const TextSettings& text)
{
    lead.Font.Name = text.SFontName;
    lead.Font.size = double(text.SFontSize);
    lead.Font.Italic = text.SFontItalic;
    lead.DrawFontColor = ColorNumber(text.sFontColor);
    lead.TextStyle = 0;
    lead.TextHiliteColor = 0;
    lead.TextAngle = 0;
}

void TakePlace(Lead& lead, const TextSettings& text)
{
    lead.TextTop = double(text.PositionY);
    lead.TextLeft = double(text.PositionX);
    lead.TextWidth = lead.DstWidth();
    lead.TextHeight = lead.DstHeight() + ExtraHeight;
}

void TakeEffects(Lead& lead, const TextSettings& text)
{
    lead.TextAngle = text.sFontWatermarkTextAngle * TenthsPerDegree;
    lead.TextHiliteColor = ColorNumber(text.sFontBorderColor);
    lead.TextStyle = text.WatermarkTextStyle;
    lead.ShadowColor = ColorNumber(text.sFontShadowColor);
    lead.ShadowXDepth = text.TextShadowPosX;
    lead.ShadowYDepth = text.TextShadowPosY;
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
    TakeFont(lead, text);
    TakePlace(lead, text);
    if (text.UseShadows)
        TakeEffects(lead, text);
    lead.DrawPersistence = true;
    lead.TextWordWrap = text.WordWrap;
    lead.DrawText(text.sFontText, 0);
    lead.ForceRepaint();
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
