#include "app/SettingsKeys.h"

#include <gtest/gtest.h>

namespace {

const QString Folder = QStringLiteral("/program");

QString Default(Key key, Reader reader = Reader::StartUp)
{
    return DefaultText(key, reader, Folder);
}

TEST(SettingsKeys, EveryKeyHasItsKindAndDefault)
{
    const struct {
        const char* name;
        Kind kind;
        const char* text;
    } expected[] = {
        { "FadeOuts", Kind::Boolean, "True" },
        { "VidWinOnly", Kind::Boolean, "False" },
        { "SpecialFolder", Kind::Boolean, "False" },
        { "AutoSave", Kind::Boolean, "False" },
        { "OldFolder", Kind::String, "/program/AutoSave" },
        { "AutoDir", Kind::Boolean, "False" },
        { "AutoCapture", Kind::Boolean, "False" },
        { "CaptureTime", Kind::Boolean, "False" },
        { "UsersCaptureTime", Kind::Integer, "10" },
        { "AutoFrame", Kind::Boolean, "False" },
        { "AutoNumber", Kind::Integer, "10" },
        { "Ext", Kind::String, ".bmp" },
        { "SetFocusYES", Kind::Boolean, "False" },
        { "NoCap", Kind::Boolean, "False" },
        { "VidSave", Kind::Boolean, "False" },
        { "NoWin", Kind::Boolean, "False" },
        { "LoadVid", Kind::Boolean, "False" },
        { "HighQ", Kind::Boolean, "True" },
        { "BW", Kind::Boolean, "False" },
        { "PPosition", Kind::Integer, "4" },
        { "NameFull", Kind::Boolean, "False" },
        { "OpThumb", Kind::Integer, "0" },
        { "OpPic", Kind::Integer, "0" },
        { "PicFolder", Kind::String, "/program/WallPaper/wpaper.jpg" },
        { "OpenVidList", Kind::Boolean, "True" },
        { "OldDir", Kind::String, "" },
        { "OldFolder2", Kind::String, "/program/AutoSave" },
        { "ToolTip", Kind::Boolean, "True" },
        { "PositionX", Kind::Float, "40" },
        { "PositionY", Kind::Float, "40" },
        { "SFontSize", Kind::Float, "10" },
        { "SFontBold", Kind::Boolean, "False" },
        { "SFontName", Kind::String, "Arial" },
        { "SFontItalic", Kind::Boolean, "False" },
        { "sFontColor", Kind::Long, "0" },
        { "sFontText", Kind::String, "This text is using the Arial font." },
        { "UseWatermark", Kind::Boolean, "False" },
        { "WatermarkBATCH", Kind::Boolean, "False" },
        { "TextShadowPosX", Kind::Integer, "2" },
        { "TextShadowPosY", Kind::Integer, "3" },
        { "WatermarkTextStyle", Kind::Integer, "0" },
        { "sFontWatermarkTextAngle", Kind::Integer, "0" },
        { "sFontShadowColor", Kind::Long, "0" },
        { "sFontBorderColor", Kind::Long, "0" },
        { "UseShadows", Kind::Boolean, "False" },
        { "WordWrap", Kind::Boolean, "False" },
    };
    ASSERT_EQ(std::size(expected), SettingsKeys.size());
    for (size_t i = 0; i < SettingsKeys.size(); ++i) {
        EXPECT_STREQ(SettingsKeys[i].name, expected[i].name);
        EXPECT_EQ(SettingsKeys[i].kind, expected[i].kind) << expected[i].name;
        EXPECT_EQ(Default(Key(i)), QLatin1String(expected[i].text)) << expected[i].name;
    }
}

TEST(SettingsKeys, TheTwoDefaultsOfTheCaptureTimeDiffer)
{
    EXPECT_EQ(Default(Key::UsersCaptureTime, Reader::Options), QStringLiteral("10"));
    EXPECT_EQ(Default(Key::UsersCaptureTime, Reader::AutoRun), QStringLiteral("1000"));
}

TEST(SettingsKeys, ThumbnailsDefaultToOneForThoseThatOpenPictures)
{
    for (const Reader reader : { Reader::Capture, Reader::Tools, Reader::Visual })
        EXPECT_EQ(Default(Key::OpThumb, reader), QStringLiteral("1"));
    for (const Reader reader : { Reader::StartUp, Reader::Options })
        EXPECT_EQ(Default(Key::OpThumb, reader), QStringLiteral("0"));
}

} // namespace
