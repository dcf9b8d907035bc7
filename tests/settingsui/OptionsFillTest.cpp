#include "tests/settingsui/OptionsFixture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPlainTextEdit>

namespace {

class OptionsFill : public OptionsFixture { };

/// The boxes that show one key each.
const struct {
    const char* box;
    const char* key;
} Boxes[] = {
    { "Check1", "AutoSave" },
    { "check3", "NoCap" },
    { "check6", "SpecialFolder" },
    { "check5", "LoadVid" },
    { "check2", "VidSave" },
    { "xpcheckbox2", "OpenVidList" },
    { "xpcheckbox1", "SetFocusYES" },
    { "check4", "NoWin" },
    { "check12", "NameFull" },
    { "check10", "ToolTip" },
    { "check13", "FadeOuts" },
    { "check15", "VidWinOnly" },
    { "check8", "HighQ" },
    { "check9", "BW" },
    { "WordWrapCheck", "WordWrap" },
};

/// Pairs of boxes, each with the key it shows.
const struct {
    const char* yes;
    const char* no;
    const char* key;
} Pairs[] = {
    { "AutoCaptureOnOff(0)", "AutoCaptureOnOff(1)", "AutoCapture" },
    { "xpcheckbox3(0)", "xpcheckbox3(1)", "UseWatermark" },
    { "xpcheckbox4(0)", "xpcheckbox4(1)", "WatermarkBATCH" },
};

/// The radio buttons and the stored text that sets each.
const struct {
    const char* radio;
    const char* key;
    const char* text;
} Radios[] = {
    { "Option1", "AutoDir", "False" },
    { "Option2", "AutoDir", "True" },
    { "OpThumb(0)", "OpThumb", "0" },
    { "OpThumb(1)", "OpThumb", "1" },
    { "OpThumb(2)", "OpThumb", "2" },
    { "OpPic(0)", "OpPic", "0" },
    { "OpPic(1)", "OpPic", "1" },
    { "OpPic(2)", "OpPic", "2" },
    { "Option3", "Ext", ".bmp" },
    { "option4", "Ext", ".jpg" },
    { "option5", "Ext", ".tga" },
    { "option6", "Ext", ".gif" },
    { "option7", "Ext", ".tif" },
    { "option8", "Ext", ".png" },
    { "option9", "Ext", ".psd" },
    { "AutoCap1", "CaptureTime", "True" },
    { "AutoCap2", "AutoFrame", "True" },
};

} // namespace

TEST_F(OptionsFill, TheTabsStandInTheirOrder)
{
    QStringList captions;
    for (int page = 0; page < Tabs().count(); ++page)
        captions << Tabs().tabText(page);
    EXPECT_EQ(captions.join(u'|'),
        QStringLiteral("AutoName| Video| Window|Display|Format|Print|Timed Capture| Watermark"));
    EXPECT_EQ(Tabs().currentIndex(), 0);
}

TEST_F(OptionsFill, EveryBoxShowsItsKey)
{
    for (const auto& row : Boxes) {
        for (const bool isSet : { true, false }) {
            BeginWith(row.key, isSet ? "True" : "False");
            EXPECT_EQ(IsSet(row.box), isSet) << row.box;
        }
    }
}

TEST_F(OptionsFill, APairShowsItsKeyByOneOfItsBoxes)
{
    for (const auto& row : Pairs) {
        for (const bool isSet : { true, false }) {
            BeginWith(row.key, isSet ? "True" : "False");
            EXPECT_EQ(IsSet(row.yes), isSet) << row.key;
            EXPECT_EQ(IsSet(row.no), !isSet) << row.key;
        }
    }
}

TEST_F(OptionsFill, EveryRadioButtonIsSetByItsTextAndNoOtherOfItsGroup)
{
    for (const auto& row : Radios) {
        BeginWith(row.key, row.text);
        for (const auto& other : Radios) {
            if (QLatin1String(other.key) == QLatin1String(row.key)) {
                EXPECT_EQ(IsChosen(other.radio), other.radio == row.radio) << other.radio;
            }
        }
    }
}

TEST_F(OptionsFill, WithNothingStoredTheDefaultsShow)
{
    EXPECT_TRUE(IsChosen("OpThumb(0)"));
    EXPECT_TRUE(IsChosen("OpPic(0)"));
    EXPECT_TRUE(IsChosen("Option1"));
    EXPECT_TRUE(IsChosen("Option3"));
    EXPECT_FALSE(IsChosen("AutoCap1"));
    EXPECT_FALSE(IsChosen("AutoCap2"));
    for (const char* box : { "xpcheckbox2", "check10", "check13", "check8" })
        EXPECT_TRUE(IsSet(box)) << box;
    EXPECT_EQ(Edit("Label3").text(), QStringLiteral("10"));
    EXPECT_EQ(Edit("Label6").text(), QStringLiteral("10"));
    EXPECT_EQ(Edit("label12").text(), QStringLiteral("40"));
    EXPECT_EQ(Edit("label13").text(), QStringLiteral("40"));
    EXPECT_EQ(Find<QComboBox>("cmbAlign")->currentIndex(), 4);
    EXPECT_EQ(
        Find<QPlainTextEdit>("Text1")->toPlainText(), QStringLiteral("This text is using the Arial font."));
    EXPECT_EQ(Edit("LblFolder").text(), state.Beside(QStringLiteral("AutoSave")));
    EXPECT_EQ(Label("lblPic"), state.Beside(QStringLiteral("WallPaper/wpaper.jpg")));
}

TEST_F(OptionsFill, OpeningAndClosingWritesNoKey)
{
    form->reject();
    EXPECT_FALSE(QFile::exists(state.Settings.FilePath()));
}

TEST_F(OptionsFill, TheControlsBearTheirCaptions)
{
    const struct {
        const char* name;
        const char* caption;
    } boxes[] = {
        { "Check1", " Automatically Name Captures and Save them. " },
        { "check3", " Automatically Save without using capture " },
        { "check6", " Select Folder for Captures" },
        { "check5", "Load mpeg videos into memory." },
        { "check2", "Save directly from video, not graphic. \n( Only saves to 24bit .bmp )" },
        { "xpcheckbox2",
            "Don't open the video File Selector List at start up.\n( If more then one video is selected )" },
        { "xpcheckbox1", "Let the mouse movement bring the Window to the Top." },
        { "check4", "Close capture window after it's saved." },
        { "check12", "Show video NAME only (not full path), on capture window." },
        { "check10", "Use Tooltips." },
        { "check13", "Use Window Fade." },
        { "check15", "Only Open Videos From Video Window" },
        { "check8", "High Quality Printing" },
        { "check9", "Print in B&W" },
        { "AutoCaptureOnOff(0)", "Auto Capture ON" },
        { "AutoCaptureOnOff(1)", "Auto Capture OFF" },
        { "xpcheckbox3(0)", "Yes" },
        { "xpcheckbox3(1)", "No" },
        { "xpcheckbox4(0)", "Auto\nEach capture will have the same text watermark." },
        { "xpcheckbox4(1)", "Manual\nYou will need to add a watermark for each capture manually." },
        { "WordWrapCheck", "Use Wordwrap?" },
    };
    for (const auto& row : boxes)
        EXPECT_EQ(Box(row.name).Caption(), QLatin1String(row.caption));
    const struct {
        const char* name;
        const char* caption;
    } radios[] = {
        { "Option1", "Saves to the current folder you selected from." },
        { "Option2", "Saves to the AutoSave folder." },
        { "OpThumb(0)", "Open captured thumbnails but not capture window." },
        { "OpThumb(1)", "Automatically open captured thumbnails with capture window." },
        { "OpThumb(2)", "Don't open thumbnails at all." },
        { "OpPic(0)", "Center" },
        { "OpPic(1)", "Lower Right" },
        { "OpPic(2)", "None" },
        { "Option3", ".bmp" },
        { "option4", ".jpg" },
        { "option5", ".tga" },
        { "option6", ".gif" },
        { "option7", ".tif" },
        { "option8", ".png" },
        { "option9", ".psd" },
        { "AutoCap1", " Set Auto Capture time rate." },
        { "AutoCap2", " Set Auto Capture frame rate." },
    };
    for (const auto& row : radios)
        EXPECT_EQ(Radio(row.name).Caption(), QLatin1String(row.caption));
    const struct {
        const char* name;
        const char* caption;
    } commands[] = { { "Cmds(0)", "&Save Options" }, { "Cmds(1)", "&Browse" },
        { "Cmds(2)", "Set &Default Printer" }, { "Cmds(3)", "&Browse" }, { "Cmds(5)", "&Font  && Shadow" } };
    for (const auto& row : commands)
        EXPECT_EQ(Find<Button_XP>(row.name)->Caption(), QLatin1String(row.caption));
    EXPECT_EQ(form->findChild<QWidget*>(QStringLiteral("Cmds(4)")), nullptr);
}

TEST_F(OptionsFill, EveryPageBearsItsHeadingsAndTheWordsBesideItsControls)
{
    const struct {
        Page page;
        QStringList words;
    } rows[] = {
        { DisplayPage, { "Background Picture Placement", "Background Picture" } },
        { FormatPage, { "Select graphic format for video captures." } },
        { PrintPage, { "Align Graphic:", "Select Default Printer" } },
        { TimedPage, { "Every", "Seconds.", "  Frames." } },
        { WatermarkPage,
            { "Enter Text to go on captures.", "Use Watermark", "Auto or Manual",
                "Watermark Position:", "Left" } },
    };
    for (const auto& row : rows) {
        QStringList there;
        for (const auto* label : Tabs().widget(row.page)->findChildren<QLabel*>())
            there << label->text();
        for (const auto* group : Tabs().widget(row.page)->findChildren<QGroupBox*>())
            there << group->title();
        for (const QString& words : row.words)
            EXPECT_TRUE(there.contains(words)) << words.toStdString();
    }
}

TEST_F(OptionsFill, TheWrapTellsByItsTipWhatItDoes)
{
    EXPECT_EQ(Find("WordWrapCheck")->toolTip(),
        QStringLiteral("If the watermark is too long, it will wrap it to the next line down."));
}

TEST_F(OptionsFill, TheThumbnailsButtonsTellByTheirTipsWhatOpens)
{
    EXPECT_EQ(Find("OpThumb(0)")->toolTip(),
        QStringLiteral("This will open the thumbnail window and not the actual capture window."));
    EXPECT_EQ(Find("OpThumb(1)")->toolTip(),
        QStringLiteral("This will open both the thumbnail viewer and the capture windows."));
    EXPECT_EQ(
        Find("OpThumb(2)")->toolTip(), QStringLiteral("Just open the capture and not the thumbnail window."));
}

TEST_F(OptionsFill, AFolderOfTheUsersClosesTheOtherTwo)
{
    BeginWith("SpecialFolder", "True");
    EXPECT_FALSE(IsEnabled("Option1"));
    EXPECT_FALSE(IsEnabled("Option2"));
    EXPECT_TRUE(IsEnabled("LblFolder"));
    EXPECT_TRUE(IsEnabled("Cmds(1)"));
    BeginWith("SpecialFolder", "False");
    EXPECT_TRUE(IsEnabled("Option1"));
    EXPECT_TRUE(IsEnabled("Option2"));
    EXPECT_FALSE(IsEnabled("LblFolder"));
    EXPECT_FALSE(IsEnabled("Cmds(1)"));
}

TEST_F(OptionsFill, AFourLetterExtensionSetsNoFormat)
{
    BeginWith("Ext", ".jpeg");
    for (const char* format : { "Option3", "option4", "option5", "option6", "option7", "option8", "option9" })
        EXPECT_FALSE(IsChosen(format)) << format;
}

TEST_F(OptionsFill, TheLastThreeLettersChooseTheFormatInAnyCase)
{
    BeginWith("Ext", ".PNG");
    EXPECT_TRUE(IsChosen("option8"));
}

TEST_F(OptionsFill, ABlankFolderShowsTheAutoSaveFolderWithASeparatorAtItsEnd)
{
    BeginWith("OldFolder", "   ");
    EXPECT_EQ(Edit("LblFolder").text(), state.Beside(QStringLiteral("AutoSave")) + u'/');
}

TEST_F(OptionsFill, AFolderAndAPictureAreShownWithoutBlanksAroundThem)
{
    Store("OldFolder", " /captures ");
    Store("PicFolder", " /pictures/lake.jpg ");
    Begin();
    EXPECT_EQ(Edit("LblFolder").text(), QStringLiteral("/captures"));
    EXPECT_EQ(Label("lblPic"), QStringLiteral("/pictures/lake.jpg"));
}

TEST_F(OptionsFill, SavingWithoutCaptureCanBeChosenWithAutomaticNamesOnly)
{
    EXPECT_FALSE(IsEnabled("check3"));
    BeginWith("AutoSave", "True");
    EXPECT_TRUE(IsEnabled("check3"));
}

TEST_F(OptionsFill, NumbersStandInTheirBoxesAndOnTheirSliders)
{
    Store("AutoNumber", "25");
    Store("UsersCaptureTime", "90");
    Store("PositionX", "120.5");
    Store("PositionY", "60");
    Begin();
    EXPECT_EQ(Edit("Label3").text(), QStringLiteral("25"));
    EXPECT_EQ(Slider("HSlider1").value(), 25);
    EXPECT_EQ(Edit("Label6").text(), QStringLiteral("90"));
    EXPECT_EQ(Slider("HSlider2").value(), 90);
    EXPECT_EQ(Edit("label12").text(), QStringLiteral("120"));
    EXPECT_EQ(Slider("HSlider3").value(), 120);
    EXPECT_EQ(Edit("label13").text(), QStringLiteral("60"));
    EXPECT_EQ(Slider("HSlider4").value(), 60);
    EXPECT_EQ(Label("LblTime"), QStringLiteral("00:01:30"));
}

TEST_F(OptionsFill, TheSlidersHaveTheirEnds)
{
    EXPECT_EQ(Slider("HSlider1").maximum(), 1000);
    EXPECT_EQ(Slider("HSlider2").maximum(), 7200);
    EXPECT_EQ(Slider("HSlider3").maximum(), 1000);
    EXPECT_EQ(Slider("HSlider4").maximum(), 500);
    EXPECT_EQ(Slider("HSlider1").minimum(), 1);
    EXPECT_EQ(Slider("HSlider2").minimum(), 1);
    EXPECT_EQ(Slider("HSlider3").minimum(), 0);
    EXPECT_EQ(Slider("HSlider4").minimum(), 0);
}

TEST_F(OptionsFill, TheShadowIsToldInGreenAndInDarkRed)
{
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow Off"));
    EXPECT_TRUE(Find<QLabel>("LabelShadow")->styleSheet().startsWith(QStringLiteral("color: #800000")));
    state.UseShadows = true;
    Begin();
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow On"));
    EXPECT_TRUE(Find<QLabel>("LabelShadow")->styleSheet().startsWith(QStringLiteral("color: #008000")));
}

TEST_F(OptionsFill, TheTextStandsInItsFontAndItsColour)
{
    Store("SFontSize", "18.5");
    Store("SFontBold", "True");
    Store("SFontItalic", "True");
    Store("SFontName", "DejaVu Serif");
    Store("sFontColor", "255");
    Store("sFontText", "Summer");
    Begin();
    const auto* text = Find<QPlainTextEdit>("Text1");
    EXPECT_EQ(text->toPlainText(), QStringLiteral("Summer"));
    EXPECT_EQ(text->font().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(text->font().pointSizeF(), 18.5);
    EXPECT_TRUE(text->font().bold());
    EXPECT_TRUE(text->font().italic());
    EXPECT_TRUE(text->styleSheet().contains(QStringLiteral("color: #ff0000")));
    EXPECT_EQ(Find("ColorBox")->palette().color(QPalette::Window), QColor(Qt::red));
    EXPECT_EQ(Label("FontLabel"), QStringLiteral("Font: DejaVu Serif   Size: 18.5"));
    EXPECT_EQ(Label("Label14"), QStringLiteral("Bold"));
    EXPECT_TRUE(Find("Label14")->font().bold());
    EXPECT_EQ(Label("Label15"), QStringLiteral("Italic"));
    EXPECT_TRUE(Find("Label15")->font().bold());
}

TEST_F(OptionsFill, LettersOfAnySizeAreShownNoLargerThanTheyAreDrawn)
{
    for (const auto& [stored, shown] : { std::pair("1000000", 1000.0), std::pair("0.25", 1.0) }) {
        BeginWith("SFontSize", stored);
        EXPECT_EQ(Find<QPlainTextEdit>("Text1")->font().pointSizeF(), shown);
    }
}

TEST_F(OptionsFill, AnUprightFontReadsItalicBoldInPlainType)
{
    EXPECT_EQ(Label("Label14"), QStringLiteral("Regular"));
    EXPECT_FALSE(Find("Label14")->font().bold());
    EXPECT_EQ(Label("Label15"), QStringLiteral("Italic Bold"));
    EXPECT_FALSE(Find("Label15")->font().bold());
}

TEST_F(OptionsFill, TipsComeFromTheTagsOnlyWhenTheDialogOpens)
{
    EXPECT_EQ(Find("xpcheckbox1")->toolTip(), Find("xpcheckbox1")->property("Tag").toString());
    Click("check10");
    Save();
    EXPECT_FALSE(state.ToolTip);
    EXPECT_FALSE(Find("xpcheckbox1")->toolTip().isEmpty()) << "the walk is not repeated";
    Begin();
    for (QWidget* const control : form->findChildren<QWidget*>())
        EXPECT_EQ(control->toolTip(), QString()) << control->objectName().toStdString();
}

TEST_F(OptionsFill, WhatTheRunHasChangedStaysWhenNothingIsSaved)
{
    state.UseWatermark = true;
    state.sFontText = QStringLiteral("for this run");
    Begin();
    form->reject();
    EXPECT_TRUE(state.UseWatermark);
    EXPECT_EQ(state.sFontText, QStringLiteral("for this run"));
}

TEST_F(OptionsFill, WhatTheControlPanelSwitchedHoldsWhenTheyAreOpenedAndClosed)
{
    state.OpThumb = 2;
    state.UseShadows = true;
    state.SpecialFolder = true;
    Begin();
    form->reject();
    EXPECT_EQ(state.OpThumb, 2);
    EXPECT_TRUE(state.UseShadows);
    EXPECT_TRUE(state.SpecialFolder);
}

TEST_F(OptionsFill, TheShadowsBoxShowsWhatIsInForceAndAClickTurnsItOver)
{
    state.UseShadows = true; // for the run, by the control panel
    Begin();
    EXPECT_TRUE(IsSet("xpcheckbox5"));
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow On"));
    EXPECT_EQ(Stored("UseShadows"), QStringLiteral("nothing"));
    Click("xpcheckbox5");
    EXPECT_FALSE(IsSet("xpcheckbox5"));
    EXPECT_FALSE(state.UseShadows);
}

TEST_F(OptionsFill, AChangeForTheRunDoesNotReachTheStoreByAnothersChoice)
{
    state.OpThumb = 2;
    Begin();
    Click("option4"); // clears every other radio button
    Save();
    EXPECT_EQ(Stored("OpThumb"), QStringLiteral("0"));
    EXPECT_EQ(state.OpThumb, 2);
}
