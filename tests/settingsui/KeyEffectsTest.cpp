// Every key of the settings has an effect, and every effect a test that proves it.
#include "app/SettingsKeys.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace {

struct KeyEffect {
    Key key;
    const char* test; ///< suite and name of the test that proves what the key does
};

constexpr std::array<KeyEffect, size_t(Key::Count)> KeyEffects { {
    { Key::FadeOuts, "ClosingTest.WithoutWindowFadesAFormIsHardEdgedAndGoesAtOnce" },
    { Key::VidWinOnly, "MainVideosTest.OpensRevealsTheVideoWindowWithoutADialogWhenAsked" },
    { Key::SpecialFolder, "SaveCaptureTest.AutomaticNamesGoToTheChosenFolder" },
    { Key::AutoSave, "SaveCaptureTest.AutomaticNamesGoToTheAutoSaveFolder" },
    { Key::OldFolder, "SaveByDialog.AsksFromTheChosenFolderWhichBecomesTheCurrentOne" },
    { Key::AutoDir, "SaveCaptureTest.AutomaticNamesGoToTheCurrentFolder" },
    { Key::AutoCapture, "TimedRunTest.AutoCaptureWithoutEitherWayOpensAsUsualAndDisablesTheCommandsOfTheVideo" },
    { Key::CaptureTime, "TimedRunTest.TheRunByTimeWinsWhenBothAreOn" },
    { Key::UsersCaptureTime, "TimedRunTest.AnIntervalChangedInTheMiddleCountsFromTheNextRun" },
    { Key::AutoFrame, "FrameRunTest.TheFramesAskedForAreWrittenInTheirOrder" },
    { Key::AutoNumber, "FrameRunTest.AStepChangedInTheMiddleCountsFromTheNextRun" },
    { Key::Ext, "SaveCaptureTest.TheFileIsOfTheFormatInForce" },
    { Key::SetFocusYES, "MainFormsTest.TheMouseBringsACaptureToTheTopOnlyWithSetFocusYES" },
    { Key::NoCap, "VideoWindowTest.SavingWithoutCaptureSwapsTheTwoButtons" },
    { Key::VidSave, "SaveFromVideo.WritesAFreshStillAndNotTheWindowsPicture" },
    { Key::NoWin, "SaveCaptureTest.TheWindowStaysUnlessNoWinIsOn" },
    { Key::LoadVid, "VideoWindowTest.AnMpegFileAskedIntoMemoryEndsWithAnEmptyPlayer" },
    { Key::HighQ, "AAPrintPictureTest.HighQPrintsAt600DotsAndBWWithoutColour" },
    { Key::BW, "ViewerTest.QualityAndColourArePrintedAsTheyAreStoredNow" },
    { Key::PPosition, "ViewerTest.ThePictureIsPrintedWhereTheSettingPutsIt" },
    { Key::NameFull, "VideoWindowTest.TheTitleIsThePathOrTheNameAlone" },
    { Key::OpThumb, "MainFormsTest.ThumbnailsAloneOpenNoCaptureWindow" },
    { Key::OpPic, "MainTest.ThePictureBehindTheWindowsFollowsItsSettings" },
    { Key::PicFolder, "MainTest.ThePictureBehindTheWindowsFollowsItsSettings" },
    { Key::OpenVidList, "VideoWindowTest.TheListIsWantedWhenSeveralVideosWereSelectedAndItMayOpen" },
    { Key::OldDir, "OpeningTest.TheDialogOpensInTheLastFolderAndTheOneItLeavesIsKept" },
    { Key::OldFolder2, "VisualTest.TheNextChoiceBeginsInTheFolderOfTheLast" },
    { Key::ToolTip, "ToolTips.AreBlankWhenSwitchedOff" },
    { Key::PositionX, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::PositionY, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::SFontSize, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::SFontBold, "GetFontsTest.TheSampleShowsBoldThatCapturesDoNotGet" },
    { Key::SFontName, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::SFontItalic, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::sFontColor, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::sFontText, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::UseWatermark, "WatermarkTest.WithoutTheMasterSwitchItDoesNotAndNobodyIsAsked" },
    { Key::WatermarkBATCH, "WatermarkTest.UnlessEveryCaptureGetsTheSameTheWordsAreAskedForFirst" },
    { Key::TextShadowPosX, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::TextShadowPosY, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::WatermarkTextStyle, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::sFontWatermarkTextAngle, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::sFontShadowColor, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::sFontBorderColor, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::UseShadows, "PrintUserTextTest.EverySettingShowsInThePicture" },
    { Key::WordWrap, "PrintUserTextTest.EverySettingShowsInThePicture" },
} };
static_assert(IsOneRowEach(KeyEffects, &KeyEffect::key, size_t(Key::Count)));

QSet<QString> NamesIn(const QString& path)
{
    static const QRegularExpression test(QStringLiteral("^TEST(?:_F|_P)?\\((\\w+),\\s*(\\w+)\\)"),
        QRegularExpression::MultilineOption);
    QFile file(path);
    QSet<QString> names;
    if (file.open(QIODevice::ReadOnly))
        for (auto found = test.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
            const auto match = found.next();
            names << match.captured(1) + u'.' + match.captured(2);
        }
    return names;
}

/// Suite and name of every test of the house.
QSet<QString> AllTests()
{
    QSet<QString> names;
    QDirIterator files(QStringLiteral(SOURCE_DIR "/tests"), { QStringLiteral("*Test.cpp") }, QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext())
        names |= NamesIn(files.next());
    return names;
}

} // namespace

TEST(KeyEffectsTest, TheTestsOfTheHouseAreFound)
{
    EXPECT_TRUE(AllTests().contains(QStringLiteral("KeyEffectsTest.TheTestsOfTheHouseAreFound")));
    EXPECT_FALSE(AllTests().contains(QStringLiteral("KeyEffectsTest.ATestThatThereIsNot")));
}

TEST(KeyEffectsTest, EveryKeysEffectIsProvedByATestThatThereIs)
{
    const QSet<QString> tests = AllTests();
    for (const KeyEffect& row : KeyEffects)
        EXPECT_TRUE(tests.contains(QLatin1String(row.test))) << Row(row.key).name << ": " << row.test;
}
