#include "app/Hourglass.h"
#include "tests/settingsui/OptionsFixture.h"

#include <QPlainTextEdit>

namespace {

class OptionsPages : public OptionsFixture { };

const char* const AllRadios[] = { "Option1", "Option2", "OpThumb(0)", "OpThumb(1)", "OpThumb(2)", "OpPic(0)",
    "OpPic(1)", "OpPic(2)", "Option3", "option4", "option5", "option6", "option7", "option8", "option9",
    "AutoCap1", "AutoCap2" };

} // namespace

TEST_F(OptionsPages, AClickOnARadioButtonClearsAllOthersOnEveryPage)
{
    for (const char* clicked : AllRadios) {
        Click(clicked);
        for (const char* other : AllRadios)
            EXPECT_EQ(IsChosen(other), other == clicked) << clicked << " and " << other;
    }
}

TEST_F(OptionsPages, TheWaysOfAutomaticCaptureTellWhatTheyDo)
{
    EXPECT_EQ(Radio("AutoCap1").toolTip(),
        QStringLiteral("Auto Capture every [ ? ] seconds, using AutoName and AutoFrame folder."));
    EXPECT_EQ(Radio("AutoCap2").toolTip(),
        QStringLiteral("Auto Capture every [ ? ] frame, using AutoName and AutoFrame folder."));
}

TEST_F(OptionsPages, AGroupIsSetFromTheStoreWhenItsPageComesUp)
{
    const struct {
        Page page;
        const char* key;
        const char* text;
        const char* radio;
    } rows[] = { { AutoNamePage, "AutoDir", "True", "Option2" }, { WindowPage, "OpThumb", "2", "OpThumb(2)" },
        { DisplayPage, "OpPic", "1", "OpPic(1)" }, { FormatPage, "Ext", ".tga", "option5" } };
    for (const auto& row : rows)
        Store(row.key, row.text);
    for (const auto& row : rows) {
        Click("AutoCap1");
        ASSERT_FALSE(IsChosen(row.radio));
        ComeTo(row.page);
        EXPECT_TRUE(IsChosen(row.radio)) << row.key;
    }
    EXPECT_TRUE(state.AutoDir);
    EXPECT_EQ(state.OpThumb, 2);
    EXPECT_EQ(state.OpPic, 1);
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".tga"));
}

TEST_F(OptionsPages, TheWayOfAutomaticCaptureIsRestoredByNoTabAndLostByAnyOtherChoice)
{
    Store("CaptureTime", "True");
    BeginWith("AutoFrame", "True");
    ASSERT_TRUE(IsChosen("AutoCap1"));
    Click("option4");
    ComeTo(TimedPage);
    EXPECT_FALSE(IsChosen("AutoCap1"));
    EXPECT_FALSE(IsChosen("AutoCap2"));
    Save();
    EXPECT_EQ(Stored("CaptureTime"), QStringLiteral("False"));
    EXPECT_EQ(Stored("AutoFrame"), QStringLiteral("False"));
}

TEST_F(OptionsPages, GroupsButThatOfTheBackgroundKeepTheirChoiceAtOnce)
{
    const struct {
        const char* radio;
        const char* key;
        const char* text;
    } rows[] = { { "Option2", "AutoDir", "True" }, { "Option1", "AutoDir", "False" },
        { "OpThumb(1)", "OpThumb", "1" }, { "OpThumb(2)", "OpThumb", "2" }, { "OpThumb(0)", "OpThumb", "0" },
        { "option4", "Ext", ".jpg" }, { "option5", "Ext", ".tga" }, { "option6", "Ext", ".gif" },
        { "option7", "Ext", ".tif" }, { "option8", "Ext", ".png" }, { "option9", "Ext", ".psd" },
        { "Option3", "Ext", ".bmp" } };
    for (const auto& row : rows) {
        Click(row.radio);
        EXPECT_EQ(Stored(row.key), QLatin1String(row.text)) << row.radio;
    }
    Click("Option2");
    Click("OpThumb(1)");
    Click("option8");
    form->reject();
    EXPECT_TRUE(state.AutoDir);
    EXPECT_EQ(state.OpThumb, 1);
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".png"));
}

TEST_F(OptionsPages, APlacementIsKeptOnlyByASaveWhileItsPageShows)
{
    Click("OpPic(2)");
    EXPECT_EQ(Stored("OpPic"), QStringLiteral("nothing"));
    ComeTo(PrintPage);
    Save();
    EXPECT_EQ(Stored("OpPic"), QStringLiteral("0"));
    Begin();
    Click("OpPic(2)");
    Save();
    EXPECT_EQ(Stored("OpPic"), QStringLiteral("2"));
    EXPECT_EQ(state.OpPic, 2);
}

TEST_F(OptionsPages, PairedBoxesClearEachOther)
{
    const std::pair<const char*, const char*> pairs[] = { { "AutoCaptureOnOff(0)", "AutoCaptureOnOff(1)" },
        { "xpcheckbox3(0)", "xpcheckbox3(1)" }, { "xpcheckbox4(0)", "xpcheckbox4(1)" } };
    for (const auto& [yes, no] : pairs) {
        Click(yes);
        EXPECT_TRUE(IsSet(yes));
        EXPECT_FALSE(IsSet(no));
        Click(no);
        EXPECT_FALSE(IsSet(yes));
        EXPECT_TRUE(IsSet(no));
        Click(no);
        EXPECT_FALSE(IsSet(yes));
        EXPECT_FALSE(IsSet(no));
    }
}

TEST_F(OptionsPages, AutomaticNamesOpenTheSavingWithoutCapture)
{
    Click("Check1");
    EXPECT_TRUE(IsSet("Check1"));
    EXPECT_TRUE(IsEnabled("check3"));
    Click("Check1");
    EXPECT_FALSE(IsSet("Check1"));
    EXPECT_FALSE(IsEnabled("check3"));
}

TEST_F(OptionsPages, TheSwitchForTheFolderIsKeptAtOnce)
{
    Click("check6");
    EXPECT_TRUE(IsSet("check6"));
    EXPECT_EQ(Stored("SpecialFolder"), QStringLiteral("True"));
    EXPECT_TRUE(state.SpecialFolder);
    EXPECT_FALSE(IsEnabled("Option1"));
    EXPECT_FALSE(IsEnabled("Option2"));
    EXPECT_TRUE(IsEnabled("LblFolder"));
    EXPECT_TRUE(IsEnabled("Cmds(1)"));
    Click("check6");
    EXPECT_FALSE(IsSet("check6"));
    EXPECT_EQ(Stored("SpecialFolder"), QStringLiteral("False"));
    EXPECT_FALSE(state.SpecialFolder);
    EXPECT_TRUE(IsEnabled("Option1"));
    EXPECT_FALSE(IsEnabled("LblFolder"));
}

TEST_F(OptionsPages, TheShadowIsSwitchedAtOnceAndItsBoxFollows)
{
    Click("xpcheckbox5");
    EXPECT_TRUE(state.UseShadows);
    EXPECT_TRUE(IsSet("xpcheckbox5"));
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow On"));
    EXPECT_EQ(Stored("UseShadows"), QStringLiteral("True"));
    Click("xpcheckbox5");
    EXPECT_FALSE(state.UseShadows);
    EXPECT_FALSE(IsSet("xpcheckbox5"));
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow Off"));
    EXPECT_EQ(Stored("UseShadows"), QStringLiteral("False"));
}

TEST_F(OptionsPages, TheShadowIsTurnedOverFromWhatIsInForceWhateverItsBoxShows)
{
    ASSERT_FALSE(IsSet("xpcheckbox5"));
    state.UseShadows = true; // meanwhile
    Click("xpcheckbox5");
    EXPECT_FALSE(state.UseShadows);
    EXPECT_EQ(Stored("UseShadows"), QStringLiteral("False"));
    EXPECT_FALSE(IsSet("xpcheckbox5"));
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow Off"));
}

TEST_F(OptionsPages, SlidersAndBoxesFollowEachOther)
{
    const struct {
        const char* box;
        const char* slider;
    } rows[] = { { "Label3", "HSlider1" }, { "Label6", "HSlider2" }, { "label12", "HSlider3" },
        { "label13", "HSlider4" } };
    for (const auto& row : rows) {
        Slider(row.slider).setValue(123);
        EXPECT_EQ(Edit(row.box).text(), QStringLiteral("123"));
        Edit(row.box).setText(QStringLiteral("45"));
        EXPECT_EQ(Slider(row.slider).value(), 45);
    }
}

TEST_F(OptionsPages, TheSecondsAreShownAsATime)
{
    Slider("HSlider2").setValue(3725);
    EXPECT_EQ(Label("LblTime"), QStringLiteral("01:02:05"));
    Edit("Label6").setText(QStringLiteral("7200"));
    EXPECT_EQ(Label("LblTime"), QStringLiteral("02:00:00"));
}

TEST_F(OptionsPages, NumberBoxesTakeDigitsOnly)
{
    for (const char* box : { "Label3", "Label6", "label12", "label13" }) {
        Edit(box).clear();
        QTest::keyClicks(&Edit(box), QStringLiteral("-1a2.x"));
        EXPECT_EQ(Edit(box).text(), QStringLiteral("12")) << box;
    }
}

TEST_F(OptionsPages, TheFolderIsBrowsedForFromTheOneInTheBoxAndKeptAtOnce)
{
    Store("SpecialFolder", "True");
    BeginWith("OldFolder", "/captures/old");
    frame.dialogs.folders.push(QStringLiteral(" /captures/new "));
    frame.dialogs.whileShown = [] { EXPECT_EQ(CurrentPointer(), Pointer::Normal); };
    Click("Cmds(1)");
    EXPECT_EQ(frame.dialogs.owner, form.get());
    EXPECT_EQ(frame.dialogs.title, QStringLiteral("Current: /captures/old"));
    EXPECT_EQ(frame.dialogs.folder, QStringLiteral("/captures/old"));
    EXPECT_EQ(Edit("LblFolder").text(), QStringLiteral("/captures/new"));
    EXPECT_EQ(Stored("OldFolder"), QStringLiteral("/captures/new"));
    EXPECT_EQ(state.OldFolder, QStringLiteral("/captures/new"));
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(OptionsPages, ACancelledFolderChangesNothing)
{
    BeginWith("SpecialFolder", "True");
    frame.dialogs.folders.push(QString());
    Click("Cmds(1)");
    EXPECT_EQ(Edit("LblFolder").text(), state.Beside(QStringLiteral("AutoSave")));
    EXPECT_EQ(Stored("OldFolder"), QStringLiteral("nothing"));
}

TEST_F(OptionsPages, ABackgroundIsBrowsedForKeptAtOnceAndTold)
{
    BeginWith("PicFolder", "/pictures/old.jpg");
    frame.dialogs.openNames.push(QStringLiteral("/pictures/lake.gif ") + QChar::Null);
    frame.errors.Expect(QStringLiteral("Wallpaper"),
        QStringLiteral("    The new wallpaper will be used the next time TAQ is run, or resized."));
    Click("Cmds(3)");
    EXPECT_EQ(frame.dialogs.owner, form.get());
    EXPECT_EQ(frame.dialogs.title, QStringLiteral("Select Background Picture"));
    EXPECT_EQ(frame.dialogs.filter, QStringLiteral("Graphic Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"));
    EXPECT_EQ(frame.dialogs.extension, QStringLiteral("jpg"));
    EXPECT_EQ(frame.dialogs.folder, QStringLiteral("/pictures/old.jpg"));
    EXPECT_EQ(Stored("PicFolder"), QStringLiteral("/pictures/lake.gif "));
    EXPECT_EQ(Label("lblPic"), QStringLiteral("/pictures/lake.gif"));
    Save();
    EXPECT_EQ(Stored("PicFolder"), QStringLiteral("/pictures/lake.gif "));
}

TEST_F(OptionsPages, ACancelledBackgroundIsSilent)
{
    frame.dialogs.openNames.push(QString());
    Click("Cmds(3)");
    EXPECT_EQ(Stored("PicFolder"), QStringLiteral("nothing"));
}

TEST_F(OptionsPages, ABackgroundThatCannotBeStoredIsToldInFrontOfTheWords)
{
    ASSERT_TRUE(QDir().mkpath(state.Settings.FilePath())) << "a folder in the file's place";
    frame.dialogs.openNames.push(QStringLiteral("/pictures/lake.gif"));
    frame.errors.Expect(QStringLiteral("Wallpaper"),
        QStringLiteral(
            "The picture could not be stored.    The new wallpaper will be used the next time TAQ is run, "
            "or resized."));
    Click("Cmds(3)");
}

TEST_F(OptionsPages, TheDialogMayGoWhileAQuestionStands)
{
    frame.dialogs.openNames.push(QStringLiteral("/pictures/lake.gif"));
    frame.dialogs.whileShown = [this] { form.reset(); };
    Button_XP* const browse = Find<Button_XP>("Cmds(3)");
    ComeTo(DisplayPage);
    Q_EMIT browse->Click();
    EXPECT_EQ(Stored("PicFolder"), QStringLiteral("nothing"));
}
