#include "text/GetFonts.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "text/ColorWell.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/xpcheckbox.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class GetFontsTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    std::unique_ptr<GetFonts> form;
    QStringList asked;
    QColor answer;

    void SetUp() override
    {
        state.SFontName = QStringLiteral("DejaVu Sans");
        Store("UseShadows", "True");
        Begin();
    }
    void Begin()
    {
        form = std::make_unique<GetFonts>(
            frame, &frame.window, [this](QWidget* owner, const QString& title, const QColor& start) {
                EXPECT_EQ(owner, form.get());
                asked << title + u' ' + start.name();
                return answer;
            });
        form->show();
    }
    void Store(const char* key, const char* value)
    {
        ASSERT_TRUE(
            state.Settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), QLatin1String(value)));
    }
    QString Stored(const char* key)
    {
        return state.Settings.GetSetting(
            QStringLiteral("Options"), QLatin1String(key), QStringLiteral("nothing"));
    }
    template <typename Widget = QWidget> Widget* Find(const char* name)
    {
        return form->findChild<Widget*>(QLatin1String(name));
    }
    QLineEdit* Box(const char* name) { return Find<QLineEdit>(name); }
    QListWidget* List(const char* name) { return Find<QListWidget>(name); }
    void Choose(const char* list, const char* row)
    {
        const auto found = List(list)->findItems(QLatin1String(row), Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << row;
        List(list)->setCurrentItem(found.first());
    }
    void Click(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton); }
    QImage Shown() { return form->Sample().Bitmap(); }
};

} // namespace

TEST_F(GetFontsTest, ItsTitleIsGetFont)
{
    EXPECT_EQ(form->Head().Title(), QStringLiteral("Get Font"));
}

TEST_F(GetFontsTest, TheEffectsAreReadFromTheStoreIntoMemoryAndControls)
{
    Store("TextShadowPosX", "11");
    Store("TextShadowPosY", "12");
    Store("WatermarkTextStyle", "6");
    Store("sFontWatermarkTextAngle", "45");
    Store("sFontShadowColor", "255");
    Store("sFontBorderColor", "65280");
    Begin();
    EXPECT_TRUE(state.UseShadows);
    EXPECT_EQ(state.TextShadowPosX, 11);
    EXPECT_EQ(state.TextShadowPosY, 12);
    EXPECT_EQ(state.WatermarkTextStyle, 6);
    EXPECT_EQ(state.sFontWatermarkTextAngle, 45);
    EXPECT_EQ(state.sFontShadowColor, 255);
    EXPECT_EQ(state.sFontBorderColor, 65280);
    EXPECT_EQ(Find<xpcheckbox>("UseShadowYesNo")->Value(), xpcheckbox::Set);
    EXPECT_EQ(Box("TextShadowX")->text(), QStringLiteral("11"));
    EXPECT_EQ(Box("TextShadowY")->text(), QStringLiteral("12"));
    EXPECT_EQ(Box("TextAngle")->text(), QStringLiteral("45"));
    EXPECT_EQ(Find<QComboBox>("TextStyleCB")->currentIndex(), 6);
    EXPECT_EQ(Find<ColorWell>("PicBackColor")->Color(), QColor(255, 0, 0));
    EXPECT_EQ(Find<ColorWell>("BorderBackColor")->Color(), QColor(0, 255, 0));
}

TEST_F(GetFontsTest, WithNothingStoredTheDefaultsShow)
{
    EXPECT_EQ(Box("TextShadowX")->text(), QStringLiteral("2"));
    EXPECT_EQ(Box("TextShadowY")->text(), QStringLiteral("3"));
    EXPECT_EQ(Box("TextAngle")->text(), QStringLiteral("0"));
    EXPECT_EQ(Find<QComboBox>("TextStyleCB")->currentText(), QStringLiteral("Normal"));
}

TEST_F(GetFontsTest, TheListsSelectTheFontInForce)
{
    state.SFontName = QStringLiteral("DejaVu Serif");
    state.SFontSize = 24;
    state.SFontItalic = true;
    state.SFontBold = true;
    Begin();
    EXPECT_EQ(List("List1")->currentItem()->text(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(List("List2")->currentItem()->text(), QStringLiteral("Bold Italic"));
    EXPECT_EQ(List("List3")->currentItem()->text(), QStringLiteral("24"));
}

TEST_F(GetFontsTest, AFontOrSizeThatIsInNoListGetsARowAndIsKept)
{
    state.SFontName = QStringLiteral("No such font");
    state.SFontSize = 13.5;
    Begin();
    EXPECT_EQ(List("List1")->currentItem()->text(), QStringLiteral("No such font"));
    EXPECT_EQ(List("List3")->currentItem()->text(), QStringLiteral("13.5"));
    EXPECT_EQ(List("List3")->item(List("List3")->currentRow() + 1)->text(), QStringLiteral("14"));
    Click("CmdOK");
    EXPECT_EQ(Stored("SFontName"), QStringLiteral("No such font"));
    EXPECT_EQ(Stored("SFontSize"), QStringLiteral("13.5"));
}

TEST_F(GetFontsTest, TheStylesStandInTheOrderOfTheirNumbers)
{
    const auto* styles = Find<QComboBox>("TextStyleCB");
    QStringList names;
    for (int i = 0; i < styles->count(); ++i)
        names << styles->itemText(i);
    EXPECT_EQ(names.join(u'|'),
        QStringLiteral("Normal|Inset Light|Inset Heavy|Raised Light|Raised Heavy|DropShadow|BlockShadow|"
                       "Outline Block"));
}

TEST_F(GetFontsTest, AnAngleOutOfBoundsIsPutBackAtOnce)
{
    Box("TextAngle")->clear();
    QTest::keyClicks(Box("TextAngle"), QStringLiteral("361"));
    EXPECT_EQ(Box("TextAngle")->text(), QStringLiteral("360"));
    Box("TextAngle")->clear();
    QTest::keyClicks(Box("TextAngle"), QStringLiteral("-1"));
    EXPECT_EQ(Box("TextAngle")->text(), QStringLiteral("0"));
    Box("TextAngle")->setText(QStringLiteral("360"));
    EXPECT_EQ(Box("TextAngle")->text(), QStringLiteral("360"));
}

TEST_F(GetFontsTest, AnOffsetOutOfBoundsIsPutBackAtOnce)
{
    for (const char* name : { "TextShadowX", "TextShadowY" }) {
        Box(name)->setText(QStringLiteral("61"));
        EXPECT_EQ(Box(name)->text(), QStringLiteral("60"));
        Box(name)->setText(QStringLiteral("-1"));
        EXPECT_EQ(Box(name)->text(), QStringLiteral("0"));
        Box(name)->setText(QStringLiteral("60"));
        EXPECT_EQ(Box(name)->text(), QStringLiteral("60"));
    }
}

TEST_F(GetFontsTest, StoredNumbersOutOfBoundsShowAsTheBounds)
{
    Store("TextShadowPosX", "500");
    Store("sFontWatermarkTextAngle", "-20");
    Store("WatermarkTextStyle", "99");
    Begin();
    EXPECT_EQ(Box("TextShadowX")->text(), QStringLiteral("60"));
    EXPECT_EQ(Box("TextAngle")->text(), QStringLiteral("0"));
    EXPECT_EQ(Find<QComboBox>("TextStyleCB")->currentIndex(), 0);
}

TEST_F(GetFontsTest, SaveStoresEverythingInMemoryAndInTheStore)
{
    Box("TextShadowX")->setText(QStringLiteral("7"));
    Box("TextShadowY")->setText(QStringLiteral("8"));
    Box("TextAngle")->setText(QStringLiteral("90"));
    Find<QComboBox>("TextStyleCB")->setCurrentIndex(5);
    answer = QColor(1, 2, 3);
    for (const char* well : { "PicBackColor", "BorderBackColor", "FontColor" })
        Click(well);
    Choose("List1", "DejaVu Sans Mono");
    Choose("List2", "Bold Italic");
    Choose("List3", "36");
    Click("CmdOK");
    const struct {
        const char* key;
        const char* text;
    } expected[] = { { "UseShadows", "True" }, { "TextShadowPosX", "7" }, { "TextShadowPosY", "8" },
        { "WatermarkTextStyle", "5" }, { "sFontWatermarkTextAngle", "90" }, { "sFontShadowColor", "197121" },
        { "sFontBorderColor", "197121" }, { "SFontName", "DejaVu Sans Mono" }, { "SFontSize", "36" },
        { "SFontBold", "True" }, { "SFontItalic", "True" }, { "sFontColor", "197121" },
        { "sFontText", "This text is using the Arial font." } };
    for (const auto& row : expected)
        EXPECT_EQ(Stored(row.key), QLatin1String(row.text)) << row.key;
    EXPECT_EQ(state.TextShadowPosX, 7);
    EXPECT_EQ(state.TextShadowPosY, 8);
    EXPECT_EQ(state.WatermarkTextStyle, 5);
    EXPECT_EQ(state.sFontWatermarkTextAngle, 90);
    EXPECT_EQ(state.sFontShadowColor, 0x030201);
    EXPECT_EQ(state.sFontBorderColor, 0x030201);
    EXPECT_EQ(state.SFontName, QStringLiteral("DejaVu Sans Mono"));
    EXPECT_EQ(state.SFontSize, 36);
    EXPECT_TRUE(state.SFontBold);
    EXPECT_TRUE(state.SFontItalic);
    EXPECT_EQ(state.sFontColor, 0x030201);
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(GetFontsTest, SaveStoresTheKeysInTheirOrder)
{
    QFile::remove(state.Settings.FilePath());
    Click("CmdOK");
    QFile file(state.Settings.FilePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList keys;
    while (!file.atEnd())
        if (const QString line = QString::fromUtf8(file.readLine()); line.contains(u'='))
            keys << line.section(u'=', 0, 0);
    EXPECT_EQ(keys.mid(0, 7).join(u' '),
        QStringLiteral("UseShadows TextShadowPosX TextShadowPosY WatermarkTextStyle "
                       "sFontWatermarkTextAngle sFontShadowColor sFontBorderColor"));
}

TEST_F(GetFontsTest, AFontThatCannotBeStoredIsToldAndHoldsUntilTheProgramEnds)
{
    QFile::remove(state.Settings.FilePath());
    ASSERT_TRUE(QDir().mkpath(state.Settings.FilePath())) << "a folder where the file was";
    Choose("List3", "36");
    frame.errors.Expect(QStringLiteral("Error!"),
        QStringLiteral("The font could not be stored. It is used until the program ends."));
    Click("CmdOK");
    EXPECT_EQ(frame.errors.lastOwner, form.get());
    EXPECT_EQ(state.SFontSize, 36);
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(GetFontsTest, AnEmptyAngleIsNone)
{
    Store("sFontWatermarkTextAngle", "45");
    Begin();
    Box("TextAngle")->clear();
    Click("CmdOK");
    EXPECT_EQ(Stored("sFontWatermarkTextAngle"), QStringLiteral("0"));
    EXPECT_EQ(state.sFontWatermarkTextAngle, 0);
}

TEST_F(GetFontsTest, SaveStoresTheWordsInForce)
{
    state.sFontText = QStringLiteral("Harbour at dawn");
    Begin();
    Click("CmdOK");
    EXPECT_EQ(Stored("sFontText"), QStringLiteral("Harbour at dawn"));
}

TEST_F(GetFontsTest, WhatWasReadFromTheStoreHoldsAfterCancelToo)
{
    state.TextShadowPosX = 9;
    Store("TextShadowPosX", "4");
    Begin();
    Click("Cmds(0)");
    EXPECT_EQ(state.TextShadowPosX, 4);
}

TEST_F(GetFontsTest, CancelStoresNothing)
{
    Box("TextAngle")->setText(QStringLiteral("90"));
    Choose("List3", "36");
    Click("Cmds(0)");
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_EQ(Stored("sFontWatermarkTextAngle"), QStringLiteral("nothing"));
    EXPECT_EQ(state.sFontWatermarkTextAngle, 0);
    EXPECT_EQ(state.SFontSize, 10);
}

TEST_F(GetFontsTest, TheSampleFollowsEveryControl)
{
    QImage before = Shown();
    const auto hasChanged = [&] { return std::exchange(before, Shown()) != Shown(); };
    answer = Qt::red;
    Choose("List3", "36");
    EXPECT_TRUE(hasChanged());
    Choose("List1", "DejaVu Sans Mono");
    EXPECT_TRUE(hasChanged());
    Choose("List2", "Italic");
    EXPECT_TRUE(hasChanged());
    Click("FontColor");
    EXPECT_TRUE(hasChanged());
    Find<QComboBox>("TextStyleCB")->setCurrentIndex(7);
    EXPECT_TRUE(hasChanged());
    Click("PicBackColor");
    EXPECT_TRUE(hasChanged());
    answer = Qt::green;
    Click("BorderBackColor");
    EXPECT_TRUE(hasChanged());
    Box("TextShadowX")->setText(QStringLiteral("9"));
    EXPECT_TRUE(hasChanged());
    Box("TextShadowY")->setText(QStringLiteral("9"));
    EXPECT_TRUE(hasChanged());
    Box("TextAngle")->setText(QStringLiteral("9"));
    EXPECT_TRUE(hasChanged());
    Click("UseShadowYesNo");
    EXPECT_TRUE(hasChanged());
}

TEST_F(GetFontsTest, TheSampleShowsBoldThatCapturesDoNotGet)
{
    const QImage regular = Shown();
    Choose("List2", "Bold");
    EXPECT_NE(Shown(), regular);
    EXPECT_TRUE(form->Sample().Font.Bold);
}

TEST_F(GetFontsTest, TheSampleControlBearsTheChosenFont)
{
    answer = Qt::red;
    Click("FontColor");
    Choose("List1", "DejaVu Sans Mono");
    Choose("List3", "36");
    Choose("List2", "Italic");
    Click("CmdOK");
    EXPECT_EQ(form->Sample().Font.Name, QStringLiteral("DejaVu Sans Mono"));
    EXPECT_EQ(form->Sample().Font.size, 36);
    EXPECT_TRUE(form->Sample().Font.Italic);
    EXPECT_FALSE(form->Sample().Font.Bold);
    EXPECT_EQ(form->Sample().DrawFontColor, 255u);
}

TEST_F(GetFontsTest, TheSampleShowsTextWhereverCapturesHaveIt)
{
    state.PositionX = 4000;
    state.PositionY = -700;
    Begin();
    QImage blank = Shown();
    blank.fill(Qt::white);
    EXPECT_NE(Shown(), blank);
}

TEST_F(GetFontsTest, ABlankTextShowsTheFontsName)
{
    state.sFontText = QStringLiteral("  ");
    Begin();
    const QImage shown = Shown();
    state.sFontText = QStringLiteral("DejaVu Sans");
    Begin();
    EXPECT_EQ(Shown(), shown);
}

TEST_F(GetFontsTest, TheBackgroundSwitchesFromWhiteToBlackAndBack)
{
    const QPoint corner = Shown().rect().bottomRight();
    EXPECT_EQ(Shown().pixelColor(corner), QColor(Qt::white));
    Click("Command1");
    EXPECT_EQ(Shown().pixelColor(corner), QColor(Qt::black));
    Click("Command1");
    EXPECT_EQ(Shown().pixelColor(corner), QColor(Qt::white));
}

TEST_F(GetFontsTest, WithoutShadowsTheEffectsCannotBeChanged)
{
    Click("UseShadowYesNo");
    EXPECT_EQ(Find<xpcheckbox>("UseShadowYesNo")->Value(), xpcheckbox::Clear);
    for (const char* name :
        { "TextShadowX", "TextShadowY", "TextAngle", "TextStyleCB", "PicBackColor", "BorderBackColor" })
        EXPECT_FALSE(Find(name)->isEnabled()) << name;
    EXPECT_TRUE(Find("FontColor")->isEnabled());
    Click("CmdOK");
    EXPECT_EQ(Stored("UseShadows"), QStringLiteral("False"));
    EXPECT_FALSE(state.UseShadows);
}

TEST_F(GetFontsTest, AColourIsAskedForFromTheOneInForceAndCancelKeepsIt)
{
    Store("sFontShadowColor", "255");
    Begin();
    Click("PicBackColor");
    EXPECT_EQ(asked, QStringList(QStringLiteral("Shadow Color #ff0000")));
    EXPECT_EQ(Find<ColorWell>("PicBackColor")->Color(), QColor(Qt::red));
    Click("BorderBackColor");
    EXPECT_EQ(asked.last(), QStringLiteral("Border Color #000000"));
}

TEST_F(GetFontsTest, TheControlsBearTheirCaptionsAndTips)
{
    EXPECT_EQ(Find("BorderBackColor")->toolTip(), QStringLiteral("Font outline color."));
    EXPECT_EQ(Find("PicBackColor")->toolTip(), QStringLiteral("Font shadow color."));
    EXPECT_EQ(Find("Command1")->toolTip(), QStringLiteral("Switch background color from white to black."));
    EXPECT_EQ(Find<xpcheckbox>("UseShadowYesNo")->Caption(), QStringLiteral("Use Drop Down Shadow?"));
    QStringList captions;
    for (const QLabel* label : form->findChildren<QLabel*>())
        captions << label->text();
    EXPECT_TRUE(captions.contains(QStringLiteral("Shadow Offset:")));
    EXPECT_TRUE(captions.contains(QStringLiteral("Shadow Style:")));
    state.ToolTip = false;
    Begin();
    EXPECT_EQ(Find("PicBackColor")->toolTip(), QString());
}

TEST_F(GetFontsTest, NobodyIsKeptOut)
{
    EXPECT_EQ(AccessFaults(*form), "");
}
