#include "capture/SaveCapture.h"
#include "imaging/PictureFile.h"
#include "tests/settingsui/OptionsFixture.h"
#include "tests/testing/Files.h"
#include "tests/testing/SmallDisk.h"
#include "toolkit/ucShadow.h"

#include <QComboBox>
#include <QPlainTextEdit>

namespace {

class OptionsSave : public OptionsFixture {
protected:
    /// The keys of the settings file from top to bottom.
    QStringList StoredKeys()
    {
        QStringList keys;
        for (const QByteArray& line : FileBytes(state.Settings.FilePath()).split('\n'))
            if (line.contains('='))
                keys << QString::fromUtf8(line.left(line.indexOf('=')));
        return keys;
    }
    /// From now on: a folder comes in the place of the file.
    void RefuseToStore()
    {
        QFile::remove(state.Settings.FilePath());
        ASSERT_TRUE(QDir().mkpath(state.Settings.FilePath()));
    }
    void ExpectToldThatItIsNotStored()
    {
        frame.errors.Expect(QStringLiteral("Error!"),
            QStringLiteral("The options could not be stored. They are used until the program ends."));
    }
};

} // namespace

TEST_F(OptionsSave, TheKeysAreWrittenInTheirOrder)
{
    Save();
    EXPECT_EQ(StoredKeys().join(u' '),
        QStringLiteral("PositionX PositionY WordWrap AutoDir sFontText OpPic OpThumb SetFocusYES OpenVidList "
                       "UseWatermark WatermarkBATCH AutoSave VidSave NoCap NoWin LoadVid FadeOuts VidWinOnly "
                       "SpecialFolder OldFolder Ext HighQ BW ToolTip PPosition AutoCapture CaptureTime "
                       "UsersCaptureTime AutoFrame AutoNumber NameFull"));
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(OptionsSave, SavingWhatWasFilledKeepsEveryDefault)
{
    Save();
    for (const QString& key : StoredKeys()) {
        const auto* row = std::ranges::find_if(
            SettingsKeys, [&key](const SettingsKey& one) { return QLatin1String(one.name) == key; });
        EXPECT_EQ(state.TextOf(row->key), DefaultText(row->key, Reader::Options, state.Folders().Home()))
            << key.toStdString();
    }
}

TEST_F(OptionsSave, EveryBoxGoesToItsKeyAndItsCopy)
{
    const struct {
        const char* box;
        const char* key;
        bool ApplicationState::*copy;
    } rows[] = {
        { "Check1", "AutoSave", &ApplicationState::AutoSave },
        { "check3", "NoCap", &ApplicationState::NoCap },
        { "check6", "SpecialFolder", &ApplicationState::SpecialFolder },
        { "check5", "LoadVid", &ApplicationState::LoadVid },
        { "check2", "VidSave", &ApplicationState::VidSave },
        { "xpcheckbox2", "OpenVidList", &ApplicationState::OpenVidList },
        { "xpcheckbox1", "SetFocusYES", &ApplicationState::SetFocusYES },
        { "check4", "NoWin", &ApplicationState::NoWin },
        { "check12", "NameFull", &ApplicationState::NameFull },
        { "check10", "ToolTip", &ApplicationState::ToolTip },
        { "check13", "FadeOuts", &ApplicationState::FadeOuts },
        { "check15", "VidWinOnly", &ApplicationState::VidWinOnly },
        { "check8", "HighQ", &ApplicationState::HighQ },
        { "check9", "BW", &ApplicationState::BW },
        { "WordWrapCheck", "WordWrap", &ApplicationState::WordWrap },
        { "AutoCaptureOnOff(0)", "AutoCapture", &ApplicationState::AutoCapture },
        { "xpcheckbox3(0)", "UseWatermark", &ApplicationState::UseWatermark },
        { "xpcheckbox4(0)", "WatermarkBATCH", &ApplicationState::WatermarkBATCH },
    };
    for (const auto& row : rows)
        Click(row.box); // Check1 first: it opens check3
    Save();
    for (const auto& row : rows) {
        const bool wasSetAtFirst = row.copy == &ApplicationState::OpenVidList
            || row.copy == &ApplicationState::ToolTip || row.copy == &ApplicationState::FadeOuts
            || row.copy == &ApplicationState::HighQ;
        EXPECT_EQ(Stored(row.key), wasSetAtFirst ? QStringLiteral("False") : QStringLiteral("True"))
            << row.key;
        EXPECT_EQ(state.*row.copy, !wasSetAtFirst) << row.key;
    }
}

TEST_F(OptionsSave, TextsAndNumbersGoToTheirKeysAndCopies)
{
    Store("SpecialFolder", "True");
    Begin();
    Edit("LblFolder").setText(QStringLiteral("  /captures/here "));
    Edit("label12").setText(QStringLiteral("77"));
    Edit("label13").setText(QStringLiteral("88"));
    Edit("Label3").setText(QStringLiteral("12"));
    Edit("Label6").setText(QStringLiteral("34"));
    Find<QPlainTextEdit>("Text1")->setPlainText(QStringLiteral("  two\nlines \n"));
    Find<QComboBox>("cmbAlign")->setCurrentIndex(8);
    Save();
    EXPECT_EQ(Stored("OldFolder"), QStringLiteral("/captures/here"));
    EXPECT_EQ(state.OldFolder, QStringLiteral("/captures/here"));
    EXPECT_EQ(Stored("PositionX"), QStringLiteral("77"));
    EXPECT_EQ(state.PositionX, 77);
    EXPECT_EQ(Stored("PositionY"), QStringLiteral("88"));
    EXPECT_EQ(state.PositionY, 88);
    EXPECT_EQ(Stored("AutoNumber"), QStringLiteral("12"));
    EXPECT_EQ(state.AutoNumber, 12);
    EXPECT_EQ(Stored("UsersCaptureTime"), QStringLiteral("34"));
    EXPECT_EQ(state.UsersCaptureTime, 34);
    EXPECT_EQ(Stored("sFontText"), QStringLiteral("two\nlines"));
    EXPECT_EQ(state.sFontText, QStringLiteral("two\nlines"));
    EXPECT_EQ(Stored("PPosition"), QStringLiteral("8"));
    EXPECT_EQ(state.PPosition, 8);
}

TEST_F(OptionsSave, WithoutTheSaveButtonNothingOfItIsKept)
{
    for (const char* box : { "Check1", "check5", "check12", "check10", "check8", "AutoCaptureOnOff(0)",
             "xpcheckbox3(0)", "WordWrapCheck" })
        Click(box);
    Edit("Label3").setText(QStringLiteral("12"));
    form->reject();
    EXPECT_EQ(StoredKeys(), QStringList());
    EXPECT_FALSE(state.AutoSave);
    EXPECT_TRUE(state.ToolTip);
    EXPECT_EQ(state.AutoNumber, 10);
}

TEST_F(OptionsSave, AGroupWithNoButtonSetKeepsItsKey)
{
    Store("AutoDir", "True");
    Store("OpThumb", "1");
    Store("OpPic", "2");
    Store("Ext", ".gif");
    Begin();
    Click("AutoCap1"); // clears the radio buttons of all pages
    for (const char* radio : { "Option2", "OpThumb(1)", "OpPic(2)", "option6" })
        ASSERT_FALSE(IsChosen(radio)) << radio;
    Save();
    EXPECT_EQ(Stored("AutoDir"), QStringLiteral("True"));
    EXPECT_EQ(Stored("OpThumb"), QStringLiteral("1"));
    EXPECT_EQ(Stored("OpPic"), QStringLiteral("2"));
    EXPECT_EQ(Stored("Ext"), QStringLiteral(".gif"));
    EXPECT_EQ(Stored("CaptureTime"), QStringLiteral("True"));
    EXPECT_TRUE(state.CaptureTime);
}

TEST_F(OptionsSave, AnExtensionThatSetsNoFormatIsKept)
{
    BeginWith("Ext", ".jpeg");
    Save();
    EXPECT_EQ(Stored("Ext"), QStringLiteral(".jpeg"));
}

TEST_F(OptionsSave, AFormatShownFromAnExtensionInCapitalsIsWrittenInSmallLetters)
{
    BeginWith("Ext", ".PNG");
    Save();
    EXPECT_EQ(Stored("Ext"), QStringLiteral(".png"));
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".png"));
}

TEST_F(OptionsSave, TheFirstWayOfAutomaticCaptureIsByTimeAndTheSecondByFrames)
{
    for (const bool isByTime : { true, false }) {
        Begin();
        Click(isByTime ? "AutoCap1" : "AutoCap2");
        Save();
        EXPECT_EQ(Stored("CaptureTime"), isByTime ? QStringLiteral("True") : QStringLiteral("False"));
        EXPECT_EQ(Stored("AutoFrame"), isByTime ? QStringLiteral("False") : QStringLiteral("True"));
        EXPECT_EQ(state.CaptureTime, isByTime);
        EXPECT_EQ(state.AutoFrame, !isByTime);
    }
}

TEST_F(OptionsSave, EmptiedWordsHoldForTheRunAndAreTheDefaultOnesAtTheNextOpening)
{
    Find<QPlainTextEdit>("Text1")->clear();
    Save();
    EXPECT_EQ(state.sFontText, QString());
    Begin();
    EXPECT_EQ(
        Find<QPlainTextEdit>("Text1")->toPlainText(), QStringLiteral("This text is using the Arial font."));
}

TEST_F(OptionsSave, TheCloseButtonDropsWhatWasNotSaved)
{
    Click("check5");
    Click("Close");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(StoredKeys(), QStringList());
    EXPECT_FALSE(state.LoadVid);
}

TEST_F(OptionsSave, APairWithBothBoxesClearWritesFalse)
{
    const struct {
        const char* yes;
        const char* no;
        const char* key;
    } rows[] = { { "AutoCaptureOnOff(0)", "AutoCaptureOnOff(1)", "AutoCapture" },
        { "xpcheckbox3(0)", "xpcheckbox3(1)", "UseWatermark" },
        { "xpcheckbox4(0)", "xpcheckbox4(1)", "WatermarkBATCH" } };
    for (const auto& row : rows) {
        BeginWith(row.key, "True");
        Click(row.yes);
        EXPECT_FALSE(IsSet(row.yes)) << row.key;
        EXPECT_FALSE(IsSet(row.no)) << row.key;
        Save();
        EXPECT_EQ(Stored(row.key), QStringLiteral("False")) << row.key;
    }
}

TEST_F(OptionsSave, ABoxThatIsDisabledIsWrittenAsItStands)
{
    Store("AutoSave", "True");
    Store("NoCap", "True");
    Begin();
    Click("Check1");
    ASSERT_FALSE(IsEnabled("check3"));
    Save();
    EXPECT_EQ(Stored("NoCap"), QStringLiteral("True"));
}

TEST_F(OptionsSave, AnEmptiedNumberKeepsTheOneBefore)
{
    Store("AutoNumber", "25");
    Store("UsersCaptureTime", "90");
    Begin();
    ComeTo(TimedPage);
    for (const char* box : { "Label3", "Label6" }) {
        Edit(box).selectAll();
        QTest::keyClick(&Edit(box), Qt::Key_Delete);
        ASSERT_EQ(Edit(box).text(), QString());
    }
    Save();
    EXPECT_EQ(Stored("AutoNumber"), QStringLiteral("25"));
    EXPECT_EQ(state.AutoNumber, 25);
    EXPECT_EQ(Stored("UsersCaptureTime"), QStringLiteral("90"));
    EXPECT_EQ(state.UsersCaptureTime, 90);
}

TEST_F(OptionsSave, ANumberBeyondSixteenBitsBecomesTheLargest)
{
    BeginWith("AutoNumber", "99999");
    Save();
    EXPECT_EQ(Stored("AutoNumber"), QStringLiteral("32767"));
    EXPECT_EQ(state.AutoNumber, 32767);
}

TEST_F(OptionsSave, AStoredNumberThatTheSliderDoesNotReachIsKept)
{
    BeginWith("AutoNumber", "5000");
    EXPECT_EQ(Slider("HSlider1").value(), 1000);
    Save();
    EXPECT_EQ(Stored("AutoNumber"), QStringLiteral("5000"));
}

TEST_F(OptionsSave, AnEmptiedFolderBecomesTheAutoSaveFolder)
{
    BeginWith("SpecialFolder", "True");
    Edit("LblFolder").clear();
    Save();
    EXPECT_EQ(state.OldFolder, state.Beside(QStringLiteral("AutoSave")) + u'/');
    EXPECT_EQ(Stored("OldFolder"), state.OldFolder);
}

TEST_F(OptionsSave, WithAVideoOpenSavingWithoutCaptureSwapsTheTwoButtons)
{
    state.VideoPath = QStringLiteral("/videos/a.avi");
    Store("AutoSave", "True");
    Begin();
    Click("check3");
    Save();
    EXPECT_TRUE(frame.enabled.value(Command::Save));
    EXPECT_FALSE(frame.enabled.value(Command::Capture, true));
    Begin();
    Click("check3");
    Save();
    EXPECT_FALSE(frame.enabled.value(Command::Save, true));
    EXPECT_TRUE(frame.enabled.value(Command::Capture));
}

TEST_F(OptionsSave, WithoutAVideoTheTwoButtonsAreLeftAlone)
{
    Save();
    EXPECT_FALSE(frame.enabled.contains(Command::Save));
    EXPECT_FALSE(frame.enabled.contains(Command::Capture));
}

TEST_F(OptionsSave, WithWindowFadesOffItsShadowIsHardEdgedAndItGoesAtOnce)
{
    EXPECT_TRUE(form->findChild<ucShadow*>()->SoftShadow());
    state.FadeOuts = false;
    Begin();
    EXPECT_FALSE(form->findChild<ucShadow*>()->SoftShadow());
    form->reject();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(OptionsSave, OptionsThatCannotBeStoredAreToldOnceAndHoldForTheRun)
{
    RefuseToStore();
    Click("check5");
    Click("option4");
    Edit("Label3").setText(QStringLiteral("12"));
    Edit("Label6").setText(QStringLiteral("34"));
    ExpectToldThatItIsNotStored();
    Save();
    EXPECT_EQ(frame.errors.lastOwner, form.get());
    EXPECT_TRUE(state.LoadVid);
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".jpg"));
    EXPECT_EQ(state.AutoNumber, 12);
    EXPECT_EQ(state.UsersCaptureTime, 34);
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(OptionsSave, AChoiceThatCannotBeStoredStandsWhenItsPageComesUpAgain)
{
    RefuseToStore();
    Click("option4");
    Click("OpThumb(2)"); // clears every other radio button
    ComeTo(FormatPage);
    EXPECT_TRUE(IsChosen("option4"));
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".jpg"));
    EXPECT_EQ(state.OpThumb, 2);
    ExpectToldThatItIsNotStored();
    form->reject();
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".jpg"));
}

TEST_F(OptionsSave, WhatTheStoreRefusedIsUsedByTheNextCaptureAndShownByTheNextDialog)
{
    RefuseToStore();
    Click("Check1");
    Click("Option2"); // the AutoSave folder
    Click("option4");
    Edit("Label3").setText(QStringLiteral("12"));
    ExpectToldThatItIsNotStored();
    Save();
    Begin();
    EXPECT_TRUE(IsSet("Check1"));
    EXPECT_TRUE(IsChosen("option4"));
    EXPECT_EQ(Edit("Label3").text(), QStringLiteral("12"));

    imaging::PictureFile::Initialise();
    Lead capture(&frame.window);
    capture.SetBitmap(QImage(16, 8, QImage::Format_BGR888));
    frame.activeForm = &frame.window;
    frame.activeCapture = &capture;
    SaveCapture(frame);
    EXPECT_EQ(state.CurrentFile, state.Beside(QStringLiteral("AutoSave/auto1.jpg")));
    EXPECT_TRUE(FileBytes(state.CurrentFile).startsWith("\xFF\xD8\xFF"));
}

TEST_F(OptionsSave, WhatWasRefusedIsReadFromTheStoreAgainOnceItTookIt)
{
    RefuseToStore();
    Click("option4");
    ExpectToldThatItIsNotStored();
    Save();
    ASSERT_TRUE(QDir().rmdir(state.Settings.FilePath()));
    Begin();
    Save();
    EXPECT_EQ(Stored("Ext"), QStringLiteral(".jpg"));
    Store("Ext", ".png");
    EXPECT_EQ(state.TextOf(Key::Ext), QStringLiteral(".png"));
}

TEST_F(OptionsSave, AChoiceKeptAtOnceThatTheStoreRefusedIsToldOnceHoweverTheDialogCloses)
{
    RefuseToStore();
    const std::function<void()> ways[] = { [this] { form->reject(); }, [this] { form->close(); },
        [this] { Click("Close"); }, [this] { QTest::keyClick(form.get(), Qt::Key_Escape); } };
    for (const auto& close : ways) {
        Begin();
        Click("option4");
        ExpectToldThatItIsNotStored();
        close();
        EXPECT_FALSE(form->isVisible());
        form->reject();
    }
}

TEST_F(OptionsSave, WithNothingRefusedClosingIsSilent)
{
    Click("option4");
    form->reject();
    EXPECT_EQ(frame.errors.lastOwner, nullptr);
}

TEST_F(OptionsSave, OnAFullDiskTheStoreKeepsWhatItHad)
{
    SmallDisk disk(64);
    if (!disk.IsThere())
        GTEST_SKIP() << "this machine lets no test mount a file system";
    state.Settings = CRegSettings(disk.Path());
    state.LoadApplicationState(frame.window);
    Store("Ext", ".gif");
    Begin();
    const QByteArray before = FileBytes(state.Settings.FilePath());
    disk.Fill();
    ComeTo(VideoPage);
    Click("check5");
    ExpectToldThatItIsNotStored();
    Save();
    EXPECT_EQ(FileBytes(state.Settings.FilePath()), before);
}

TEST_F(OptionsSave, KeysOfAnotherProgramWrittenMeanwhileStay)
{
    CRegSettings other(frame.folder.filePath(QStringLiteral("settings")));
    other.SetCompany(state.Settings.Company());
    other.SetAppName(state.Settings.AppName());
    ASSERT_TRUE(
        other.SaveSetting(QStringLiteral("Options"), QStringLiteral("OldDir"), QStringLiteral("/elsewhere")));
    ASSERT_TRUE(other.SaveSetting(QStringLiteral("Options"), QStringLiteral("Later"), QStringLiteral("7")));
    Save();
    EXPECT_EQ(Stored("OldDir"), QStringLiteral("/elsewhere"));
    EXPECT_EQ(Stored("Later"), QStringLiteral("7"));
}
