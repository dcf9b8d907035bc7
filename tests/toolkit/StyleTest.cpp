#include "toolkit/Style.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include <cmath>
#include <gtest/gtest.h>

namespace {

double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(Token text, Token ground)
{
    const double a = Luminance(StyleColor(text)) + 0.05;
    const double b = Luminance(StyleColor(ground)) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

} // namespace

TEST(Style, EveryTokenHasAColour)
{
    for (int token = 0; token < static_cast<int>(Token::Count); ++token)
        EXPECT_TRUE(StyleColor(static_cast<Token>(token)).isValid()) << token;
}

TEST(Style, TextIsLegibleOnEveryGroundItStandsOn)
{
    for (const Token ground : { Token::Ground, Token::Strip, Token::Panel, Token::Control,
             Token::ControlHover, Token::ControlPressed }) {
        EXPECT_GE(Contrast(Token::Text, ground), 4.5) << static_cast<int>(ground);
        EXPECT_GE(Contrast(Token::TextSecondary, ground), 4.5) << static_cast<int>(ground);
    }
    for (const Token ground : { Token::Accent, Token::AccentHover, Token::AccentPressed })
        EXPECT_GE(Contrast(Token::OnAccent, ground), 4.5) << static_cast<int>(ground);
    EXPECT_GE(Contrast(Token::Accent, Token::Control), 4.5);
    EXPECT_GE(Contrast(Token::Text, Token::AccentGround), 4.5);
}

TEST(Style, TheGreysAreWithoutAnyTint)
{
    for (const Token grey :
        { Token::Ground, Token::Strip, Token::Panel, Token::Control, Token::LineInside }) {
        EXPECT_EQ(StyleColor(grey).red(), StyleColor(grey).green());
        EXPECT_EQ(StyleColor(grey).red(), StyleColor(grey).blue());
    }
}

TEST(Style, TheSheetIsWholeAndItsColoursAreThePalettesToo)
{
    const QFont font = QApplication::font();
    ApplyStyle(*qApp);
    EXPECT_FALSE(qApp->styleSheet().isEmpty());
    EXPECT_FALSE(qApp->styleSheet().contains(QLatin1Char('@')));
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), StyleColor(Token::Panel));
    EXPECT_EQ(QApplication::palette().color(QPalette::Highlight), StyleColor(Token::Accent));
    EXPECT_EQ(QApplication::font(), font);
    qApp->setStyleSheet(QString());
}
