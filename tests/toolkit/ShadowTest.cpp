#include "toolkit/ChildForm.h"
#include "toolkit/FrameDrag.h"
#include "toolkit/LayeredWindow.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/Style.h"
#include "toolkit/SystemColors.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/ucShadow.h"

#include <QMdiArea>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

class Plain : public QWidget {
public:
    Plain(const QColor& color, QWidget* parent = nullptr)
        : QWidget(parent)
        , color_(color)
    {
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), color_); }

private:
    QColor color_;
};

/// A form inside a white host, on a platform of the test's own.
class ShadowTest : public testing::Test {
protected:
    Compositing platform { .windows = false, .children = true, .themes = true };
    std::unique_ptr<QWidget> host = std::make_unique<Plain>(Qt::white);
    QPointer<QWidget> form = new Plain(Qt::red, host.get());
    QPointer<ucShadow> shadow = Shade(form);

    ucShadow* Shade(QWidget* widget)
    {
        auto* made = new ucShadow(widget, [this] { return platform; });
        made->SetFadeIn(false);
        return made;
    }
    void SetUp() override
    {
        form->hide();
        host->resize(400, 300);
        host->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(host.get()));
        form->setGeometry(10, 20, 100, 80);
    }
    static QList<LayeredWindow*> Windows(const QWidget* of, const char* kind)
    {
        QList<LayeredWindow*> found;
        for (auto* window : of->findChildren<LayeredWindow*>(QString(), Qt::FindDirectChildrenOnly))
            if (window->objectName().endsWith(QLatin1String(kind)))
                found << window;
        return found;
    }
    LayeredWindow* Strip(ShadowStrip::Side side) const { return Windows(host.get(), "ShadowCls")[side]; }
    LayeredWindow* Right() const { return Strip(ShadowStrip::Right); }
    LayeredWindow* Bottom() const { return Strip(ShadowStrip::Bottom); }
    LayeredWindow* Fade() const { return Windows(host.get(), "FadeCls").value(0); }
    bool IsShown() const { return Right()->isVisible() && Bottom()->isVisible(); }
    bool IsHidden() const { return !Right()->isVisible() && !Bottom()->isVisible(); }
};

bool WaitFor(QSignalSpy& signal)
{
    return QTest::qWaitFor([&] { return !signal.isEmpty(); }, 10'000);
}

} // namespace

TEST_F(ShadowTest, ItsPropertiesStartAsTold)
{
    const ucShadow fresh(form, [this] { return platform; });
    EXPECT_EQ(fresh.Color(), 0u);
    EXPECT_EQ(fresh.Depth(), 10);
    EXPECT_TRUE(fresh.FadeIn());
    EXPECT_EQ(fresh.FadeTime(), 500);
    EXPECT_FALSE(fresh.HideMove());
    EXPECT_FALSE(fresh.HideSize());
    EXPECT_TRUE(fresh.SoftShadow());
    EXPECT_EQ(fresh.Transparency(), 120);
    EXPECT_TRUE(fresh.Visible());
    EXPECT_EQ(fresh.objectName(), QStringLiteral("Shadow"));
}

TEST_F(ShadowTest, DepthIsClampedAndTransparencyKeptModulo256)
{
    for (const auto& [set, kept] : { std::pair(120, 99), { 99, 99 }, { 0, 0 }, { -1, 0 }, { 12, 12 } }) {
        shadow->SetDepth(set);
        EXPECT_EQ(shadow->Depth(), kept) << set;
    }
    for (const auto& [set, kept] : { std::pair(300, 44), { 255, 255 }, { 256, 0 }, { -1, 255 } }) {
        shadow->SetTransparency(set);
        EXPECT_EQ(shadow->Transparency(), kept) << set;
    }
}

TEST_F(ShadowTest, ItStandsAtTheFormsRightAndBelowItOnceTheFormIsShown)
{
    EXPECT_TRUE(IsHidden());
    form->show();
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Right()->geometry(), QRect(110, 30, 10, 80));
    EXPECT_EQ(Bottom()->geometry(), QRect(20, 100, 90, 10));
    EXPECT_TRUE(Right()->testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(ShadowTest, ThePixelsUnderItAreDarkenedByItsAlphaAndItsTransparency)
{
    form->show();
    const QImage seen = host->grab().toImage();
    const ShadowStrip right { ShadowStrip::Right, QSize(10, 80) };
    for (const QPoint place :
        { QPoint(0, 0), QPoint(0, 5), QPoint(0, 40), QPoint(4, 40), QPoint(9, 40), QPoint(0, 75) }) {
        const double alpha = right.AlphaAt(place.x(), 79 - place.y()) / 255.0 * 120 / 255;
        EXPECT_NEAR(qGreen(seen.pixel(Right()->pos() + place)), 255 * (1 - alpha), 1.5)
            << place.x() << "," << place.y();
    }
    EXPECT_EQ(seen.pixel(115, 25), qRgb(255, 255, 255)); // above the strip's upper end
    EXPECT_EQ(seen.pixel(15, 105), qRgb(255, 255, 255)); // before the strip's left end
    EXPECT_EQ(seen.pixel(109, 99), qRgb(255, 0, 0));
}

TEST_F(ShadowTest, AHardEdgedShadowIsABlock)
{
    shadow->SetSoftShadow(false);
    shadow->SetTransparency(255);
    shadow->SetColor(0x00201008);
    form->show();
    const QImage seen = host->grab().toImage();
    for (const QPoint place : { QPoint(110, 30), QPoint(119, 109), QPoint(20, 100), QPoint(109, 109) })
        EXPECT_EQ(seen.pixel(place), qRgb(0x08, 0x10, 0x20)) << place.x() << "," << place.y();
}

TEST_F(ShadowTest, AMoveMovesTheStripsAndDrawsNoPictureAgain)
{
    form->show();
    const auto keys = [this] {
        return std::pair(Right()->Picture().cacheKey(), Bottom()->Picture().cacheKey());
    };
    const auto before = keys();
    for (int x = 10; x < 60; ++x)
        form->move(x, x);
    EXPECT_EQ(keys(), before);
    EXPECT_EQ(Right()->geometry(), QRect(159, 69, 10, 80));
    EXPECT_EQ(Bottom()->geometry(), QRect(69, 139, 90, 10));
}

TEST_F(ShadowTest, AChangeOfOneSideDrawsOnlyTheStripAlongIt)
{
    form->show();
    const qint64 right = Right()->Picture().cacheKey();
    form->resize(140, 80);
    EXPECT_EQ(Right()->Picture().cacheKey(), right);
    EXPECT_EQ(Bottom()->Picture().size(), QSize(130, 10));
    const qint64 bottom = Bottom()->Picture().cacheKey();
    form->resize(140, 90);
    EXPECT_EQ(Bottom()->Picture().cacheKey(), bottom);
    EXPECT_EQ(Right()->Picture().size(), QSize(10, 90));
    EXPECT_EQ(Right()->geometry(), QRect(150, 30, 10, 90));
}

TEST_F(ShadowTest, ItGoesAndComesWithTheForm)
{
    form->show();
    form->hide();
    EXPECT_TRUE(IsHidden());
    form->show();
    EXPECT_TRUE(IsShown());
}

TEST_F(ShadowTest, ChangedPropertiesAreDrawnAtOnceAndEqualOnesNotAgain)
{
    form->show();
    const qint64 first = Right()->Picture().cacheKey();
    shadow->SetDepth(10);
    shadow->SetSoftShadow(true);
    shadow->SetTransparency(120 + 256);
    shadow->SetColor(0);
    EXPECT_EQ(Right()->Picture().cacheKey(), first);
    shadow->SetDepth(20);
    EXPECT_EQ(Right()->geometry(), QRect(110, 40, 20, 80));
    EXPECT_EQ(Bottom()->geometry(), QRect(30, 100, 80, 20));
    EXPECT_EQ(Bottom()->Picture().size(), QSize(80, 20));
    shadow->SetTransparency(33);
    EXPECT_EQ(Bottom()->ConstantAlpha(), 33);
}

TEST_F(ShadowTest, WhatAHiddenFormMissedIsDrawnWhenItIsShown)
{
    form->show();
    form->hide();
    shadow->SetDepth(4);
    EXPECT_EQ(Right()->Picture().width(), 10);
    form->show();
    EXPECT_EQ(Right()->Picture().width(), 4);
    EXPECT_EQ(Bottom()->geometry(), QRect(14, 100, 96, 4));
}

TEST_F(ShadowTest, ADepthOfNothingShowsNothing)
{
    shadow->SetDepth(0);
    form->show();
    EXPECT_TRUE(Right()->Picture().isNull());
    EXPECT_TRUE(Bottom()->Picture().isNull());
    EXPECT_EQ(host->grab().toImage().pixel(112, 50), qRgb(255, 255, 255));
}

TEST_F(ShadowTest, AnInvisibleShadowStaysAwayUntilItIsMadeVisible)
{
    shadow->SetVisible(false);
    form->show();
    EXPECT_TRUE(IsHidden());
    shadow->SetVisible(true);
    EXPECT_TRUE(IsShown());
    shadow->SetVisible(false);
    EXPECT_TRUE(IsHidden());
}

TEST_F(ShadowTest, ItIsAwayDuringAMoveOrASizingWhenAskedAndThenStandsAnew)
{
    form->show();
    for (const qint32 step : { Message::Moving, Message::Sizing }) {
        shadow->SetHideMove(step == Message::Moving);
        shadow->SetHideSize(step == Message::Sizing);
        WindowMessage::Send(*form, step == Message::Moving ? Message::Sizing : Message::Moving);
        EXPECT_TRUE(IsShown());
        WindowMessage::Send(*form, step);
        EXPECT_TRUE(IsHidden());
        form->setGeometry(40, 50, 120 + step, 90);
        EXPECT_TRUE(IsHidden());
        WindowMessage::Send(*form, Message::EndOfSizeOrMove);
        EXPECT_TRUE(IsShown());
        EXPECT_EQ(Bottom()->geometry(), QRect(50, 140, 110 + step, 10));
        EXPECT_EQ(Bottom()->Picture().width(), 110 + step);
    }
}

TEST_F(ShadowTest, AFormThatIsHiddenInADragLeavesNoShadowBehind)
{
    shadow->SetHideMove(true);
    form->show();
    WindowMessage::Send(*form, Message::Moving);
    form->hide();
    WindowMessage::Send(*form, Message::EndOfSizeOrMove);
    EXPECT_TRUE(IsHidden());
    form->show();
    EXPECT_TRUE(IsShown());
}

TEST_F(ShadowTest, WithoutAskingItFollowsEveryStepOfADrag)
{
    form->show();
    WindowMessage::Send(*form, Message::Moving);
    form->move(50, 60);
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Right()->pos(), QPoint(150, 70));
    WindowMessage::Send(*form, Message::EndOfSizeOrMove);
    EXPECT_TRUE(IsShown());
}

TEST_F(ShadowTest, ItLiesJustUnderItsFormAndOverWhatLiesBelow)
{
    auto* const other = new Plain(Qt::blue, host.get());
    other->setGeometry(60, 30, 200, 200);
    Shade(other);
    form->show();
    other->show();
    const auto seen = [this](QPoint place) { return host->grab().toImage().pixel(place); };
    EXPECT_EQ(seen(QPoint(115, 60)), qRgb(0, 0, 255));
    form->raise();
    EXPECT_LT(qBlue(seen(QPoint(111, 60))), 200);
    form->lower();
    EXPECT_EQ(seen(QPoint(115, 60)), qRgb(0, 0, 255));
    EXPECT_TRUE(IsShown());
}

TEST_F(ShadowTest, APlatformThatLosesItsMeansLosesTheShadowUntilTheyAreBack)
{
    form->show();
    platform = {};
    WindowMessage::Send(*form, Message::DisplayChange);
    EXPECT_FALSE(shadow->IsLayered());
    EXPECT_TRUE(Windows(host.get(), "ShadowCls").isEmpty());
    form->move(30, 40);
    platform.children = true;
    WindowMessage::Send(*form, Message::DisplayChange);
    EXPECT_TRUE(shadow->IsLayered());
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Right()->geometry(), QRect(130, 50, 10, 80));
    EXPECT_EQ(Right()->Picture().size(), QSize(10, 80));
}

TEST_F(ShadowTest, ADragIsOverWhenThePlatformLosesItsMeans)
{
    shadow->SetHideMove(true);
    form->show();
    WindowMessage::Send(*form, Message::Moving);
    platform = {};
    WindowMessage::Send(*form, Message::DisplayChange);
    WindowMessage::Send(*form, Message::EndOfSizeOrMove);
    platform.children = true;
    WindowMessage::Send(*form, Message::DisplayChange);
    form->move(50, 60);
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Right()->pos(), QPoint(150, 70));
}

TEST_F(ShadowTest, WhereTheFormCameToWithoutMeansItsShadowStandsAfterADrag)
{
    shadow->SetHideMove(true);
    form->show();
    platform = {};
    WindowMessage::Send(*form, Message::DisplayChange);
    form->move(30, 40);
    platform.children = true;
    WindowMessage::Send(*form, Message::DisplayChange);
    WindowMessage::Send(*form, Message::Moving);
    WindowMessage::Send(*form, Message::EndOfSizeOrMove);
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Right()->geometry(), QRect(130, 50, 10, 80));
}

TEST_F(ShadowTest, ARestoredSizeShowsItUnlessTheFormIsHiddenOrDragged)
{
    const WindowPosition hiding { form, nullptr, 10, 20, 100, 80, WindowPosition::Hiding };
    const auto isShownBy = [&](SizeKind kind) {
        WindowMessage::Send(*form, Message::PositionChanged, 0, qintptr(&hiding));
        EXPECT_TRUE(IsHidden());
        WindowMessage::Send(*form, Message::Size, qintptr(kind));
        return IsShown();
    };
    EXPECT_FALSE(isShownBy(SizeKind::Restored));
    form->show();
    EXPECT_FALSE(isShownBy(SizeKind::Minimized));
    EXPECT_FALSE(isShownBy(SizeKind::Maximized));
    EXPECT_TRUE(isShownBy(SizeKind::Restored));
    shadow->SetHideMove(true);
    WindowMessage::Send(*form, Message::Moving);
    WindowMessage::Send(*form, Message::Size, qintptr(SizeKind::Restored));
    EXPECT_TRUE(IsHidden());
}

TEST_F(ShadowTest, AThemeIsFollowedOnlyOnceThePlatformHasThemes)
{
    platform.themes = false;
    auto* const plain = new Plain(Qt::green, host.get());
    const ucShadow* const its = Shade(plain);
    EXPECT_FALSE(its->IsXP());
    platform.roundCorners = true;
    WindowMessage::Send(*plain, Message::ThemeChange);
    EXPECT_FALSE(its->IsLuna());
    platform.themes = true;
    WindowMessage::Send(*plain, Message::DisplayChange);
    EXPECT_TRUE(its->IsXP() && its->IsLuna());
    platform.roundCorners = false;
    WindowMessage::Send(*plain, Message::ThemeChange);
    EXPECT_FALSE(its->IsLuna());
}

TEST_F(ShadowTest, ItsWindowsClassesBearTheFormsNumber)
{
    shadow->SetFadeIn(true);
    form->show();
    const QString number = QString::number(quintptr(form.data()));
    EXPECT_EQ(Right()->objectName(), number + QStringLiteral("ShadowCls"));
    EXPECT_EQ(Bottom()->objectName(), number + QStringLiteral("ShadowCls"));
    EXPECT_EQ(Fade()->objectName(), number + QStringLiteral("FadeCls"));
}

TEST_F(ShadowTest, ASystemColourIsTheStylesWhenItIsSet)
{
    shadow->SetSoftShadow(false);
    shadow->SetTransparency(255);
    shadow->SetColor(0x8000000F);
    EXPECT_EQ(shadow->Color(), 0x8000000Fu);
    form->show();
    EXPECT_EQ(host->grab().toImage().pixelColor(115, 60), StyleColor(Token::Control));
}

TEST_F(ShadowTest, AColourIsDrawnAgainOnlyWhenItStandsForAnotherOneThanBefore)
{
    shadow->SetColor(0x8000000F);
    form->show();
    const qint64 drawn = Right()->Picture().cacheKey();
    shadow->SetColor(NumberOf(StyleColor(Token::Control)));
    shadow->SetColor(0x8000000F);
    EXPECT_EQ(Right()->Picture().cacheKey(), drawn);
    shadow->SetColor(0x000000FF);
    EXPECT_NE(Right()->Picture().cacheKey(), drawn);
}

TEST_F(ShadowTest, TheDesktopsWordOnFadingMenusIsTold)
{
    for (const bool isEnabled : { true, false }) {
        for (const Qt::UIEffect effect : { Qt::UI_General, Qt::UI_AnimateMenu })
            QApplication::setEffectEnabled(effect, isEnabled);
        EXPECT_EQ(ucShadow::IsSysFadeEnabled(), isEnabled);
    }
}

TEST_F(ShadowTest, AFormThatComesIntoAnotherParentTakesItsShadowAlong)
{
    form->show();
    Plain other(Qt::white);
    other.resize(400, 300);
    other.show();
    form->setParent(&other);
    form->show();
    EXPECT_TRUE(Windows(host.get(), "ShadowCls").isEmpty());
    ASSERT_EQ(Windows(&other, "ShadowCls").size(), 2);
    EXPECT_TRUE(Windows(&other, "ShadowCls")[0]->isVisible());
    delete form;
    EXPECT_TRUE(other.children().isEmpty());
}

TEST_F(ShadowTest, AFormMadeAloneGetsItsShadowWhereItComesToStand)
{
    auto* const alone = new Plain(Qt::green);
    const ucShadow* const its = Shade(alone);
    EXPECT_FALSE(its->IsLayered());
    alone->setParent(host.get());
    EXPECT_TRUE(its->IsLayered());
    alone->setGeometry(200, 100, 50, 50);
    alone->show();
    EXPECT_EQ(Windows(host.get(), "ShadowCls").size(), 4);
}

TEST_F(ShadowTest, WithoutMeansNothingIsMadeAndNothingWaits)
{
    platform = {};
    Plain window(Qt::red);
    auto* const its = Shade(&window);
    its->SetFadeIn(true);
    QSignalSpy ends(its, &ucShadow::FadedOut);
    window.show();
    EXPECT_TRUE(window.findChildren<LayeredWindow*>().isEmpty());
    its->FadeOut(1'000'000);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(ends.isEmpty());
}

TEST_F(ShadowTest, TheOffscreenPlatformHasNoMeans)
{
    const Compositing offscreen = SystemCompositing();
    EXPECT_FALSE(offscreen.windows || offscreen.children || offscreen.themes || offscreen.roundCorners);
}

TEST(Compositing, NeedsAScreenOfSixteenBitsThatIsSeen)
{
    EXPECT_TRUE(CompositingOf({ "xcb", 16 }).children);
    EXPECT_TRUE(CompositingOf({ "wayland", 24 }).children);
    EXPECT_TRUE(CompositingOf({ "wayland-egl", 32 }).children);
    for (const PlatformFacts& lacking : { PlatformFacts { "xcb", 15, true }, PlatformFacts { "xcb", 0, true },
             PlatformFacts { "offscreen", 32 } }) {
        const Compositing means = CompositingOf(lacking);
        EXPECT_FALSE(means.windows || means.children || means.themes || means.roundCorners);
    }
}

TEST(Compositing, WindowsOfTheirOwnNeedAManagerThatLetsThemBePlaced)
{
    EXPECT_TRUE(CompositingOf({ "xcb", 24, true }).windows);
    EXPECT_FALSE(CompositingOf({ "xcb", 24, false }).windows);
    EXPECT_FALSE(CompositingOf({ "wayland", 24, true }).windows);
}

TEST_F(ShadowTest, ThePlatformsWordOnThemesIsTold)
{
    EXPECT_TRUE(shadow->IsXP());
    EXPECT_FALSE(shadow->IsLuna());
    EXPECT_FALSE(shadow->IsSysShadowEnabled());
    platform.roundCorners = platform.windows = true;
    WindowMessage::Send(*form, Message::ThemeChange);
    EXPECT_TRUE(shadow->IsLuna());
    EXPECT_TRUE(shadow->IsSysShadowEnabled());
}

TEST_F(ShadowTest, ARoundedThemeClearsTheCornerOfTheRightStrip)
{
    form->show();
    EXPECT_NE(qAlpha(Right()->Picture().pixel(9, 1)), 0);
    platform.roundCorners = true;
    WindowMessage::Send(*form, Message::ThemeChange);
    EXPECT_EQ(qAlpha(Right()->Picture().pixel(9, 1)), 0);
    EXPECT_NE(qAlpha(Right()->Picture().pixel(6, 1)), 0);
}

TEST_F(ShadowTest, AShownFormFadesInFromWhatWasThere)
{
    shadow->SetFadeIn(true);
    shadow->SetFadeTime(60);
    QSignalSpy ends(shadow, &ucShadow::FadedIn);
    form->show();
    ASSERT_NE(Fade(), nullptr);
    EXPECT_EQ(Fade()->geometry(), QRect(10, 20, 110, 90));
    EXPECT_EQ(Fade()->ConstantAlpha(), 255);
    EXPECT_EQ(host->grab().toImage().pixel(50, 50), qRgb(255, 255, 255));
    EXPECT_EQ(host->grab().toImage().pixel(111, 60), qRgb(255, 255, 255));
    EXPECT_TRUE(WaitFor(ends));
    EXPECT_EQ(host->grab().toImage().pixel(50, 50), qRgb(255, 0, 0));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Fade(), nullptr);
}

TEST_F(ShadowTest, AFadeLosesOpacityAndKeepsItsPicture)
{
    shadow->SetFadeIn(true);
    shadow->SetFadeTime(100'000);
    form->show();
    const qint64 picture = Fade()->Picture().cacheKey();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Fade()->ConstantAlpha() < 250; }));
    EXPECT_EQ(Fade()->Picture().cacheKey(), picture);
    form->raise();
    EXPECT_EQ(host->children().last(), Fade()); // it stays above the form
}

TEST_F(ShadowTest, AFormCanBeUsedWhileItFadesIn)
{
    shadow->SetFadeIn(true);
    form->show();
    ASSERT_NE(Fade(), nullptr);
    EXPECT_EQ(host->childAt(50, 50), form);
}

TEST_F(ShadowTest, AFormThatComesBackWithItsParentDoesNotFade)
{
    form->show();
    shadow->SetFadeIn(true);
    host->hide();
    host->show();
    EXPECT_EQ(Fade(), nullptr);
    EXPECT_TRUE(IsShown());
}

TEST_F(ShadowTest, FadeOutHidesTheFormAtOnceAndReturnsAtTheEnd)
{
    form->show();
    QSignalSpy ends(shadow, &ucShadow::FadedOut);
    bool isPumped = false;
    QTimer::singleShot(0, form, [&] {
        isPumped = true;
        EXPECT_FALSE(form->isVisible());
        EXPECT_TRUE(IsHidden());
        EXPECT_EQ(Fade()->geometry(), QRect(10, 20, 110, 90));
        EXPECT_EQ(Fade()->Picture().pixel(50, 50), qRgb(255, 0, 0));
        EXPECT_TRUE(ends.isEmpty());
    });
    shadow->FadeOut(60);
    EXPECT_TRUE(isPumped);
    EXPECT_EQ(ends.size(), 1);
    EXPECT_EQ(host->grab().toImage().pixel(50, 50), qRgb(255, 255, 255));
}

TEST_F(ShadowTest, FadeOutThatDoesNotWaitReturnsAtOnce)
{
    shadow->SetVisible(false);
    form->show();
    QSignalSpy ends(shadow, &ucShadow::FadedOut);
    shadow->FadeOut(60, false);
    EXPECT_TRUE(ends.isEmpty());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Fade()->geometry(), QRect(10, 20, 100, 80)); // no shadow fades along
    EXPECT_TRUE(WaitFor(ends));
}

TEST_F(ShadowTest, AFormThatNobodySeesHasFadedAtOnce)
{
    QSignalSpy ends(shadow, &ucShadow::FadedOut);
    EXPECT_TRUE(shadow->FadeOut(1'000'000));
    EXPECT_EQ(ends.size(), 1);
    form->show();
    host->hide();
    EXPECT_TRUE(shadow->FadeOut(1'000'000));
    EXPECT_EQ(ends.size(), 2);
    host->show();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ShadowTest, AFormMayGoWhenItHasFaded)
{
    for (const bool isSeen : { true, false }) {
        auto* const mortal = new Plain(Qt::green, host.get());
        ucShadow* const its = Shade(mortal);
        mortal->setVisible(isSeen);
        QObject::connect(its, &ucShadow::FadedOut, host.get(), [mortal] { delete mortal; });
        EXPECT_FALSE(its->FadeOut(20)) << isSeen;
    }
}

TEST_F(ShadowTest, AFormThatDoesNotFadeInIsThereAtOnce)
{
    QSignalSpy ends(shadow, &ucShadow::FadedIn);
    form->show();
    EXPECT_EQ(Fade(), nullptr);
    EXPECT_EQ(host->grab().toImage().pixel(50, 50), qRgb(255, 0, 0));
    EXPECT_TRUE(ends.isEmpty());
}

TEST_F(ShadowTest, FadeOutReturnsWhenTheFormOrAllAroundItGoes)
{
    for (int round = 0; round < 2; ++round) {
        auto* const mortal = new Plain(Qt::green, host.get());
        ucShadow* const its = Shade(mortal);
        mortal->show();
        QTimer::singleShot(0, host.get(), [&, mortal] {
            if (round == 0)
                delete mortal;
            else
                host.reset();
        });
        its->FadeOut(1'000'000);
    }
    EXPECT_EQ(host, nullptr);
}

TEST_F(ShadowTest, AFormShownAgainWhileItFadesStays)
{
    form->show();
    shadow->SetFadeIn(true);
    shadow->SetFadeTime(20);
    QTimer::singleShot(0, form, [this] { form->show(); });
    shadow->FadeOut(1'000'000);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(IsShown());
}

TEST_F(ShadowTest, OneFadeMayWaitInsideAnother)
{
    auto* const other = new Plain(Qt::blue, host.get());
    ucShadow* const others = Shade(other);
    form->show();
    other->show();
    QStringList ends;
    QObject::connect(shadow, &ucShadow::FadedOut, host.get(), [&] { ends << QStringLiteral("form"); });
    QObject::connect(others, &ucShadow::FadedOut, host.get(), [&] { ends << QStringLiteral("other"); });
    QTimer::singleShot(0, host.get(), [&] { others->FadeOut(60); });
    shadow->FadeOut(60);
    ends.sort();
    EXPECT_EQ(ends, (QStringList { "form", "other" }));
}

TEST_F(ShadowTest, ADragOfAChildFormTellsTheShadowItsStepsAndItsEnd)
{
    auto* const child = new ChildForm(host.get());
    child->setGeometry(150, 40, 200, 120);
    ucShadow* const its = Shade(child);
    its->SetHideMove(true);
    its->SetHideSize(true);
    child->show();
    const auto strips = Windows(host.get(), "ShadowCls").mid(2);
    for (QWidget* part : { static_cast<QWidget*>(&child->Head()), static_cast<QWidget*>(&child->Grip()) }) {
        const QPoint press(8, 8);
        QTest::mousePress(part, Qt::LeftButton, {}, press);
        EXPECT_TRUE(strips[0]->isVisible()) << "a press alone";
        QMouseEvent move(QEvent::MouseMove, press, part->mapToGlobal(press + QPoint(12, 9)), Qt::NoButton,
            Qt::LeftButton, {});
        QApplication::sendEvent(part, &move);
        EXPECT_FALSE(strips[0]->isVisible());
        QTest::mouseRelease(part, Qt::LeftButton, {}, press);
        EXPECT_TRUE(strips[0]->isVisible());
        EXPECT_EQ(strips[0]->pos(), child->geometry().topRight() + QPoint(1, 10));
    }
}

TEST_F(ShadowTest, AMinimizedChildsStripCastsAShadowAndAMaximizedOnesFallsOutsideTheArea)
{
    auto* const child = new ChildForm(host.get());
    child->setGeometry(150, 40, 200, 120);
    Shade(child);
    child->show();
    const auto strips = Windows(host.get(), "ShadowCls").mid(2);
    child->ToggleMinimize();
    EXPECT_LT(child->height(), 60);
    for (const ShadowStrip::Side side : { ShadowStrip::Right, ShadowStrip::Bottom }) {
        EXPECT_TRUE(strips[side]->isVisible());
        EXPECT_EQ(strips[side]->geometry(), ShadowStrip::Place(side, child->geometry(), 10));
    }
    child->Maximize();
    for (const LayeredWindow* strip : strips)
        EXPECT_FALSE(strip->geometry().intersects(host->rect()));
}
