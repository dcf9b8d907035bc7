#include "viewers/FullS.h"

#include "app/OpenUserPicture.h"
#include "imaging/PictureFile.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/Files.h"
#include "tests/testing/MovingGif.h"

#include <QLabel>
#include <QScreen>

#include <gtest/gtest.h>

namespace {

/// Every pixel tells its place.
QImage Ramp(QSize size)
{
    QImage picture(size, QImage::Format_BGR888);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, QColor(x % 256, y % 256, (x + y) % 256));
    return picture;
}

class FullSTest : public testing::Test {
protected:
    FakeFrame frame;
    std::unique_ptr<FullS> form;

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    /// Red and blue pages in turn, of a size of their own; gives the path.
    QString MakeMoving(const char* name, QSize size, int pages = 2)
    {
        MovingGif gif(size);
        for (int page = 0; page < pages; ++page)
            gif.Page(QRect(QPoint(), size), page % 2 ? 3 : 1, 2);
        const QString path = frame.folder.filePath(QLatin1String(name));
        EXPECT_TRUE(MakeFile(path, gif.File()));
        return path;
    }
    void ShowMoving(QSize size, int pages = 2)
    {
        frame.state.CurrentFile = MakeMoving("moving.gif", size, pages);
        Show(OpenUserPicture(frame.state.CurrentFile, [] {}));
    }
    QColor Shown() { return Picture().Bitmap().pixelColor(0, 0); }
    void Show(const QImage& picture)
    {
        form = std::make_unique<FullS>(frame, picture);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    Lead& Picture() { return *form->findChild<Lead*>(QStringLiteral("Leadbitmap1")); }
    QLabel& ViewFactor() { return *form->findChild<QLabel*>(QStringLiteral("ViewFactor")); }
    /// In device pixels.
    QSize Screen()
    {
        const QScreen& screen = *frame.window.screen();
        return screen.size() * screen.devicePixelRatio();
    }
    QImage Seen()
    {
        QImage seen = form->grab().toImage().convertToFormat(QImage::Format_BGR888);
        seen.setDevicePixelRatio(1);
        return seen;
    }
    bool IsEnded() { return !form->isVisible(); }
};

} // namespace

TEST_F(FullSTest, FillsTheScreenThatTheFrameStandsOn)
{
    Show(Ramp({ 40, 30 }));
    EXPECT_TRUE(form->isFullScreen());
    EXPECT_EQ(form->screen(), frame.window.screen());
    EXPECT_EQ(form->geometry(), frame.window.screen()->geometry());
}

TEST_F(FullSTest, ASmallerPictureStandsInTheMiddlePixelForPixel)
{
    const QImage picture = Ramp({ 201, 99 });
    Show(picture);
    const QPoint corner((Screen().width() - 201) / 2, (Screen().height() - 99) / 2);
    EXPECT_EQ(Seen().copy(QRect(corner, picture.size())), picture);
    EXPECT_EQ(frame.state.ViewFactorPercent, 100);
    EXPECT_TRUE(ViewFactor().isVisible());
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("100 %"));
}

TEST_F(FullSTest, ALargerPictureIsShownWholeAndTheLabelTellsItsSize)
{
    QImage picture(2 * Screen(), QImage::Format_BGR888);
    picture.fill(Qt::blue);
    Show(picture);
    const QImage seen = Seen();
    for (const QPoint corner : { QPoint(0, 0), QPoint(Screen().width() - 1, 0) })
        EXPECT_EQ(seen.pixelColor(corner), QColor(Qt::blue));
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("50 %"));
    EXPECT_EQ(frame.state.ViewFactorPercent, 100) << "stays 100 whatever the label tells";
}

TEST_F(FullSTest, AnEmptyPictureShowsNothingAndIsEndedAllTheSame)
{
    Show({});
    EXPECT_FALSE(Picture().isVisible());
    EXPECT_FALSE(ViewFactor().isVisible());
    EXPECT_EQ(frame.state.ViewFactorPercent, 0);
    QTest::mouseClick(form.get(), Qt::LeftButton);
    EXPECT_TRUE(IsEnded());
}

TEST_F(FullSTest, AClickOnThePictureOrOnTheLabelEndsTheView)
{
    Show(Ramp({ 40, 30 }));
    QTest::mouseClick(&Picture(), Qt::LeftButton);
    EXPECT_TRUE(IsEnded());
    Show(Ramp({ 40, 30 }));
    QTest::mouseClick(&ViewFactor(), Qt::RightButton);
    EXPECT_TRUE(IsEnded());
}

TEST_F(FullSTest, AClickInTheCornerOfTheScreenEndsTheView)
{
    Show(Ramp({ 40, 30 }));
    QTest::mouseClick(form->windowHandle(), Qt::LeftButton, {}, { 1, 1 });
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsEnded(); }));
}

TEST_F(FullSTest, TheClickThatOpenedTheViewDoesNotEndIt)
{
    Show(Ramp({ 40, 30 }));
    QTest::mouseRelease(&Picture(), Qt::LeftButton);
    EXPECT_FALSE(IsEnded());
    QTest::mousePress(&Picture(), Qt::LeftButton);
    EXPECT_FALSE(IsEnded()) << "the button is still down";
    QTest::mouseRelease(&Picture(), Qt::LeftButton);
    EXPECT_TRUE(IsEnded());
}

TEST_F(FullSTest, TheseKeysEndTheViewAndOthersDoNot)
{
    for (const Qt::Key key :
        { Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_F, Qt::Key_F11 }) {
        Show(Ramp({ 40, 30 }));
        QTest::keyClick(form.get(), Qt::Key_Print);
        QTest::keyClick(form.get(), Qt::Key_Shift);
        EXPECT_FALSE(IsEnded());
        QTest::keyClick(form.get(), key);
        EXPECT_TRUE(IsEnded()) << int(key);
    }
}

TEST_F(FullSTest, APictureThatMovesIsPlayedFromCurrentFileOverAndOver)
{
    ShowMoving({ 20, 10 });
    for (const QColor& colour : { QColor(Qt::blue), QColor(Qt::red), QColor(Qt::blue) })
        EXPECT_TRUE(QTest::qWaitFor([&] { return Shown() == colour; }));
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("100 %"));
    const QPoint corner((Screen().width() - 20) / 2, (Screen().height() - 10) / 2);
    const QColor seen = Seen().pixelColor(corner);
    EXPECT_TRUE(seen == QColor(Qt::blue) || seen == QColor(Qt::red)) << "each page stands in the middle";
}

TEST_F(FullSTest, AMovingPictureLargerThanTheScreenIsShownWholeAndItsPagesInTheSamePlace)
{
    ShowMoving({ 2 * Screen().width(), 200 });
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("50 %"));
    const int top = Screen().height() / 2 - 50, bottom = top + 99;
    for (const QColor& colour : { QColor(Qt::blue), QColor(Qt::red) }) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return Shown() == colour; }));
        const QImage seen = Seen();
        EXPECT_EQ(seen.pixelColor(0, top), colour);
        EXPECT_EQ(seen.pixelColor(Screen().width() - 1, bottom), colour);
        EXPECT_NE(seen.pixelColor(0, top - 1), colour);
        EXPECT_NE(seen.pixelColor(0, bottom + 1), colour);
    }
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("50 %"));
}

TEST_F(FullSTest, WhereOnlyTheBeginningOfAMovingPictureIsPlayedTheLabelTellsSo)
{
    ShowMoving({ 1, 1 }, 1030);
    EXPECT_TRUE(form->IsPlaying());
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("100 %, 1024 of 1030 pages"));
    ShowMoving({ 1, 1 }, 3);
    EXPECT_TRUE(form->IsPlaying());
    EXPECT_EQ(ViewFactor().text(), QStringLiteral("100 %"));
}

TEST_F(FullSTest, WhenCurrentFileHoldsSomethingElseThePictureStandsStill)
{
    const QImage picture = OpenUserPicture(MakeMoving("a.gif", { 20, 10 }), [] {});
    const QString none = frame.folder.filePath(QStringLiteral("missing.gif"));
    for (const QString& file : { MakeMoving("b.gif", { 30, 10 }), none, QString() }) {
        frame.state.CurrentFile = file;
        Show(picture);
        EXPECT_FALSE(form->IsPlaying());
        EXPECT_EQ(Shown(), QColor(Qt::red));
    }
}

TEST_F(FullSTest, AnEditedPictureMovesNoMore)
{
    frame.state.CurrentFile = MakeMoving("a.gif", { 20, 10 });
    Lead lead;
    lead.SetBitmap(OpenUserPicture(frame.state.CurrentFile, [] {}));
    lead.Invert();
    Show(lead.Bitmap());
    EXPECT_FALSE(form->IsPlaying());
}

TEST_F(FullSTest, WhatIsShownHasAName)
{
    Show(Ramp({ 40, 30 }));
    EXPECT_FALSE(Picture().accessibleName().isEmpty());
    EXPECT_FALSE(form->windowTitle().isEmpty());
}
