#include "app/Hourglass.h"
#include "settingsui/FontWords.h"
#include "tests/settingsui/OptionsFixture.h"
#include "tests/testing/Files.h"
#include "tests/testing/RunningDialog.h"
#include "text/GetFonts.h"

#include <QListWidget>
#include <QPlainTextEdit>

namespace {

class OptionsFont : public OptionsFixture {
protected:
    void SetUp() override
    {
        Store("SFontName", "DejaVu Sans");
        state.Reload(Key::SFontName);
        Begin();
    }
    /// Chooses rows in the lists of the font dialog and saves.
    void Choose(const char* style, const char* size)
    {
        WhenOpen<GetFonts>([style, size](GetFonts& fonts) {
            const auto choose = [&fonts](const char* list, const char* row) {
                auto* rows = fonts.findChild<QListWidget*>(QLatin1String(list));
                rows->setCurrentItem(rows->findItems(QLatin1String(row), Qt::MatchExactly).value(0));
            };
            choose("List1", "DejaVu Serif");
            choose("List2", style);
            choose("List3", size);
            QTest::mouseClick(fonts.findChild<QWidget*>(QStringLiteral("FontColor")), Qt::LeftButton);
            QTest::mouseClick(fonts.findChild<QWidget*>(QStringLiteral("UseShadowYesNo")), Qt::LeftButton);
            QTest::mouseClick(fonts.findChild<QWidget*>(QStringLiteral("CmdOK")), Qt::LeftButton);
        });
        answer = QColor(Qt::red);
        Click("Cmds(5)");
    }
};

} // namespace

TEST_F(OptionsFont, AChosenFontIsShownAndKeptAtOnce)
{
    Choose("Bold Italic", "36");
    EXPECT_EQ(Stored("SFontSize"), QStringLiteral("36"));
    EXPECT_EQ(Stored("SFontItalic"), QStringLiteral("True"));
    EXPECT_EQ(Stored("SFontName"), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(Stored("SFontBold"), QStringLiteral("True"));
    EXPECT_EQ(Stored("sFontColor"), QStringLiteral("255"));
    EXPECT_EQ(state.SFontSize, 36);
    EXPECT_EQ(Label("FontLabel"), QStringLiteral("Font: DejaVu Serif   Size: 36"));
    EXPECT_EQ(Find("ColorBox")->palette().color(QPalette::Window), QColor(Qt::red));
    EXPECT_EQ(Find("Text1")->font().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(Find("Text1")->font().pointSize(), 36);
    EXPECT_EQ(Label("Label14"), QStringLiteral("Bold"));
    EXPECT_EQ(Label("Label15"), QStringLiteral("Italic Bold"));
    EXPECT_TRUE(Find("Label15")->font().bold());
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(OptionsFont, WhatTheStoreRefusedOfAFontIsToldAtTheEndToo)
{
    const auto settings = state.Settings.FilePath();
    QFile::remove(settings);
    ASSERT_TRUE(QDir().mkpath(settings)) << "a folder where the file was";
    frame.errors.Expect(QStringLiteral("Error!"),
        QStringLiteral("The font could not be stored. It is used until the program ends."));
    frame.errors.Expect(QStringLiteral("Error!"),
        QStringLiteral("The options could not be stored. They are used until the program ends."));
    Choose("Bold", "36");
    form->reject();
    Begin();
    EXPECT_EQ(Label("FontLabel"), QStringLiteral("Font: DejaVu Serif   Size: 36"));
    EXPECT_EQ(Label("Label14"), QStringLiteral("Bold"));
}

TEST_F(OptionsFont, TheShadowFollowsTheFontDialog)
{
    ASSERT_FALSE(IsSet("xpcheckbox5"));
    Choose("Regular", "12");
    EXPECT_TRUE(state.UseShadows);
    EXPECT_TRUE(IsSet("xpcheckbox5"));
    EXPECT_EQ(Label("LabelShadow"), QStringLiteral("Shadow On"));
}

TEST_F(OptionsFont, AnUprightFontReadsRegularOnceItWasChosen)
{
    ASSERT_EQ(Label("Label15"), QStringLiteral("Italic Bold"));
    Choose("Bold", "12");
    EXPECT_EQ(Label("Label15"), QStringLiteral("Regular"));
    EXPECT_FALSE(Find("Label15")->font().bold());
    EXPECT_FALSE(Find("Label15")->font().italic());
}

TEST_F(OptionsFont, ItalicAloneReadsItalicInPlainTypeOnceItWasChosen)
{
    Choose("Italic", "12");
    EXPECT_EQ(Label("Label15"), QStringLiteral("Italic"));
    EXPECT_FALSE(Find("Label15")->font().bold());
}

TEST_F(OptionsFont, WordsThatAreNotSavedYetStayWhenAFontIsChosen)
{
    Find<QPlainTextEdit>("Text1")->setPlainText(QStringLiteral("Summer"));
    Choose("Italic", "12");
    EXPECT_EQ(Find<QPlainTextEdit>("Text1")->toPlainText(), QStringLiteral("Summer"));
}

TEST_F(OptionsFont, ACancelledFontChangesNothing)
{
    const QByteArray before = FileBytes(state.Settings.FilePath());
    WhenOpen<GetFonts>([](GetFonts& fonts) {
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
        fonts.reject();
    });
    Click("Cmds(5)");
    EXPECT_EQ(FileBytes(state.Settings.FilePath()), before);
    EXPECT_EQ(Label("Label15"), QStringLiteral("Italic Bold"));
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST(FontWordsTest, TheWordsForASlantAreOthersOnceAFontWasChosen)
{
    using namespace FontWords;
    EXPECT_EQ(SlantAtOpening(true), (FontWord { "Italic", true, false }));
    EXPECT_EQ(SlantAtOpening(false), (FontWord { "Italic Bold", false, false }));
    EXPECT_EQ(SlantOfChosen(true, true), (FontWord { "Italic Bold", true, true }));
    EXPECT_EQ(SlantOfChosen(true, false), (FontWord { "Italic", false, true }));
    EXPECT_EQ(SlantOfChosen(false, true), (FontWord { "Regular" }));
    EXPECT_EQ(SlantOfChosen(false, false), (FontWord { "Regular" }));
}
