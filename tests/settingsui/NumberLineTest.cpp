#include "settingsui/NumberLine.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class NumberLineTest : public testing::Test {
protected:
    QWidget window;
    QLineEdit* box = new QLineEdit(&window);
    QSlider* slider = new QSlider(&window);
    NumberLine* line = nullptr;

    void SetUp() override
    {
        slider->setRange(1, 1000);
        line = new NumberLine(*box, *slider);
        line->Show(10);
    }
    void Type(const char* keys)
    {
        box->selectAll();
        QTest::keyClicks(box, QString::fromLatin1(keys));
    }
};

} // namespace

TEST_F(NumberLineTest, ANumberBeyondTheSlidersEndBecomesTheEndWhileItIsTyped)
{
    Type("1001");
    EXPECT_EQ(box->text(), QStringLiteral("1000"));
    EXPECT_EQ(slider->value(), 1000);
    Type("99999999999999999999");
    EXPECT_EQ(box->text(), QStringLiteral("1000"));
}

TEST_F(NumberLineTest, ANumberBelowTheSlidersStartGivesWayWhenTheTypingEnds)
{
    Type("0");
    EXPECT_EQ(box->text(), QStringLiteral("0"));
    EXPECT_EQ(line->Value(), 1);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(box->text(), QStringLiteral("1"));
}

TEST_F(NumberLineTest, AnEmptiedBoxComesBackWithTheSlidersNumber)
{
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(slider->value(), 10);
    EXPECT_EQ(line->Value(), 10);
    Q_EMIT box->editingFinished();
    EXPECT_EQ(box->text(), QStringLiteral("10"));
}

TEST_F(NumberLineTest, LettersTypedInFrontLeaveTheNumberAndItsPlace)
{
    line->Show(345);
    box->setCursorPosition(1);
    QTest::keyClicks(box, QStringLiteral("x"));
    EXPECT_EQ(box->text(), QStringLiteral("345"));
    EXPECT_EQ(box->cursorPosition(), 1);
    EXPECT_EQ(slider->value(), 345);
}

TEST_F(NumberLineTest, ANumberThatTheSliderDoesNotReachStandsUntilItIsChanged)
{
    line->Show(5000);
    EXPECT_EQ(line->Value(), 5000);
    EXPECT_EQ(slider->value(), 1000);
    line->Show(-5);
    EXPECT_EQ(line->Value(), -5);
    line->Show(70000);
    EXPECT_EQ(line->Value(), 32767);
}

TEST_F(NumberLineTest, EveryMoveOfTheSliderIsTold)
{
    QSignalSpy moved(line, &NumberLine::Moved);
    slider->setValue(20);
    EXPECT_EQ(moved.last().first().toInt(), 20);
    Type("30");
    EXPECT_EQ(moved.last().first().toInt(), 30);
}
