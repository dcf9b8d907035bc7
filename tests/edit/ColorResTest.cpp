#include "edit/ColorRes.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"

#include <QRadioButton>

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
    bool IsEnabled(const char* name) { return Option(name).isEnabled(); }
    int EnabledDitherings()
    {
        int enabled = 0;
        for (int index = 0; index < 8; ++index)
            enabled += IsEnabled(qPrintable(QStringLiteral("Dithering(%1)").arg(index)));
        return enabled;
    }
};

} // namespace

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
