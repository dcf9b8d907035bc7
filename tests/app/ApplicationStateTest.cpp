#include "app/ApplicationState.h"

#include <QDir>
#include <QLabel>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <gtest/gtest.h>

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
