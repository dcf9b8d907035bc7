#include "toolkit/Button_XP.h"

#include "toolkit/LinkOpener.h"
#include "toolkit/Style.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QMdiSubWindow>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class NotedLinks : public LinkOpener {
public:
    QStringList opened;
    QWidget* owner = nullptr;
    void OpenDocument(const QString& address, QWidget* window) override
    {
        opened << QStringLiteral("open ") + address;
        owner = window;
    }
    void NavigateTo(const QString& address) override { opened << QStringLiteral("go ") + address; }
};

/// Stands in for the desktop's programs.
class Desktop : public QObject {
    Q_OBJECT

public:
    Desktop()
    {
        for (const char* scheme : Schemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Open");
    }
    ~Desktop() override
    {
        for (const char* scheme : Schemes)
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    QString TakeOpened() { return std::exchange(opened_, {}); }
    Q_INVOKABLE void Open(const QUrl& url) { opened_ = url.toString(); }

private:
    static constexpr const char* Schemes[] { "http", "mailto" };
    QString opened_;
};

/// A button on a form with room beside it, the pointer out of the way.
class ButtonXPTest : public testing::Test {
protected:
    using P = ButtonProperties;
    NotedLinks links;
    QWidget form;
    Button_XP* button = new Button_XP(&form);
    QSignalSpy clicks { button, &Button_XP::Click };

    void SetUp() override
    {
        form.resize(300, 200);
        button->setGeometry(50, 50, 100, 30);
        button->SetLinkOpener(links);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        TakePointerAway();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !button->Flags().over; }));
        button->clearFocus();
    }
    QPoint Centre() const { return button->rect().center(); }
    void PutPointerInside()
    {
        QCursor::setPos(button->mapToGlobal(Centre()));
        QTest::mouseMove(button, Centre());
    }
    void TakePointerAway() { QCursor::setPos(form.mapToGlobal(QPoint(250, 150))); }
    void SlideOffAndWait()
    {
        QSignalSpy leaves(button, &Button_XP::MouseLeave);
        TakePointerAway();
        ASSERT_TRUE(QTest::qWaitFor([&] { return leaves.size() == 1; }));
    }
    QImage Look() { return button->grab().toImage(); }
    /// Writes the button's events down between the links that it opens.
    void NoteEvents()
    {
        const auto note = [this](const char* event) { links.opened << QLatin1String(event); };
        QObject::connect(button, &Button_XP::Click, &form, [note] { note("click"); });
        QObject::connect(button, &Button_XP::MouseUp, &form, [note] { note("up"); });
        QObject::connect(button, &Button_XP::KeyUp, &form, [note] { note("key up"); });
    }
};

QIcon Plain(QColor color)
{
    QPixmap picture(32, 32);
    picture.fill(color);
    return QIcon(picture);
}

} // namespace

TEST_F(ButtonXPTest, ANewButtonIsWhatTheDefaultsMakeIt)
{
    button->resize(100, 80);
    button->SetCaption(QStringLiteral("H"));
    button->Set(&P::Picture, Plain(Qt::red));
    button->setFocus();
    // The default shows nothing new, something else does.
    const auto expectDefault = [this](const char* name, auto property, auto byDefault, auto other) {
        const QImage fresh = Look();
        button->Set(property, byDefault);
        EXPECT_EQ(Look(), fresh) << name;
        button->Set(property, other);
        EXPECT_NE(Look(), fresh) << name;
        button->Set(property, byDefault);
    };
    expectDefault("BackColor", &P::BackColor, 0x8000000FU, 0x000000FFU);
    expectDefault("ForeColor", &P::ForeColor, 0x80000012U, 0x000000FFU);
    expectDefault("ShowFocusRect", &P::ShowFocusRect, 1, 0);
    expectDefault("PicturePosition", &P::PicturePosition, 1, 0);
    expectDefault("ButtonStyle", &P::ButtonStyle, 2, 4);
    expectDefault("PictureWidth", &P::PictureWidth, 32, 8);
    expectDefault("PictureHeight", &P::PictureHeight, 32, 8);
    expectDefault("XPShowBorderAlways", &P::XPShowBorderAlways, 0, 1);
    expectDefault("TransparentBG", &P::TransparentBG, 0, 1);
    expectDefault("BEVEL", &P::BEVEL, 0, 1);
}

TEST_F(ButtonXPTest, WhatAnotherPropertyUncoversOfANewButtonIsAsTold)
{
    button->resize(100, 80);
    button->SetCaption({});
    button->Set(&P::Picture, Plain(Qt::red));
    const auto keepsLook = [this](auto property, auto told) {
        const QImage before = Look();
        button->Set(property, told);
        return Look() == before;
    };
    const QImage sized = Look();
    button->Set(&P::PictureSize, 1);
    EXPECT_EQ(Look(), sized) << "the original size is the drawn one";
    button->Set(&P::BEVEL, 1);
    EXPECT_TRUE(keepsLook(&P::BEVELDEPTH, 8));
    EXPECT_FALSE(keepsLook(&P::BEVELDEPTH, 4));
    button->Set(&P::BEVEL, 0);
    PutPointerInside();
    EXPECT_TRUE(keepsLook(&P::XPDefaultColors, 1));
    button->Set(&P::XPDefaultColors, 0);
    EXPECT_TRUE(keepsLook(&P::XPColor_Hover, 0x80000016U));
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_TRUE(keepsLook(&P::XPColor_Pressed, 0x80000014U));
    button->Set(&P::Picture, Plain(Qt::black));
    button->Set(&P::ButtonStyle, ButtonStyle::Shaped);
    EXPECT_TRUE(button->mask().isEmpty()) << "black is what is cut out";
}

TEST_F(ButtonXPTest, ANewButtonIsEnabledHasNoLinkAndKeepsTheNamesOfItsSounds)
{
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(button->cursor().shape(), form.cursor().shape());
    const P& p = button->Properties();
    EXPECT_EQ(p.URL, QString());
    EXPECT_EQ(p.SoundOver, QStringLiteral(".\\resources\\over.wav"));
    EXPECT_EQ(p.SoundClick, QStringLiteral(".\\resources\\click.wav"));
}

TEST_F(ButtonXPTest, ByItselfItHandsLinksToTheDesktop)
{
    Desktop desktop;
    for (const auto& [url, opened] : { std::pair("mailto:a@example.org", "mailto:a@example.org"),
             { "http://example.org/a", "http://example.org/a" }, { "example.org", "http://example.org" } }) {
        Button_XP plain;
        plain.Set(&P::URL, QLatin1String(url));
        plain.GoToURL();
        EXPECT_EQ(desktop.TakeOpened(), QLatin1String(opened));
    }
}

TEST_F(ButtonXPTest, ItsNameIsItsCaptionUntilOneIsSet)
{
    button->setObjectName(QStringLiteral("Button_XP1"));
    EXPECT_EQ(button->Caption(), QStringLiteral("Button_XP1"));
    button->SetCaption(QStringLiteral("Accept"));
    button->setObjectName(QStringLiteral("Cmds(0)"));
    EXPECT_EQ(button->Caption(), QStringLiteral("Accept"));
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), QStringLiteral("Accept"));
}

TEST_F(ButtonXPTest, APressAndAReleaseInsideAreOneClick)
{
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_TRUE(button->Flags().pressed);
    EXPECT_EQ(clicks.size(), 0);
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_FALSE(button->Flags().pressed);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(ButtonXPTest, AReleaseOutsideIsNoClick)
{
    QTest::mousePress(button, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-5, 10));
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_TRUE(links.opened.isEmpty());
    EXPECT_FALSE(button->Flags().pressed);
}

TEST_F(ButtonXPTest, AReleaseOnTheFarEdgesIsInsideAndOnePixelFurtherOutside)
{
    const int width = button->width();
    const int height = button->height();
    for (const auto& [place, count] :
        { std::pair(QPoint(width, 5), 1), { QPoint(5, height), 2 }, { QPoint(0, 0), 3 },
            { QPoint(width + 1, 5), 3 }, { QPoint(5, height + 1), 3 }, { QPoint(-1, 5), 3 } }) {
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton, {}, place);
        EXPECT_EQ(clicks.size(), count) << place.x() << "," << place.y();
    }
}

TEST_F(ButtonXPTest, ARightPressIsToldAndChangesNothing)
{
    QSignalSpy downs(button, &Button_XP::MouseDown);
    QSignalSpy ups(button, &Button_XP::MouseUp);
    const QImage before = Look();
    QTest::mousePress(button, Qt::RightButton);
    EXPECT_FALSE(button->Flags().pressed || button->hasFocus());
    EXPECT_EQ(Look(), before);
    QTest::mouseRelease(button, Qt::RightButton);
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_EQ(downs.size(), 1);
    EXPECT_EQ(ups.size(), 1);
}

TEST_F(ButtonXPTest, AnyOtherPressTakesTheFocus)
{
    for (const Qt::MouseButton press : { Qt::LeftButton, Qt::MiddleButton }) {
        button->clearFocus();
        QTest::mousePress(button, press);
        EXPECT_TRUE(button->hasFocus());
        QTest::mouseRelease(button, press);
    }
}

TEST_F(ButtonXPTest, ThePointerThatComesIsToldBeforeItsMove)
{
    QStringList told;
    QObject::connect(button, &Button_XP::MouseEnter, &form, [&] { told << QStringLiteral("enter"); });
    QObject::connect(button, &Button_XP::MouseMove, &form, [&] { told << QStringLiteral("move"); });
    QTest::mouseMove(button, Centre());
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() >= 2; }));
    EXPECT_EQ(told.first(2), (QStringList { "enter", "move" }));
}

TEST_F(ButtonXPTest, AReleaseClicksThenOpensTheLinkThenIsTold)
{
    button->Set(&P::URL, QStringLiteral("http://example.org"));
    NoteEvents();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(links.opened, (QStringList { "click", "go http://example.org", "up" }));
}

TEST_F(ButtonXPTest, SpaceOpensTheLinkThenActsAsAReleaseAndIsToldLast)
{
    button->Set(&P::URL, QStringLiteral("http://example.org"));
    NoteEvents();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(links.opened,
        (QStringList { "go http://example.org", "click", "go http://example.org", "up", "key up" }));
}

TEST_F(ButtonXPTest, AKeyIsHeldUntilItsReleaseIsThrough)
{
    QObject::connect(button, &Button_XP::Click, &form, [this] { QTest::keyPress(button, Qt::Key_Space); });
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_FALSE(button->Flags().pressed);
    QTest::keyPress(button, Qt::Key_Space);
    EXPECT_TRUE(button->Flags().pressed);
}

TEST_F(ButtonXPTest, HeldAndBackUnderThePointerItLooksPressedAgainAndAReleaseClicks)
{
    PutPointerInside();
    QTest::mousePress(button, Qt::LeftButton);
    const QImage held = Look();
    SlideOffAndWait();
    ASSERT_NE(Look(), held);
    PutPointerInside();
    ASSERT_TRUE(QTest::qWaitFor([this] { return button->Flags().over; }));
    EXPECT_EQ(Look(), held);
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(ButtonXPTest, ADisabledButtonDoesNotNoticeThePointer)
{
    QSignalSpy enters(button, &Button_XP::MouseEnter);
    button->setEnabled(false);
    const QImage before = Look();
    QEnterEvent enter(Centre(), Centre(), button->mapToGlobal(Centre()));
    QCoreApplication::sendEvent(button, &enter);
    EXPECT_FALSE(button->Flags().over);
    EXPECT_EQ(enters.size(), 0);
    EXPECT_EQ(Look(), before);
}

TEST_F(ButtonXPTest, ADoubleClickIsTwoPressesOfTheSameArguments)
{
    QSignalSpy downs(button, &Button_XP::MouseDown);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(7, 8));
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(9, 9), button->mapToGlobal(QPointF(9, 9)),
        Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(button, &second);
    EXPECT_TRUE(button->Flags().pressed);
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 2);
    ASSERT_EQ(downs.size(), 2);
    EXPECT_EQ(downs[1], downs[0]);
}

TEST_F(ButtonXPTest, ThePointerComesAndGoesWithAnEventEach)
{
    QSignalSpy enters(button, &Button_XP::MouseEnter);
    QSignalSpy moves(button, &Button_XP::MouseMove);
    const QImage rest = Look();
    PutPointerInside();
    ASSERT_TRUE(QTest::qWaitFor([&] { return enters.size() == 1 && !moves.isEmpty(); }));
    EXPECT_TRUE(button->Flags().over);
    EXPECT_NE(Look(), rest);
    SlideOffAndWait();
    EXPECT_FALSE(button->Flags().over);
    EXPECT_EQ(Look(), rest);
}

TEST_F(ButtonXPTest, HeldWhileThePointerSlidesOffItLooksUpAndAReleaseThereIsNoClick)
{
    PutPointerInside();
    QTest::mousePress(button, Qt::LeftButton);
    const QImage held = Look();
    SlideOffAndWait();
    EXPECT_TRUE(button->Flags().pressed);
    EXPECT_FALSE(button->ShownFlags().pressed);
    EXPECT_NE(Look(), held);
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(150, 80));
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_FALSE(button->Flags().pressed);
}

TEST_F(ButtonXPTest, TheHoverPictureStandsWhileThePointerIsOver)
{
    button->resize(60, 60);
    button->SetCaption({});
    button->Set(&P::Picture, Plain(Qt::red));
    button->Set(&P::PictureHover, Plain(Qt::green));
    EXPECT_EQ(Look().pixelColor(30, 30), QColor(Qt::red));
    PutPointerInside();
    EXPECT_EQ(Look().pixelColor(30, 30), QColor(Qt::green));
    SlideOffAndWait();
    EXPECT_EQ(Look().pixelColor(30, 30), QColor(Qt::red));
}

TEST_F(ButtonXPTest, ADisabledPictureIsDrawnOtherwise)
{
    button->resize(60, 60);
    button->Set(&P::Picture, Plain(Qt::red));
    button->setEnabled(false);
    EXPECT_NE(Look().pixelColor(30, 30), QColor(Qt::red));
}

TEST_F(ButtonXPTest, AClickFollowsAWebLinkByNavigationAndAMailByTheSystem)
{
    button->Set(&P::URL, QStringLiteral("http://example.org"));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(links.opened, QStringList { QStringLiteral("go http://example.org") });
    links.opened.clear();
    button->Set(&P::URL, QStringLiteral("mailto:a@example.org"));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(links.opened, QStringList { QStringLiteral("open mailto:a@example.org") });
    EXPECT_EQ(links.owner, &form);
}

TEST_F(ButtonXPTest, AMailIsOpenedForTheFormThatShowsTheLink)
{
    QMdiSubWindow child(&form);
    button->setParent(&child);
    button->Set(&P::URL, QStringLiteral("mailto:a@example.org"));
    button->GoToURL();
    EXPECT_EQ(links.owner, &child);
    button->setParent(&form);
}

TEST_F(ButtonXPTest, WithoutALinkNothingIsOpened)
{
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 2);
    EXPECT_TRUE(links.opened.isEmpty());
}

TEST_F(ButtonXPTest, SpaceClicksOnceAndOpensTheLinkTwice)
{
    button->Set(&P::URL, QStringLiteral("http://example.org"));
    QSignalSpy downs(button, &Button_XP::KeyDown);
    QSignalSpy ups(button, &Button_XP::KeyUp);
    QSignalSpy mouseUps(button, &Button_XP::MouseUp);
    button->setFocus();
    QTest::keyPress(button, Qt::Key_Space);
    EXPECT_TRUE(button->Flags().pressed);
    QTest::keyRelease(button, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(links.opened.size(), 2);
    EXPECT_EQ(downs.size(), 1);
    EXPECT_EQ(ups.size(), 1);
    ASSERT_EQ(mouseUps.size(), 1);
    EXPECT_EQ(mouseUps[0][2].toPoint(), QPoint(0, 0));
}

TEST_F(ButtonXPTest, AHeldSpaceClicksOnceHoweverOftenItRepeats)
{
    const auto send = [this](QEvent::Type type, bool isRepeat) {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), isRepeat);
        QCoreApplication::sendEvent(button, &event);
    };
    send(QEvent::KeyPress, false);
    for (int i = 0; i < 3; ++i) {
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyPress, true);
        EXPECT_TRUE(button->Flags().pressed);
    }
    EXPECT_EQ(clicks.size(), 0);
    send(QEvent::KeyRelease, false);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(ButtonXPTest, OtherKeysAreToldAndPressNothing)
{
    QSignalSpy downs(button, &Button_XP::KeyDown);
    QTest::keyClick(button, Qt::Key_A);
    EXPECT_EQ(downs.size(), 1);
    EXPECT_EQ(clicks.size(), 0);
}

TEST_F(ButtonXPTest, AnAidsPressIsAClickAndFollowsTheLink)
{
    button->Set(&P::URL, QStringLiteral("http://example.org"));
    QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks.size() == 1; }));
    EXPECT_EQ(links.opened.size(), 1);
}

TEST_F(ButtonXPTest, ADisabledButtonTakesNoPress)
{
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 0);
}

TEST_F(ButtonXPTest, AFormMayDeleteTheButtonInItsClick)
{
    QObject::connect(button, &Button_XP::Click, &form, [this] { delete button; });
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(form.findChildren<Button_XP*>().isEmpty());
}

TEST_F(ButtonXPTest, ASideUnderTenPixelsGrowsToTen)
{
    button->resize(5, 40);
    EXPECT_EQ(button->size(), QSize(10, 40));
}

TEST_F(ButtonXPTest, TheFocusMarkIsDrawnUnlessItIsOffOrTheButtonIsShaped)
{
    const auto marked = [this] { return Look().pixelColor(5, 15) == StyleColor(Token::Accent); };
    EXPECT_FALSE(marked());
    button->setFocus();
    ASSERT_TRUE(button->Flags().focused);
    EXPECT_TRUE(marked());
    button->Set(&P::ShowFocusRect, 0);
    EXPECT_FALSE(marked());
    button->Set(&P::ShowFocusRect, 1);
    button->Set(&P::ButtonStyle, ButtonStyle::Shaped);
    EXPECT_FALSE(marked());
}

TEST_F(ButtonXPTest, AShapedButtonIsItsPictureWithoutTheMaskAndFeelsNoPressOutside)
{
    QPixmap disc(32, 32);
    disc.fill(Qt::black);
    QPainter(&disc).fillRect(8, 8, 16, 16, Qt::yellow);
    button->setGeometry(50, 50, 32, 32);
    button->Set(&P::ButtonStyle, ButtonStyle::Shaped);
    button->Set(&P::Picture, QIcon(disc));
    EXPECT_EQ(button->mask(), QRegion(8, 8, 16, 16));
    EXPECT_EQ(form.childAt(52, 52), nullptr);
    EXPECT_EQ(form.childAt(66, 66), button);
    button->resize(52, 52);
    EXPECT_EQ(button->mask(), QRegion(18, 18, 16, 16));
    button->Set(&P::ButtonStyle, ButtonStyle::Default);
    EXPECT_TRUE(button->mask().isEmpty());
}

TEST_F(ButtonXPTest, AShapedButtonsOutlineIsSeenOverItsPicture)
{
    button->setGeometry(50, 50, 32, 32);
    button->SetCaption({});
    button->Set(&P::ButtonStyle, ButtonStyle::Shaped);
    button->Set(&P::Picture, Plain(Qt::yellow));
    const auto edge = [this] { return form.grab().toImage().pixelColor(50, 66); };
    EXPECT_EQ(edge(), QColor(Qt::yellow));
    PutPointerInside();
    const QColor over = edge();
    EXPECT_NE(over, QColor(Qt::yellow));
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_NE(edge(), over);
}

TEST_F(ButtonXPTest, PressedTheCaptionSinksInEveryStyleButTheDefault)
{
    button->SetCaption(QStringLiteral("H"));
    button->Set(&P::ShowFocusRect, 0);
    button->Set(&P::BackColor, 0x000000FFU); // red, so that letters are found by their blue
    const auto firstInk = [this] {
        const QImage look = Look();
        for (int y = 5; y < look.height() - 5; ++y)
            for (int x = 5; x < look.width() - 5; ++x)
                if (look.pixelColor(x, y).blue() > 128)
                    return QPoint(x, y);
        return QPoint();
    };
    for (const int style : { 0, 1, 2, 4 }) {
        button->Set(&P::ButtonStyle, style);
        const QPoint rest = firstInk();
        ASSERT_FALSE(rest.isNull());
        QTest::mousePress(button, Qt::LeftButton);
        EXPECT_EQ(firstInk() - rest, style == ButtonStyle::Default ? QPoint() : QPoint(1, 1)) << style;
        QTest::mouseRelease(button, Qt::LeftButton);
    }
}

TEST_F(ButtonXPTest, ADisabledCaptionIsDrawnTwiceToLookEngraved)
{
    button->SetCaption(QStringLiteral("HHH"));
    button->setEnabled(false);
    const QImage look = Look();
    const auto count = [&](Token token) {
        int found = 0;
        for (int y = 0; y < look.height(); ++y)
            for (int x = 0; x < look.width(); ++x)
                found += look.pixelColor(x, y) == StyleColor(token);
        return found;
    };
    EXPECT_GT(count(Token::TextDisabled), 0);
    EXPECT_GT(count(Token::LineOutside), 0);
}

TEST_F(ButtonXPTest, TheBevelIsAsWideAsItIsDeepLighterAboveAndDarkerBelow)
{
    button->resize(80, 60);
    button->Set(&P::BackColor, 0x00808080U);
    button->Set(&P::ButtonStyle, ButtonStyle::Frameless);
    const QColor ground = Look().pixelColor(4, 30);
    button->Set(&P::BEVEL, 1);
    const QImage look = Look();
    EXPECT_GT(look.pixelColor(4, 30).value(), ground.value());
    EXPECT_GT(look.pixelColor(40, 4).value(), ground.value());
    EXPECT_LT(look.pixelColor(75, 30).value(), ground.value());
    EXPECT_LT(look.pixelColor(40, 55).value(), ground.value());
    EXPECT_NE(look.pixelColor(7, 30), ground);
    EXPECT_EQ(look.pixelColor(8, 30), ground);
}

TEST_F(ButtonXPTest, ATransparentButtonShowsWhatLiesBehind)
{
    form.setStyleSheet(QStringLiteral("background: rgb(1, 2, 3)"));
    button->SetCaption({});
    button->Set(&P::TransparentBG, 1);
    EXPECT_EQ(form.grab().toImage().pixelColor(60, 60), QColor(1, 2, 3));
}

TEST_F(ButtonXPTest, TheEdgesColoursAreTheFormsOwnUnlessTheDefaultsAreTaken)
{
    const auto edge = [this] { return Look().pixelColor(50, 0); };
    button->Set(&P::XPColor_Hover, 0x0000FF00U);
    button->Set(&P::XPColor_Pressed, 0x00FF0000U);
    PutPointerInside();
    EXPECT_NE(edge(), QColor(0, 255, 0));
    button->Set(&P::XPDefaultColors, 0);
    EXPECT_EQ(edge(), QColor(0, 255, 0));
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_EQ(edge(), QColor(0, 0, 255));
}

TEST_F(ButtonXPTest, EveryStateOfEveryStyleIsSeen)
{
    button->SetCaption(QStringLiteral("Go"));
    button->Set(&P::Picture, Plain(Qt::gray));
    button->resize(100, 70);
    for (int style = 0; style <= 4; ++style) {
        button->Set(&P::ButtonStyle, style);
        QList<QImage> looks { Look() };
        PutPointerInside();
        looks << Look();
        QTest::mousePress(button, Qt::LeftButton);
        looks << Look();
        QTest::mouseRelease(button, Qt::LeftButton);
        button->clearFocus();
        SlideOffAndWait();
        button->setEnabled(false);
        looks << Look();
        button->setEnabled(true);
        for (qsizetype i = 0; i < looks.size(); ++i)
            EXPECT_EQ(looks.count(looks[i]), 1) << "style " << style << " state " << i;
    }
}

TEST_F(ButtonXPTest, ThePointersShapeIsTheHandTheNumberOrTheForms)
{
    button->Set(&P::MousePointer, 2);
    EXPECT_EQ(button->cursor().shape(), Qt::CrossCursor);
    button->Set(&P::DefCurHand, 1);
    EXPECT_EQ(button->cursor().shape(), Qt::PointingHandCursor);
    button->Set(&P::DefCurHand, 0);
    button->Set(&P::MouseIcon, QPixmap(16, 16));
    button->Set(&P::MousePointer, 99);
    EXPECT_EQ(button->cursor().shape(), Qt::BitmapCursor);
    button->Set(&P::MousePointer, 0);
    EXPECT_EQ(button->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ButtonXPTest, ItsSizeHoldsCaptionAndPicture)
{
    button->SetCaption(QStringLiteral("A caption of some length"));
    const int caption = button->fontMetrics().horizontalAdvance(button->Caption());
    EXPECT_GT(button->minimumSizeHint().width(), caption);
    const int before = button->sizeHint().height();
    button->Set(&P::Picture, Plain(Qt::red));
    EXPECT_GE(button->sizeHint().height(), before + 32);
    button->Set(&P::PictureSize, 1);
    button->Set(&P::OriginalPicSizeH, 64);
    EXPECT_GE(button->sizeHint().height(), before + 64);
}

TEST(SystemColors, NumbersAreRedGreenBlueOrARoleOfTheStyle)
{
    EXPECT_EQ(ColorOf(0x00030201), QColor(1, 2, 3));
    EXPECT_EQ(NumberOf(QColor(1, 2, 3)), 0x00030201U);
    const std::pair<ColorNumber, Token> roles[] { { 0x80000005, Token::Control }, { 0x80000008, Token::Text },
        { 0x8000000D, Token::Accent }, { 0x8000000E, Token::OnAccent }, { 0x8000000F, Token::Control },
        { 0x80000010, Token::LineOutside }, { 0x80000011, Token::TextDisabled }, { 0x80000012, Token::Text },
        { 0x80000014, Token::LineInside }, { 0x80000016, Token::LineLight }, { 0x8000001E, Token::Strip } };
    for (const auto& [number, token] : roles)
        EXPECT_EQ(ColorOf(number), StyleColor(token)) << std::hex << number;
}

TEST(SystemColors, EveryNumberOfTheSystemsTableIsAColourAndOthersAreBlack)
{
    for (ColorNumber number = 0x80000000; number <= 0x8000001E; ++number)
        EXPECT_TRUE(ColorOf(number).isValid()) << std::hex << number;
    for (const ColorNumber none : { 0x80000019U, 0x8000001FU, 0x800000FFU, 0xFFFFFFFFU })
        EXPECT_EQ(ColorOf(none), QColor(Qt::black)) << std::hex << none;
}

#include "Button_XPTest.moc"
