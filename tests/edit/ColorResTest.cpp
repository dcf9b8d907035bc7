#include "edit/ColorRes.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ColorResTest : public testing::Test {
protected:
    FakeFrame frame;
    std::unique_ptr<ColorRes> form;

    void SetUp() override { frame.state.FadeOuts = false; }
    void Open(int bits)
    {
        form = std::make_unique<ColorRes>(frame, nullptr, bits);
        form->show();
    }
    QRadioButton& Option(const char* name) { return *form->findChild<QRadioButton*>(QLatin1String(name)); }
    bool IsSet(const char* name) { return Option(name).isChecked(); }
    static void ChooseAnother(const QRadioButton& option)
    {
        for (QRadioButton* const other : option.parentWidget()->findChildren<QRadioButton*>())
            if (other != &option)
                return other->setChecked(true);
    }
    bool IsEnabled(const char* name) { return Option(name).isEnabled(); }
    int EnabledDitherings()
    {
        int enabled = 0;
        for (int index = 0; index < 8; ++index)
            enabled += IsEnabled(qPrintable(QStringLiteral("Dithering(%1)").arg(index)));
        return enabled;
    }
};

struct Caption {
    const char* name;
    const char* text;
    const char* group;
    int bits; ///< a depth at which it can be chosen
};
constexpr Caption Captions[] {
    { "Bits(1)", "&1 Bit", "Pixel Depth", 8 },
    { "Bits(4)", "&4 Bits", "Pixel Depth", 8 },
    { "Bits(8)", "&8 Bits", "Pixel Depth", 24 },
    { "Bits(16)", "1&6 Bits", "Pixel Depth", 8 },
    { "Bits(24)", "&24 Bits", "Pixel Depth", 8 },
    { "Bits(32)", "&32 Bits", "Pixel Depth", 8 },
    { "Dithering(0)", "&No Dithering", "Dithering Methods", 8 },
    { "Dithering(1)", "&Floyd Stein", "Dithering Methods", 8 },
    { "Dithering(2)", "&Stucki", "Dithering Methods", 8 },
    { "Dithering(3)", "&Burkes", "Dithering Methods", 8 },
    { "Dithering(4)", "S&ierra", "Dithering Methods", 8 },
    { "Dithering(5)", "S&tevenson Arce", "Dithering Methods", 8 },
    { "Dithering(6)", "&Jarvis", "Dithering Methods", 8 },
    { "Dithering(7)", "&Ordered", "Dithering Methods", 8 },
    { "Palettes(1)", "Fi&xed", "Palettes", 8 },
    { "Palettes(2)", "O&ptimized", "Palettes", 8 },
    { "Palettes(8)", "I&dentity", "Palettes", 8 },
    { "Palettes(0)", "Order &RGB", "High Color", 24 },
    { "Palettes(4)", "Order &BGR", "High Color", 24 },
};

} // namespace

TEST_F(ColorResTest, TheOptionsBearTheirCaptionsEachInItsGroup)
{
    Open(24);
    for (const Caption& caption : Captions) {
        EXPECT_EQ(Option(caption.name).text(), QLatin1String(caption.text));
        const auto* group = qobject_cast<QGroupBox*>(Option(caption.name).parentWidget());
        EXPECT_TRUE(group && group->title() == QLatin1String(caption.group)) << caption.name;
    }
    EXPECT_EQ(form->findChildren<QRadioButton*>().size(), qsizetype(std::size(Captions)));
}

TEST_F(ColorResTest, TheUnderlinedLetterOfAnOptionChoosesIt)
{
    for (const Caption& caption : Captions) {
        Open(caption.bits);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        ChooseAnother(Option(caption.name));
        ASSERT_FALSE(IsSet(caption.name)) << caption.name;
        const QKeySequence mnemonic = QKeySequence::mnemonic(QLatin1String(caption.text));
        QTest::keyClick(form.get(), mnemonic[0].key(), Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return IsSet(caption.name); })) << caption.name;
    }
}

TEST_F(ColorResTest, ATrueColourPictureHasItsDitheringGreyAndBgrChosen)
{
    for (const int bits : { 16, 24, 32 }) {
        Open(bits);
        EXPECT_EQ(form->GetBits(), bits);
        EXPECT_EQ(form->GetPalette(), 4);
        EXPECT_EQ(form->GetDither(), 0);
        EXPECT_EQ(EnabledDitherings(), 0);
        EXPECT_TRUE(IsEnabled("Palettes(0)") && IsEnabled("Palettes(4)"));
        EXPECT_FALSE(IsEnabled("Palettes(1)") || IsEnabled("Palettes(2)") || IsEnabled("Palettes(8)"));
    }
}

TEST_F(ColorResTest, APalettePictureHasFloydSteinAndFixedChosen)
{
    for (const int bits : { 1, 4, 8 }) {
        Open(bits);
        EXPECT_EQ(form->GetBits(), bits);
        EXPECT_EQ(form->GetPalette(), 1);
        EXPECT_EQ(form->GetDither(), 1);
        EXPECT_EQ(EnabledDitherings(), 8);
        EXPECT_FALSE(IsEnabled("Palettes(0)") || IsEnabled("Palettes(4)"));
        EXPECT_TRUE(IsSet("Palettes(4)"));
    }
}

TEST_F(ColorResTest, GoingTo8BitsLightsTheDitheringWithWhatWasSet)
{
    Open(24);
    Option("Bits(8)").click();
    EXPECT_EQ(EnabledDitherings(), 8);
    EXPECT_TRUE(IsSet("Dithering(0)"));
    EXPECT_TRUE(IsEnabled("Palettes(1)"));
    EXPECT_FALSE(IsEnabled("Palettes(4)"));
    EXPECT_EQ(form->GetPalette(), 1);
    Option("Bits(32)").click();
    EXPECT_EQ(EnabledDitherings(), 0);
    EXPECT_EQ(form->GetPalette(), 4);
}

TEST_F(ColorResTest, TheGroupsDoNotClearEachOther)
{
    Open(8);
    Option("Palettes(8)").click();
    Option("Dithering(7)").click();
    Option("Bits(4)").click();
    EXPECT_EQ(form->GetBits(), 4);
    EXPECT_EQ(form->GetPalette(), 8);
    EXPECT_EQ(form->GetDither(), 7);
}

TEST_F(ColorResTest, OnlyAcceptIsAYes)
{
    Open(24);
    QTest::mouseClick(form->findChild<QWidget*>(QStringLiteral("Cmd2")), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(form->UserResult());
    Open(24);
    QTest::mouseClick(form->findChild<QWidget*>(QStringLiteral("Cmd1")), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->UserResult());
}

TEST_F(ColorResTest, EveryControlHasANameAndIsReachedByKeys)
{
    Open(24);
    EXPECT_EQ(AccessFaults(*form), "");
}
