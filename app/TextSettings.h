#pragma once

#include <QString>
#include <QtGlobal>

/// The user's text and how it is drawn on pictures: variables that mirror the settings keys of their names.
/// Colours are numbers of toolkit/SystemColors.
struct TextSettings {
    float PositionX = 0; ///< pixels
    float PositionY = 0; ///< pixels
    float SFontSize = 0; ///< points
    bool SFontBold = false;
    QString SFontName;
    bool SFontItalic = false;
    qint32 sFontColor = 0;
    QString sFontText;
    qint16 TextShadowPosX = 0;
    qint16 TextShadowPosY = 0;
    qint16 WatermarkTextStyle = 0;
    qint16 sFontWatermarkTextAngle = 0; ///< degrees
    qint32 sFontShadowColor = 0;
    qint32 sFontBorderColor = 0;
    bool UseShadows = false;
    bool WordWrap = false;
};
