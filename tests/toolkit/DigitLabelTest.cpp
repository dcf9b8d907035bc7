#include "toolkit/DigitLabel.h"

#include "toolkit/ElidedLabel.h"

#include <QFontDatabase>

#include <gtest/gtest.h>

TEST(DigitLabel, TextsThatDifferInDigitsOnlyAreOfOneWidth)
{
    DigitLabel label;
    for (const QString& family : QFontDatabase::families()) {
        label.setFont(QFont(family, 11));
        label.setText(QStringLiteral("00:00:00"));
        const int width = label.sizeHint().width();
        label.setText(QStringLiteral("11:11:11"));
        EXPECT_EQ(label.sizeHint().width(), width) << family.toStdString();
    }
}

TEST(DigitLabel, TheSampleKeepsItsRoom)
{
    DigitLabel label;
    label.SetSample(QStringLiteral("00:00:00  -  00:00:00"));
    const int width = label.sizeHint().width();
    label.setText(QStringLiteral("1"));
    EXPECT_EQ(label.sizeHint().width(), width);
}

TEST(DigitLabel, AChangingDigitLeavesTheOthersInTheirPlace)
{
    DigitLabel label;
    label.setText(QStringLiteral("10:00:03"));
    label.resize(label.sizeHint());
    const QImage before = label.grab().toImage();
    label.setText(QStringLiteral("10:00:01"));
    const QImage after = label.grab().toImage();
    const QRect allButTheLast(0, 0, before.width() * 7 / 8 - 2, before.height());
    EXPECT_EQ(before.copy(allButTheLast), after.copy(allButTheLast));
    EXPECT_NE(before, after);
}

TEST(ElidedLabel, ATextWiderThanItselfStaysWholeAndTheLabelMayShrink)
{
    ElidedLabel label;
    label.setText(QStringLiteral("A very long title of a window that nobody could read in so little room"));
    label.resize(60, 20);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    EXPECT_TRUE(label.text().startsWith(QLatin1String("A very long")));
}

TEST(ElidedLabel, TheNameAtTheEndOfAPathStaysInSight)
{
    ElidedLabel whole;
    ElidedLabel other;
    whole.setText(QStringLiteral("/home/user/Videos/holidays/by the sea/Aurora.avi"));
    other.setText(QStringLiteral("/home/user/Videos/holidays/by the sea/Sunset.avi"));
    for (ElidedLabel* label : { &whole, &other })
        label->resize(160, 20);
    EXPECT_NE(whole.grab().toImage(), other.grab().toImage());
}
