// Every key of the settings can be changed by a user and has an effect, each proved by a test.
#include "app/SettingsKeys.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <array>

namespace {

/// Tests by suite and name.
struct KeyEffect {
    Key key;
    std::array<const char*, 3> effects; ///< prove what the key does; ends at the first null
    const char* writer; ///< proves that a user can change it
};

constexpr auto Drawn = "PrintUserTextTest.EverySettingShowsInThePicture";
constexpr auto Boxes = "OptionsSave.EveryBoxGoesToItsKeyAndItsCopy";
constexpr auto Fields = "OptionsSave.TextsAndNumbersGoToTheirKeysAndCopies";
constexpr auto Groups = "OptionsPages.GroupsButThatOfTheBackgroundKeepTheirChoiceAtOnce";
constexpr auto Ways = "OptionsSave.TheFirstWayOfAutomaticCaptureIsByTimeAndTheSecondByFrames";
constexpr auto Fonts = "OptionsFont.AChosenFontIsShownAndKeptAtOnce";
constexpr auto Effects = "GetFontsTest.SaveStoresEverythingInMemoryAndInTheStore";

constexpr std::array<KeyEffect, size_t(Key::Count)> KeyEffects { {
    { Key::FadeOuts, { "ClosingTest.WithoutWindowFadesAFormIsHardEdgedAndGoesAtOnce" }, Boxes },
    { Key::VidWinOnly, { "MainVideosTest.OpensRevealsTheVideoWindowWithoutADialogWhenAsked" }, Boxes },
    { Key::SpecialFolder, { "SaveCaptureTest.AutomaticNamesGoToTheChosenFolder" }, Boxes },
    { Key::AutoSave, { "SaveCaptureTest.AutomaticNamesGoToTheAutoSaveFolder" }, Boxes },
    { Key::OldFolder, { "SaveByDialog.AsksFromTheChosenFolderWhichBecomesTheCurrentOne" }, Fields },
    { Key::AutoDir, { "SaveCaptureTest.AutomaticNamesGoToTheCurrentFolder" }, Groups },
    { Key::AutoCapture,
        { "TimedRunTest.AutoCaptureWithoutEitherWayOpensAsUsualAndDisablesTheCommandsOfTheVideo" }, Boxes },
    { Key::CaptureTime, { "TimedRunTest.TheRunByTimeWinsWhenBothAreOn" }, Ways },
    { Key::UsersCaptureTime, { "TimedRunTest.AnIntervalChangedInTheMiddleCountsFromTheNextRun" }, Fields },
    { Key::AutoFrame, { "FrameRunTest.TheFramesAskedForAreWrittenInTheirOrder" }, Ways },
    { Key::AutoNumber, { "FrameRunTest.AStepChangedInTheMiddleCountsFromTheNextRun" }, Fields },
    { Key::Ext, { "SaveCaptureTest.TheFileIsOfTheFormatInForce" }, Groups },
    { Key::SetFocusYES, { "MainFormsTest.TheMouseBringsACaptureToTheTopOnlyWithSetFocusYES" }, Boxes },
    { Key::NoCap, { "VideoWindowTest.SavingWithoutCaptureSwapsTheTwoButtons" }, Boxes },
    { Key::VidSave, { "SaveFromVideo.WritesAFreshStillAndNotTheWindowsPicture" }, Boxes },
    { Key::NoWin, { "SaveCaptureTest.TheWindowStaysUnlessNoWinIsOn" }, Boxes },
    { Key::LoadVid, { "VideoWindowTest.AnMpegFileAskedIntoMemoryEndsWithAnEmptyPlayer" }, Boxes },
    { Key::HighQ, { "ViewerTest.QualityAndColourArePrintedAsTheyAreStoredNow" }, Boxes },
    { Key::BW, { "ViewerTest.QualityAndColourArePrintedAsTheyAreStoredNow" }, Boxes },
    { Key::PPosition, { "ViewerTest.ThePictureIsPrintedWhereTheSettingPutsIt" }, Fields },
    { Key::NameFull, { "VideoWindowTest.TheTitleIsThePathOrTheNameAlone" }, Boxes },
    { Key::OpThumb,
        { "MainFormsTest.ThumbnailsAloneOpenNoCaptureWindow",
            "MainFormsTest.ACaptureWithThumbnailsKeepsItsWindowInFront",
            "NewCaptureTest.With2ItGoesToAWindowAlone" },
        Groups },
    { Key::OpPic, { "MainTest.ThePictureBehindTheWindowsFollowsItsSettings" },
        "OptionsPages.APlacementIsKeptOnlyByASaveWhileItsPageShows" },
    { Key::PicFolder, { "MainTest.ThePictureBehindTheWindowsFollowsItsSettings" },
        "OptionsPages.ABackgroundIsBrowsedForKeptAtOnceAndTold" },
    { Key::OpenVidList, { "VideoWindowTest.TheListIsWantedWhenSeveralVideosWereSelectedAndItMayOpen" },
        Boxes },
    { Key::OldDir, { "OpeningTest.TheDialogOpensInTheLastFolderAndTheOneItLeavesIsKept" },
        "OpeningTest.TheDialogOpensInTheLastFolderAndTheOneItLeavesIsKept" },
    { Key::OldFolder2, { "VisualTest.TheNextChoiceBeginsInTheFolderOfTheLast" },
        "VisualTest.TheNextChoiceBeginsInTheFolderOfTheLast" },
    { Key::ToolTip, { "ToolTips.AreBlankWhenSwitchedOff" }, Boxes },
    { Key::PositionX, { Drawn }, Fields },
    { Key::PositionY, { Drawn }, Fields },
    { Key::SFontSize, { Drawn }, Fonts },
    { Key::SFontBold,
        { "GetFontsTest.TheSampleShowsBoldThatCapturesDoNotGet", "PrintUserTextTest.BoldIsNotApplied" },
        Fonts },
    { Key::SFontName, { Drawn }, Fonts },
    { Key::SFontItalic, { Drawn }, Fonts },
    { Key::sFontColor, { Drawn }, Fonts },
    { Key::sFontText, { Drawn }, Fields },
    { Key::UseWatermark, { "WatermarkTest.WithoutTheMasterSwitchItDoesNotAndNobodyIsAsked" }, Boxes },
    { Key::WatermarkBATCH, { "WatermarkTest.UnlessEveryCaptureGetsTheSameTheWordsAreAskedForFirst" }, Boxes },
    { Key::TextShadowPosX, { Drawn }, Effects },
    { Key::TextShadowPosY, { Drawn }, Effects },
    { Key::WatermarkTextStyle, { Drawn }, Effects },
    { Key::sFontWatermarkTextAngle, { Drawn }, Effects },
    { Key::sFontShadowColor, { Drawn }, Effects },
    { Key::sFontBorderColor, { Drawn }, Effects },
    { Key::UseShadows, { Drawn }, "OptionsPages.TheShadowIsSwitchedAtOnceAndItsBoxFollows" },
    { Key::WordWrap, { Drawn }, Boxes },
} };
static_assert(IsOneRowEach(KeyEffects, &KeyEffect::key, size_t(Key::Count)));

QSet<QString> NamesIn(const QString& path)
{
    static const QRegularExpression test(
        QStringLiteral("^TEST(?:_F|_P)?\\((\\w+),\\s*(\\w+)\\)"), QRegularExpression::MultilineOption);
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

TEST(KeyEffectsTest, EveryKeysEffectAndItsChangeAreProvedByTestsThatThereAre)
{
    const QSet<QString> tests = AllTests();
    for (const KeyEffect& row : KeyEffects) {
        EXPECT_NE(row.effects.front(), nullptr) << Row(row.key).name;
        for (const char* const effect : row.effects)
            EXPECT_TRUE(!effect || tests.contains(QLatin1String(effect)))
                << Row(row.key).name << ": " << effect;
        EXPECT_TRUE(tests.contains(QLatin1String(row.writer))) << Row(row.key).name << ": " << row.writer;
    }
}
