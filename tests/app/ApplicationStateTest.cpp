#include "app/ApplicationState.h"

#include "app/Frame.h"
#include "app/SettingValue.h"
#include "tests/testing/Files.h"

#include <QDir>
#include <QLabel>
#include <QMdiSubWindow>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <type_traits>
#include <variant>

namespace {

class ApplicationStateTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    QWidget frame_;
    ApplicationState state_ { folder_.path(), folder_.filePath(QStringLiteral("settings")) };

    void Save(const char* key, const char* value)
    {
        CRegSettings settings(folder_.filePath(QStringLiteral("settings")));
        settings.SetCompany(QStringLiteral("Marlowfern Software"));
        settings.SetAppName(QStringLiteral("TAQ Video Capture Pro v2.1"));
        ASSERT_TRUE(settings.SaveSetting(
            QStringLiteral("Options"), QString::fromLatin1(key), QString::fromLatin1(value)));
    }
};

TEST_F(ApplicationStateTest, AFirstRunHoldsTheDefaultsAndWritesNoKey)
{
    state_.LoadApplicationState(frame_);
    EXPECT_TRUE(state_.FadeOuts);
    EXPECT_TRUE(state_.HighQ);
    EXPECT_TRUE(state_.OpenVidList);
    EXPECT_TRUE(state_.ToolTip);
    EXPECT_FALSE(state_.AutoSave);
    EXPECT_EQ(state_.CurrentExt, QStringLiteral(".bmp"));
    EXPECT_EQ(state_.OldFolder, folder_.filePath(QStringLiteral("AutoSave")));
    EXPECT_EQ(state_.AutoNumber, 10);
    EXPECT_EQ(state_.PPosition, 4);
    EXPECT_EQ(state_.OpThumb, 0);
    EXPECT_EQ(state_.PositionX, 40);
    EXPECT_EQ(state_.SFontSize, 10);
    EXPECT_EQ(state_.sFontText, QStringLiteral("This text is using the Arial font."));
    EXPECT_EQ(state_.TextShadowPosY, 3);
    EXPECT_FALSE(QFileInfo::exists(state_.Settings.FilePath()));
}

TEST_F(ApplicationStateTest, AFirstRunMakesTheFourFolders)
{
    state_.LoadApplicationState(frame_);
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name),
        QStringList({ QStringLiteral("AutoFrame"), QStringLiteral("AutoSave"), QStringLiteral("Help"),
            QStringLiteral("WallPaper") }));
}

TEST_F(ApplicationStateTest, ASecondRunIsSilentAndKeepsWhatIsInTheFolders)
{
    state_.LoadApplicationState(frame_);
    QFile capture(folder_.filePath(QStringLiteral("AutoSave/auto1.bmp")));
    ASSERT_TRUE(capture.open(QIODevice::WriteOnly));
    state_.LoadApplicationState(frame_);
    EXPECT_TRUE(capture.exists());
}

TEST_F(ApplicationStateTest, AFolderThatCannotBeMadeIsPassedOver)
{
    QFile inTheWay(folder_.filePath(QStringLiteral("AutoSave")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    state_.LoadApplicationState(frame_);
    EXPECT_TRUE(QFileInfo(folder_.filePath(QStringLiteral("Help"))).isDir());
}

TEST_F(ApplicationStateTest, TheStartSetsItsVariables)
{
    state_.KidCount = 3;
    state_.MarksSet = true;
    state_.LoadApplicationState(frame_);
    EXPECT_EQ(state_.KidCount, 0);
    EXPECT_FALSE(state_.MarksSet);
    EXPECT_EQ(state_.ListIndex, 1);
    EXPECT_EQ(state_.SettingsSection, QStringLiteral("Options"));
    EXPECT_EQ(state_.HelpPath, folder_.filePath(QStringLiteral("Help/TAQ.HLP")));
    EXPECT_TRUE(state_.ShowPlayerErrors);
}

TEST_F(ApplicationStateTest, StoredValuesAreRead)
{
    Save("FadeOuts", "False");
    Save("PositionX", "12.5");
    Save("sFontColor", "16777215");
    Save("Ext", ".jpg");
    state_.LoadApplicationState(frame_);
    EXPECT_FALSE(state_.FadeOuts);
    EXPECT_EQ(state_.PositionX, 12.5F);
    EXPECT_EQ(state_.sFontColor, 16777215);
    EXPECT_EQ(state_.CurrentExt, QStringLiteral(".jpg"));
}

TEST_F(ApplicationStateTest, TheStartReadsNoneOfTheKeysThatAreReadWhereTheyAreNeeded)
{
    Save("UsersCaptureTime", "25");
    for (const char* key : { "PicFolder", "OldDir", "OldFolder2" })
        Save(key, "/stored");
    state_.LoadApplicationState(frame_);
    EXPECT_EQ(state_.UsersCaptureTime, 0);
    EXPECT_EQ(state_.BackgroundFile, QString());
    EXPECT_EQ(state_.OldDir, QString());
    EXPECT_EQ(state_.OldFolder2, QString());
}

TEST_F(ApplicationStateTest, AValueThatCannotBeConvertedLeavesTheVariableAsItWas)
{
    Save("FadeOuts", "perhaps");
    Save("AutoNumber", "99999");
    Save("PositionY", "@Variant");
    state_.LoadApplicationState(frame_);
    EXPECT_FALSE(state_.FadeOuts);
    EXPECT_EQ(state_.AutoNumber, 0);
    EXPECT_EQ(state_.PositionY, 0);
    EXPECT_TRUE(state_.HighQ);
    state_.AutoNumber = 7;
    state_.Reload(Key::AutoNumber);
    EXPECT_EQ(state_.AutoNumber, 7);
}

TEST_F(ApplicationStateTest, EachReaderHasItsOwnDefault)
{
    state_.LoadApplicationState(frame_);
    state_.Reload(Key::UsersCaptureTime, Reader::AutoRun);
    EXPECT_EQ(state_.UsersCaptureTime, 1000);
    state_.Reload(Key::UsersCaptureTime, Reader::Options);
    EXPECT_EQ(state_.UsersCaptureTime, 10);
    Save("UsersCaptureTime", "25");
    state_.Reload(Key::UsersCaptureTime, Reader::AutoRun);
    EXPECT_EQ(state_.UsersCaptureTime, 25);
}

TEST_F(ApplicationStateTest, WhatIsStoredIsReadAtTheNextStart)
{
    state_.LoadApplicationState(frame_);
    state_.UseWatermark = true;
    state_.SFontSize = 12.5F;
    state_.BackgroundFile = QStringLiteral("/pictures/ground.jpg");
    ASSERT_TRUE(state_.Store(Key::UseWatermark));
    ASSERT_TRUE(state_.Store(Key::SFontSize));
    ASSERT_TRUE(state_.Store(Key::PicFolder));
    ApplicationState next(folder_.path(), folder_.filePath(QStringLiteral("settings")));
    next.LoadApplicationState(frame_);
    next.Reload(Key::PicFolder);
    EXPECT_TRUE(next.UseWatermark);
    EXPECT_EQ(next.SFontSize, 12.5F);
    EXPECT_EQ(next.BackgroundFile, QStringLiteral("/pictures/ground.jpg"));
}

TEST_F(ApplicationStateTest, SeveralKeysAreStoredInTheirOrder)
{
    state_.LoadApplicationState(frame_);
    state_.SFontSize = 12.5F;
    constexpr Key keys[] = { Key::SFontSize, Key::HighQ, Key::Ext };
    ASSERT_TRUE(state_.Store(keys));
    EXPECT_EQ(FileBytes(state_.Settings.FilePath()), "[Options]\nSFontSize=12.5\nHighQ=True\nExt=.bmp\n");
}

TEST_F(ApplicationStateTest, ATextIsStoredInPlaceOfTheVariablesValue)
{
    state_.LoadApplicationState(frame_);
    const KeyText texts[] { { Key::OpThumb, QStringLiteral("2") } };
    ASSERT_TRUE(state_.Store(texts));
    EXPECT_EQ(state_.OpThumb, 0);
    EXPECT_EQ(state_.TextOf(Key::OpThumb), QStringLiteral("2"));
}

TEST_F(ApplicationStateTest, WhatIsKeptIsReadThoughTheStoreRefusesItUntilThatTakesATextOfTheKey)
{
    state_.LoadApplicationState(frame_);
    const QString file = state_.Settings.FilePath();
    ASSERT_TRUE(QDir().mkpath(file)) << "a folder in the file's place";
    constexpr Key keys[] = { Key::Ext, Key::sFontText };
    state_.CurrentExt = QStringLiteral(".jpg");
    state_.sFontText.clear();
    ASSERT_FALSE(state_.Keep(keys));
    state_.CurrentExt.clear();
    state_.Reload(Key::Ext);
    EXPECT_EQ(state_.CurrentExt, QStringLiteral(".jpg"));
    EXPECT_EQ(state_.TextOf(Key::sFontText), QStringLiteral("This text is using the Arial font."));
    ASSERT_TRUE(QDir().rmdir(file));
    ASSERT_TRUE(state_.Store(Key::Ext));
    Save("Ext", ".png");
    EXPECT_EQ(state_.TextOf(Key::Ext), QStringLiteral(".png"));
}

using State = ApplicationState;

struct Stored {
    const char* name;
    std::variant<bool State::*, qint16 State::*, float State::*, qint32 State::*, QString State::*> variable;
};

constexpr Stored StoredKeys[] = {
    { "FadeOuts", &State::FadeOuts },
    { "VidWinOnly", &State::VidWinOnly },
    { "SpecialFolder", &State::SpecialFolder },
    { "AutoSave", &State::AutoSave },
    { "OldFolder", &State::OldFolder },
    { "AutoDir", &State::AutoDir },
    { "AutoCapture", &State::AutoCapture },
    { "CaptureTime", &State::CaptureTime },
    { "UsersCaptureTime", &State::UsersCaptureTime },
    { "AutoFrame", &State::AutoFrame },
    { "AutoNumber", &State::AutoNumber },
    { "Ext", &State::CurrentExt },
    { "SetFocusYES", &State::SetFocusYES },
    { "NoCap", &State::NoCap },
    { "VidSave", &State::VidSave },
    { "NoWin", &State::NoWin },
    { "LoadVid", &State::LoadVid },
    { "HighQ", &State::HighQ },
    { "BW", &State::BW },
    { "PPosition", &State::PPosition },
    { "NameFull", &State::NameFull },
    { "OpThumb", &State::OpThumb },
    { "OpPic", &State::OpPic },
    { "PicFolder", &State::BackgroundFile },
    { "OpenVidList", &State::OpenVidList },
    { "OldDir", &State::OldDir },
    { "OldFolder2", &State::OldFolder2 },
    { "ToolTip", &State::ToolTip },
    { "PositionX", &State::PositionX },
    { "PositionY", &State::PositionY },
    { "SFontSize", &State::SFontSize },
    { "SFontBold", &State::SFontBold },
    { "SFontName", &State::SFontName },
    { "SFontItalic", &State::SFontItalic },
    { "sFontColor", &State::sFontColor },
    { "sFontText", &State::sFontText },
    { "UseWatermark", &State::UseWatermark },
    { "WatermarkBATCH", &State::WatermarkBATCH },
    { "TextShadowPosX", &State::TextShadowPosX },
    { "TextShadowPosY", &State::TextShadowPosY },
    { "WatermarkTextStyle", &State::WatermarkTextStyle },
    { "sFontWatermarkTextAngle", &State::sFontWatermarkTextAngle },
    { "sFontShadowColor", &State::sFontShadowColor },
    { "sFontBorderColor", &State::sFontBorderColor },
    { "UseShadows", &State::UseShadows },
    { "WordWrap", &State::WordWrap },
};

/// The value stored for a key in a round: numbers and texts are all different, and of the Booleans only the
/// one that has its turn is True.
template <typename Value> Value ValueOf(size_t key, size_t round)
{
    if constexpr (std::is_same_v<Value, bool>)
        return key == round;
    else if constexpr (std::is_same_v<Value, QString>)
        return QStringLiteral("text %1").arg(key);
    else
        return Value(100 + key);
}

class EveryKey : public ApplicationStateTest {
protected:
    void StoreAll(size_t round)
    {
        QByteArray lines("[Options]\n");
        for (size_t key = 0; key < std::size(StoredKeys); ++key) {
            const auto text = [&]<typename Value>(
                                  Value State::*) { return SettingValue::Text(ValueOf<Value>(key, round)); };
            lines +=
                StoredKeys[key].name + ('=' + std::visit(text, StoredKeys[key].variable).toUtf8() + '\n');
        }
        QDir().mkpath(QFileInfo(state_.Settings.FilePath()).path());
        ASSERT_TRUE(MakeFile(state_.Settings.FilePath(), lines));
    }
    void ExpectAll(size_t round) const
    {
        for (size_t key = 0; key < std::size(StoredKeys); ++key) {
            const auto expect = [&]<typename Value>(Value State::*variable) {
                EXPECT_EQ(state_.*variable, ValueOf<Value>(key, round)) << StoredKeys[key].name;
            };
            std::visit(expect, StoredKeys[key].variable);
        }
    }
};

TEST_F(EveryKey, IsReadIntoItsOwnVariable)
{
    ASSERT_EQ(std::size(StoredKeys), SettingsKeys.size());
    state_.LoadApplicationState(frame_);
    for (size_t round = 0; round < std::size(StoredKeys); ++round) {
        StoreAll(round);
        state_.LoadApplicationState(frame_);
        for (const Key key : { Key::UsersCaptureTime, Key::PicFolder, Key::OldDir, Key::OldFolder2 })
            state_.Reload(key); // the start does not read these
        ExpectAll(round);
    }
}

TEST(PopupKind, TellsTheOwnersByTheirNumbers)
{
    EXPECT_EQ(int(PopupOwner::Frame), 0);
    EXPECT_EQ(int(PopupOwner::VideoWindow), 1);
    EXPECT_EQ(int(PopupOwner::Viewer), 2);
}

class ToolTips : public ApplicationStateTest {
protected:
    QLabel* LabelIn(QWidget* parent, const char* tag)
    {
        auto* label = new QLabel(parent);
        label->setProperty("Tag", QString::fromLatin1(tag));
        return label;
    }
};

TEST_F(ToolTips, ComeFromTheTagsOfAllControls)
{
    QLabel* label = LabelIn(&frame_, " Print top picture ");
    QLabel* inner = LabelIn(label, " Close ");
    auto* plain = new QLabel(&frame_);
    plain->setToolTip(QStringLiteral("left over"));
    state_.LoadApplicationState(frame_);
    EXPECT_EQ(label->toolTip(), QStringLiteral(" Print top picture "));
    EXPECT_EQ(inner->toolTip(), QStringLiteral(" Close "));
    EXPECT_EQ(plain->toolTip(), QString());
}

TEST_F(ToolTips, AreBlankWhenSwitchedOff)
{
    Save("ToolTip", "False");
    QLabel* label = LabelIn(&frame_, "tip");
    label->setToolTip(QStringLiteral("tip"));
    state_.LoadApplicationState(frame_);
    EXPECT_EQ(label->toolTip(), QString());
    EXPECT_EQ(label->property("Tag").toString(), QStringLiteral("tip"));
}

TEST_F(ToolTips, OfAFormInsideTheFormStay)
{
    auto* child = new QMdiSubWindow(&frame_);
    QLabel* label = LabelIn(child, "tip");
    state_.LoadApplicationState(frame_);
    EXPECT_EQ(label->toolTip(), QString());
    state_.ApplyToolTips(*child);
    EXPECT_EQ(label->toolTip(), QStringLiteral("tip"));
}

} // namespace
