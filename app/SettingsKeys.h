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
    const char* text;
};

/// What a default is relative to.
enum class Base { None, ApplicationFolder };

struct SettingsKey {
    Key key;
    const char* name;
    Kind kind;
    const char* text; ///< the default
    Base base = Base::None;
    std::array<OtherDefault, 3>
        others = {}; ///< readers whose default is another; ends at the first without a text
};

inline constexpr std::array<SettingsKey, size_t(Key::Count)> SettingsKeys = { {
    { Key::FadeOuts, "FadeOuts", Kind::Boolean, "True" },
    { Key::VidWinOnly, "VidWinOnly", Kind::Boolean, "False" },
    { Key::SpecialFolder, "SpecialFolder", Kind::Boolean, "False" },
    { Key::AutoSave, "AutoSave", Kind::Boolean, "False" },
    { Key::OldFolder, "OldFolder", Kind::String, "AutoSave", Base::ApplicationFolder },
    { Key::AutoDir, "AutoDir", Kind::Boolean, "False" },
    { Key::AutoCapture, "AutoCapture", Kind::Boolean, "False" },
    { Key::CaptureTime, "CaptureTime", Kind::Boolean, "False" },
    { Key::UsersCaptureTime, "UsersCaptureTime", Kind::Integer, "10", Base::None,
        { { { Reader::AutoRun, "1000" } } } },
    { Key::AutoFrame, "AutoFrame", Kind::Boolean, "False" },
    { Key::AutoNumber, "AutoNumber", Kind::Integer, "10" },
    { Key::Ext, "Ext", Kind::String, ".bmp" },
    { Key::SetFocusYES, "SetFocusYES", Kind::Boolean, "False" },
    { Key::NoCap, "NoCap", Kind::Boolean, "False" },
    { Key::VidSave, "VidSave", Kind::Boolean, "False" },
    { Key::NoWin, "NoWin", Kind::Boolean, "False" },
    { Key::LoadVid, "LoadVid", Kind::Boolean, "False" },
    { Key::HighQ, "HighQ", Kind::Boolean, "True" },
    { Key::BW, "BW", Kind::Boolean, "False" },
    { Key::PPosition, "PPosition", Kind::Integer, "4" },
    { Key::NameFull, "NameFull", Kind::Boolean, "False" },
    { Key::OpThumb, "OpThumb", Kind::Integer, "0", Base::None,
        { { { Reader::Capture, "1" }, { Reader::Tools, "1" }, { Reader::Visual, "1" } } } },
    { Key::OpPic, "OpPic", Kind::Integer, "0" },
    { Key::PicFolder, "PicFolder", Kind::String, "WallPaper/wpaper.jpg", Base::ApplicationFolder },
    { Key::OpenVidList, "OpenVidList", Kind::Boolean, "True" },
    { Key::OldDir, "OldDir", Kind::String, "" },
    { Key::OldFolder2, "OldFolder2", Kind::String, "AutoSave", Base::ApplicationFolder },
    { Key::ToolTip, "ToolTip", Kind::Boolean, "True" },
    { Key::PositionX, "PositionX", Kind::Float, "40" },
    { Key::PositionY, "PositionY", Kind::Float, "40" },
    { Key::SFontSize, "SFontSize", Kind::Float, "10" },
    { Key::SFontBold, "SFontBold", Kind::Boolean, "False" },
    { Key::SFontName, "SFontName", Kind::String, "Arial" },
    { Key::SFontItalic, "SFontItalic", Kind::Boolean, "False" },
    { Key::sFontColor, "sFontColor", Kind::Long, "0" },
    { Key::sFontText, "sFontText", Kind::String, "This text is using the Arial font." },
    { Key::UseWatermark, "UseWatermark", Kind::Boolean, "False" },
    { Key::WatermarkBATCH, "WatermarkBATCH", Kind::Boolean, "False" },
    { Key::TextShadowPosX, "TextShadowPosX", Kind::Integer, "2" },
    { Key::TextShadowPosY, "TextShadowPosY", Kind::Integer, "3" },
    { Key::WatermarkTextStyle, "WatermarkTextStyle", Kind::Integer, "0" },
    { Key::sFontWatermarkTextAngle, "sFontWatermarkTextAngle", Kind::Integer, "0" },
    { Key::sFontShadowColor, "sFontShadowColor", Kind::Long, "0" },
    { Key::sFontBorderColor, "sFontBorderColor", Kind::Long, "0" },
    { Key::UseShadows, "UseShadows", Kind::Boolean, "False" },
    { Key::WordWrap, "WordWrap", Kind::Boolean, "False" },
} };

static_assert(IsOneRowEach(SettingsKeys, &SettingsKey::key, size_t(Key::Count)));

constexpr const SettingsKey& Row(Key key)
{
    return SettingsKeys[size_t(key)];
}

/// The default that reader gives for key; folders and files beside the program as full paths.
QString DefaultText(Key key, Reader reader, const QString& applicationFolder);
