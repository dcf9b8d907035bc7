#pragma once

#include "base/Rows.h"

#include <QString>
#include <array>

/// The settings keys. Their texts, whose mixed spelling is part of the stored data, stand in the table below.
enum class Key {
    FadeOuts,
    VidWinOnly,
    SpecialFolder,
    AutoSave,
    OldFolder,
    AutoDir,
    AutoCapture,
    CaptureTime,
    UsersCaptureTime,
    AutoFrame,
    AutoNumber,
    Ext,
    SetFocusYES,
    NoCap,
    VidSave,
    NoWin,
    LoadVid,
    HighQ,
    BW,
    PPosition,
    NameFull,
    OpThumb,
    OpPic,
    PicFolder,
    OpenVidList,
    OldDir,
    OldFolder2,
    ToolTip,
    PositionX,
    PositionY,
    SFontSize,
    SFontBold,
    SFontName,
    SFontItalic,
    sFontColor,
    sFontText,
    UseWatermark,
    WatermarkBATCH,
    TextShadowPosX,
    TextShadowPosY,
    WatermarkTextStyle,
    sFontWatermarkTextAngle,
    sFontShadowColor,
    sFontBorderColor,
    UseShadows,
    WordWrap,
    Count
};

/// How a text is converted: Boolean "True" or "False", Integer 16 bits, Float single precision, Long 32 bits.
enum class Kind { Boolean, Integer, Float, Long, String };

/// Who reads a key; some have defaults of their own.
enum class Reader { StartUp, Options, AutoRun, Capture, Tools, Visual };

struct OtherDefault {
    Reader reader;
    const char16_t* text;
};

/// What a default is relative to.
enum class Base { None, ApplicationFolder };

struct SettingsKey {
    Key key;
    const char16_t* name;
    Kind kind;
    const char16_t* text; ///< the default
    Base base = Base::None;
    std::array<OtherDefault, 3>
        others = {}; ///< readers whose default is another; ends at the first without a text
};

inline constexpr std::array<SettingsKey, size_t(Key::Count)> SettingsKeys = { {
    { Key::FadeOuts, u"FadeOuts", Kind::Boolean, u"True" },
    { Key::VidWinOnly, u"VidWinOnly", Kind::Boolean, u"False" },
    { Key::SpecialFolder, u"SpecialFolder", Kind::Boolean, u"False" },
    { Key::AutoSave, u"AutoSave", Kind::Boolean, u"False" },
    { Key::OldFolder, u"OldFolder", Kind::String, u"AutoSave", Base::ApplicationFolder },
    { Key::AutoDir, u"AutoDir", Kind::Boolean, u"False" },
    { Key::AutoCapture, u"AutoCapture", Kind::Boolean, u"False" },
    { Key::CaptureTime, u"CaptureTime", Kind::Boolean, u"False" },
    { Key::UsersCaptureTime, u"UsersCaptureTime", Kind::Integer, u"10", Base::None,
        { { { Reader::AutoRun, u"1000" } } } },
    { Key::AutoFrame, u"AutoFrame", Kind::Boolean, u"False" },
    { Key::AutoNumber, u"AutoNumber", Kind::Integer, u"10" },
    { Key::Ext, u"Ext", Kind::String, u".bmp" },
    { Key::SetFocusYES, u"SetFocusYES", Kind::Boolean, u"False" },
    { Key::NoCap, u"NoCap", Kind::Boolean, u"False" },
    { Key::VidSave, u"VidSave", Kind::Boolean, u"False" },
    { Key::NoWin, u"NoWin", Kind::Boolean, u"False" },
    { Key::LoadVid, u"LoadVid", Kind::Boolean, u"False" },
    { Key::HighQ, u"HighQ", Kind::Boolean, u"True" },
    { Key::BW, u"BW", Kind::Boolean, u"False" },
    { Key::PPosition, u"PPosition", Kind::Integer, u"4" },
    { Key::NameFull, u"NameFull", Kind::Boolean, u"False" },
    { Key::OpThumb, u"OpThumb", Kind::Integer, u"0", Base::None,
        { { { Reader::Capture, u"1" }, { Reader::Tools, u"1" }, { Reader::Visual, u"1" } } } },
    { Key::OpPic, u"OpPic", Kind::Integer, u"0" },
    { Key::PicFolder, u"PicFolder", Kind::String, u"WallPaper/wpaper.jpg", Base::ApplicationFolder },
    { Key::OpenVidList, u"OpenVidList", Kind::Boolean, u"True" },
    { Key::OldDir, u"OldDir", Kind::String, u"" },
    { Key::OldFolder2, u"OldFolder2", Kind::String, u"AutoSave", Base::ApplicationFolder },
    { Key::ToolTip, u"ToolTip", Kind::Boolean, u"True" },
    { Key::PositionX, u"PositionX", Kind::Float, u"40" },
    { Key::PositionY, u"PositionY", Kind::Float, u"40" },
    { Key::SFontSize, u"SFontSize", Kind::Float, u"10" },
    { Key::SFontBold, u"SFontBold", Kind::Boolean, u"False" },
    { Key::SFontName, u"SFontName", Kind::String, u"Arial" },
    { Key::SFontItalic, u"SFontItalic", Kind::Boolean, u"False" },
    { Key::sFontColor, u"sFontColor", Kind::Long, u"0" },
    { Key::sFontText, u"sFontText", Kind::String, u"This text is using the Arial font." },
    { Key::UseWatermark, u"UseWatermark", Kind::Boolean, u"False" },
    { Key::WatermarkBATCH, u"WatermarkBATCH", Kind::Boolean, u"False" },
    { Key::TextShadowPosX, u"TextShadowPosX", Kind::Integer, u"2" },
    { Key::TextShadowPosY, u"TextShadowPosY", Kind::Integer, u"3" },
    { Key::WatermarkTextStyle, u"WatermarkTextStyle", Kind::Integer, u"0" },
    { Key::sFontWatermarkTextAngle, u"sFontWatermarkTextAngle", Kind::Integer, u"0" },
    { Key::sFontShadowColor, u"sFontShadowColor", Kind::Long, u"0" },
    { Key::sFontBorderColor, u"sFontBorderColor", Kind::Long, u"0" },
    { Key::UseShadows, u"UseShadows", Kind::Boolean, u"False" },
    { Key::WordWrap, u"WordWrap", Kind::Boolean, u"False" },
} };

static_assert(IsOneRowEach(SettingsKeys, &SettingsKey::key, size_t(Key::Count)));

constexpr const SettingsKey& Row(Key key)
{
    return SettingsKeys[size_t(key)];
}

/// The default that reader gives for key; folders and files beside the program as full paths.
QString DefaultText(Key key, Reader reader, const QString& applicationFolder);
