#include "app/Lead.h"

#include "desktop/FileName.h"
#include "imaging/FormatTable.h"
#include "imaging/PictureFile.h"
#include "imaging/Resample.h"
#include "tests/testing/FakeClipboard.h"
#include "tests/testing/PaintCount.h"
#include "tests/testing/ReasonOf.h"
#include "tests/testing/SmallMemory.h"

#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

const QColor Ground(43, 43, 43);

QColor ColourAt(int x, int y)
{
    return QColor((x * 13 + 40) % 256, (y * 17 + 90) % 256, (x * y) % 256);
}

QImage Sample(QSize size)
{
    QImage image(size, QImage::Format_BGR888);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, ColourAt(x, y));
    return image;
}

class LeadTest : public testing::Test {
protected:
    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }

    LeadTest()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Ground);
        lead.setPalette(palette);
        lead.resize(60, 50);
    }

    /// What a screen of this density shows.
    QImage Shown(double ratio = 1)
    {
        QImage image(lead.size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        lead.render(&image, {}, {}, QWidget::DrawChildren);
        image.setDevicePixelRatio(1);
        return image;
    }
    void Zoom(int percent)
    {
        lead.SetPaintSizeMode(Lead::ZoomSize);
        lead.SetPaintZoomFactor(percent);
    }
    QString Path(const QString& name) const { return folder.filePath(name); }
    void Turn(QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWheelEvent event({ 10, 10 }, lead.mapToGlobal(QPointF(10, 10)), {}, angle, Qt::NoButton, modifiers,
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&lead, &event);
    }

    QTemporaryDir folder;
    FakeClipboard clipboard;
    Lead lead;
};

} // namespace

TEST_F(LeadTest, APictureIsSharedUntilOneOfThemChanges)
{
    const QImage picture = Sample({ 20, 10 });
    Lead other;
    lead.SetBitmap(picture);
    other.SetBitmap(lead.Bitmap());
    EXPECT_EQ(other.Bitmap().constBits(), picture.constBits());
    EXPECT_EQ(lead.GetPicture().constBits(), picture.constBits());
    other.Size(5, 5, Lead::SizeSmooth);
    EXPECT_EQ(lead.Bitmap(), picture);
}

TEST_F(LeadTest, TellsSizeAndDepth)
{
    lead.SetPicture(Sample({ 20, 10 }));
    EXPECT_EQ(lead.BitmapWidth(), 20);
    EXPECT_EQ(lead.BitmapHeight(), 10);
    EXPECT_EQ(lead.BitmapBits(), 24);
    EXPECT_EQ(lead.RgnWidth(), 20);
    EXPECT_EQ(lead.RgnHeight(), 10);
}

TEST_F(LeadTest, ANullPictureEmptiesIt)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.SetBitmap({});
    EXPECT_TRUE(lead.Bitmap().isNull());
    EXPECT_EQ(lead.BitmapWidth(), 0);
    EXPECT_EQ(lead.BitmapBits(), 0);
    EXPECT_EQ(Shown().pixelColor(1, 1), Ground);
}

TEST_F(LeadTest, WhatIsSavedCanBeLoadedInEveryFormat)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    for (const imaging::FormatRow& row : imaging::FormatTable) {
        const QString path = Path(QStringLiteral("a") + row.extension);
        lead.Save(path, row.format, row.bits, row.quality, false);
        Lead other;
        EXPECT_EQ(other.Load(path, 0, 0, 1), 0) << row.extension;
        EXPECT_EQ(other.BitmapBits(), row.bits) << row.extension;
        EXPECT_EQ(other.Bitmap().size(), QSize(20, 10)) << row.extension;
    }
}

TEST_F(LeadTest, AFileIsLoadedAtTheDepthAskedFor)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.Save(Path("a.bmp"), imaging::Bmp, 24, 0, false);
    for (const int bits : { 1, 8, 16, 24, 32 }) {
        lead.Load(Path("a.bmp"), bits, 1, 1);
        EXPECT_EQ(lead.BitmapBits(), bits);
    }
    EXPECT_EQ(ReasonOf([&] { lead.Load(Path("a.bmp"), 7, 0, 1); }), "A picture cannot have 7 bits.");
}

TEST_F(LeadTest, AFileThatCannotBeLoadedLeavesThePicture)
{
    const QImage picture = Sample({ 20, 10 });
    lead.SetBitmap(picture);
    QFile text(Path("text.bmp"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("words");
    text.close();
    EXPECT_EQ(ReasonOf([&] { lead.Load(Path("missing.bmp"), 0, 0, 1); }),
        Path("missing.bmp") + " could not be opened: it is not there.");
    EXPECT_EQ(ReasonOf([&] { lead.Load(folder.path(), 0, 0, 1); }),
        folder.path() + " could not be opened: it is a folder.");
    EXPECT_EQ(ReasonOf([&] { lead.Load(Path("text.bmp"), 0, 0, 1); }),
        "The file is not a picture of a known kind.");
    EXPECT_EQ(lead.Bitmap(), picture);
}

TEST_F(LeadTest, ASaveThatFailsLeavesTheOldFile)
{
    EXPECT_EQ(ReasonOf([&] { lead.Save(Path("a.bmp"), imaging::Bmp, 24, 0, false); }),
        "There is no picture to save.");
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.Save(Path("a.bmp"), imaging::Bmp, 24, 0, false);
    EXPECT_FALSE(ReasonOf([&] { lead.Save(Path("a.bmp"), imaging::Bmp, 8, 0, false); }).isEmpty());
    EXPECT_FALSE(ReasonOf([&] { lead.Save(Path("a.bmp"), imaging::Bmp, 24, 0, true); }).isEmpty());
    EXPECT_EQ(ReasonOf([&] { lead.Save(Path("none/a.bmp"), imaging::Bmp, 24, 0, false); }),
        Path("none/a.bmp") + " could not be saved: the folder is missing.");
    Lead other;
    other.Load(Path("a.bmp"), 0, 0, 1);
    EXPECT_EQ(other.Bitmap(), lead.Bitmap());
}

TEST_F(LeadTest, AnAutomaticNameIsNotTakenTwice)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    EXPECT_TRUE(lead.SaveNew(Path("auto1.png"), imaging::Png, 24, 0));
    EXPECT_FALSE(lead.SaveNew(Path("auto1.png"), imaging::Png, 24, 0));
}

TEST_F(LeadTest, PasteTakesWhatCopyGave)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.Copy(clipboard, true);
    EXPECT_EQ(clipboard.log, QStringList({ "Open", "Empty", "SetDib", "Close" }));
    Lead other;
    EXPECT_GT(other.Paste(clipboard, Lead::PasteTake), 0);
    EXPECT_EQ(other.Bitmap(), lead.Bitmap());
}

TEST_F(LeadTest, ThePasteTestChangesNothing)
{
    EXPECT_EQ(lead.Paste(clipboard, Lead::PasteTest), 0);
    clipboard.picture = Sample({ 5, 5 });
    EXPECT_GT(lead.Paste(clipboard, Lead::PasteTest), 0);
    EXPECT_TRUE(lead.Bitmap().isNull());
}

TEST_F(LeadTest, PasteSharesThePixelsOfTheClipboard)
{
    clipboard.picture = Sample({ 5, 5 });
    lead.Paste(clipboard, Lead::PasteTake);
    EXPECT_EQ(lead.Bitmap().constBits(), clipboard.picture.constBits());
}

TEST_F(LeadTest, AClipboardThatFailsLeavesThePicture)
{
    EXPECT_FALSE(ReasonOf([&] { lead.Copy(clipboard, true); }).isEmpty());
    lead.SetBitmap(Sample({ 20, 10 }));
    EXPECT_FALSE(ReasonOf([&] { lead.Paste(clipboard, Lead::PasteTake); }).isEmpty());
    EXPECT_EQ(lead.BitmapWidth(), 20);
    clipboard.isHeldElsewhere = true;
    EXPECT_FALSE(ReasonOf([&] { lead.Copy(clipboard, true); }).isEmpty());
    EXPECT_EQ(clipboard.log, QStringList({ "Open" }));
}

TEST_F(LeadTest, APictureThatTheMemoryDoesNotHoldTwiceIsNotCopied)
{
    lead.SetBitmap(QImage(8000, 8000, QImage::Format_BGR888));
    const SmallMemory memory(100);
    if (!memory.IsThere())
        GTEST_SKIP() << "this allocator ends the program";
    EXPECT_EQ(ReasonOf([&] { lead.Copy(clipboard, true); }), "There is not enough memory for this picture.");
    EXPECT_TRUE(clipboard.log.isEmpty());
}

TEST_F(LeadTest, SizeResamplesPlainOrSmooth)
{
    QImage checks(4, 4, QImage::Format_BGR888);
    for (int i = 0; i < 16; ++i)
        checks.setPixelColor(i % 4, i / 4, (i % 4 + i / 4) % 2 ? Qt::white : Qt::black);
    lead.SetBitmap(checks);
    lead.Size(2, 2, Lead::SizeSmooth);
    EXPECT_NEAR(lead.Bitmap().pixelColor(0, 0).red(), 127, 1);
    lead.SetBitmap(checks);
    lead.Size(8, 8, Lead::SizePlain);
    EXPECT_EQ(lead.Bitmap().pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(lead.Bitmap().pixelColor(2, 0), QColor(Qt::white));
    EXPECT_FALSE(ReasonOf([&] { lead.Size(0, 8, Lead::SizePlain); }).isEmpty());
    EXPECT_EQ(lead.BitmapWidth(), 8);
}

TEST_F(LeadTest, ShowsEveryPixelInTheTopLeftCornerOnThePlainGround)
{
    const QImage picture = Sample({ 20, 10 });
    lead.SetBitmap(picture);
    const QImage shown = Shown();
    EXPECT_EQ(shown.copy(0, 0, 20, 10).convertToFormat(QImage::Format_BGR888), picture);
    EXPECT_EQ(shown.pixelColor(20, 5), Ground);
    EXPECT_EQ(shown.pixelColor(5, 10), Ground);
}

TEST_F(LeadTest, PixelsAreSharpWhenZoomedIn)
{
    lead.SetBitmap(Sample({ 15, 10 }));
    Zoom(300); // 45x30 in the middle of 60x50
    const QImage shown = Shown();
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 45; ++x)
            ASSERT_EQ(shown.pixelColor(7 + x, 10 + y), ColourAt(x / 3, y / 3)) << x << "," << y;
    EXPECT_EQ(shown.pixelColor(6, 20), Ground);
    EXPECT_EQ(shown.pixelColor(52, 20), Ground);
}

TEST_F(LeadTest, PixelsAreSharpAndExactOnADenseScreen)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    const QImage shown = Shown(2);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 40; ++x)
            ASSERT_EQ(shown.pixelColor(x, y), ColourAt(x / 2, y / 2)) << x << "," << y;
}

TEST_F(LeadTest, AtHalfSizeADenseScreenShowsEveryPixel)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.SetDstRect(0, 0, 10, 5);
    const QImage shown = Shown(2);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
            ASSERT_EQ(shown.pixelColor(x, y), ColourAt(x, y)) << x << "," << y;
}

TEST_F(LeadTest, PixelsThatFallTogetherAreMixed)
{
    QImage checks(20, 20, QImage::Format_BGR888);
    for (int i = 0; i < 400; ++i)
        checks.setPixelColor(i % 20, i / 20, (i % 20 + i / 20) % 2 ? Qt::white : Qt::black);
    lead.SetBitmap(checks);
    Zoom(50);
    EXPECT_NEAR(Shown().pixelColor(30, 25).red(), 127, 1);
}

TEST_F(LeadTest, TheLargestZoomShowsOnePixelInItsPlace)
{
    lead.resize(200, 200);
    lead.SetBitmap(Sample({ 300, 300 }));
    lead.SetAutoScroll(false);
    Zoom(10000);
    EXPECT_EQ(Shown().pixelColor(100, 100), ColourAt(100, 100)) << "what stood in the middle stays there";
}

TEST_F(LeadTest, ZoomIsHeldAtTenPercent)
{
    Zoom(15);
    lead.SetPaintZoomFactor(lead.PaintZoomFactor() - 10);
    EXPECT_EQ(lead.PaintZoomFactor(), 10);
    EXPECT_FALSE(ReasonOf([&] { lead.SetPaintSizeMode(3); }).isEmpty());
    EXPECT_EQ(lead.PaintSizeMode(), Lead::ZoomSize);
}

TEST_F(LeadTest, ThePictureFillsTheDestinationAndTheClipsLimitIt)
{
    lead.SetBitmap(Sample({ 4, 4 }));
    lead.SetDstRect(10, 10, 40, 20);
    lead.SetDstClipRect(0, 0, 30, 50);
    const QImage shown = Shown();
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            ASSERT_EQ(shown.pixelColor(10 + x, 10 + y), ColourAt(x / 10, y / 5)) << x << "," << y;
    EXPECT_EQ(shown.pixelColor(9, 15), Ground);
    EXPECT_EQ(shown.pixelColor(30, 15), Ground);
}

TEST_F(LeadTest, APartOfThePictureFillsTheDestination)
{
    lead.SetBitmap(Sample({ 20, 20 }));
    lead.SetSrcRect(5, 6, 10, 10);
    lead.SetSrcClipRect(5, 6, 5, 10);
    lead.SetDstRect(0, 0, 20, 20);
    const QImage shown = Shown();
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 10; ++x)
            ASSERT_EQ(shown.pixelColor(x, y), ColourAt(5 + x / 2, 6 + y / 2)) << x << "," << y;
    EXPECT_EQ(shown.pixelColor(10, 5), Ground);
}

TEST_F(LeadTest, MeasuresAreInTheUnitOfTheScaleMode)
{
    lead.SetBitmap(Sample({ 4, 4 }));
    EXPECT_EQ(lead.ScaleMode(), Lead::ScalePixels);
    EXPECT_EQ(lead.ClientWidth(), 60);
    lead.SetScaleMode(Lead::ScaleTwips);
    EXPECT_EQ(lead.ClientWidth(), 900);
    EXPECT_EQ(lead.ClientHeight(), 750);
    lead.SetDstRect(0, 0, 450, 300);
    EXPECT_EQ(lead.DstWidth(), 450);
    lead.SetScaleMode(Lead::ScalePixels);
    EXPECT_EQ(lead.DstWidth(), 30);
    EXPECT_EQ(lead.DstHeight(), 20);
    EXPECT_FALSE(ReasonOf([&] { lead.SetScaleMode(2); }).isEmpty());
}

TEST_F(LeadTest, APictureOfItsSizeNeedsNoScrollBars)
{
    lead.SetBitmap(Sample({ 60, 50 }));
    EXPECT_EQ(lead.ClientWidth(), 60);
    EXPECT_EQ(lead.ClientHeight(), 50);
}

TEST_F(LeadTest, ALargerPictureHasScrollBarsUnlessTheyAreOff)
{
    lead.resize(200, 200);
    lead.SetBitmap(Sample({ 400, 195 }));
    EXPECT_LT(lead.ClientHeight(), 200);
    EXPECT_LT(lead.ClientWidth(), 200) << "the lower bar makes the other necessary";
    lead.SetAutoScroll(false);
    EXPECT_EQ(lead.ClientHeight(), 200);
}

TEST_F(LeadTest, TheScrollBarMovesThePicture)
{
    lead.resize(200, 200);
    lead.SetBitmap(Sample({ 400, 400 }));
    for (QScrollBar* bar : lead.findChildren<QScrollBar*>())
        bar->setValue(bar->maximum());
    const int width = int(lead.ClientWidth()), height = int(lead.ClientHeight());
    EXPECT_EQ(Shown().pixelColor(width - 1, height - 1), ColourAt(399, 399));
}

TEST_F(LeadTest, TheWheelMovesThePictureUpAndWithShiftSideways)
{
    lead.resize(200, 200);
    lead.SetBitmap(Sample({ 400, 400 }));
    Turn({ 0, -120 });
    EXPECT_EQ(Shown().pixelColor(0, 0), ColourAt(0, 60));
    Turn({ 0, -120 }, Qt::ShiftModifier);
    EXPECT_EQ(Shown().pixelColor(0, 0), ColourAt(60, 60));
    Turn({ 0, 1200 });
    EXPECT_EQ(Shown().pixelColor(0, 0), ColourAt(60, 0));
}

TEST_F(LeadTest, TheMiddleButtonDragsThePictureAndTheOthersDoNot)
{
    lead.resize(200, 200);
    lead.SetBitmap(Sample({ 400, 400 }));
    for (const auto button : { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }) {
        QTest::mousePress(&lead, button, {}, { 100, 100 });
        QMouseEvent move(QEvent::MouseMove, QPointF(70, 80), lead.mapToGlobal(QPointF(70, 80)), Qt::NoButton,
            button, Qt::NoModifier);
        QCoreApplication::sendEvent(&lead, &move);
        QTest::mouseRelease(&lead, button, {}, { 70, 80 });
        const QColor corner = button == Qt::MiddleButton ? ColourAt(30, 20) : ColourAt(0, 0);
        EXPECT_EQ(Shown().pixelColor(0, 0), corner) << button;
    }
}

TEST_F(LeadTest, EveryMouseButtonIsTold)
{
    QSignalSpy down(&lead, &Lead::MouseDown), up(&lead, &Lead::MouseUp);
    for (const auto button : { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }) {
        QTest::mouseClick(&lead, button, {}, { 12, 13 });
        ASSERT_FALSE(down.isEmpty());
        EXPECT_EQ(down.takeFirst(), QVariantList({ QVariant::fromValue(button), QPoint(12, 13) }));
        EXPECT_EQ(up.takeFirst(), QVariantList({ QVariant::fromValue(button), QPoint(12, 13) }));
    }
}

TEST_F(LeadTest, WithoutBackEraseTheGroundIsLeftAlone)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.SetBackErase(false);
    EXPECT_EQ(Shown().pixelColor(40, 40), QColor(Qt::magenta));
    EXPECT_EQ(Shown().pixelColor(3, 3), ColourAt(3, 3));
}

TEST_F(LeadTest, FlagsAndModesHaveTheirNumbers)
{
    EXPECT_EQ(Lead::PasteTake, 0);
    EXPECT_EQ(Lead::PasteTest, 16384);
    EXPECT_EQ(Lead::SizePlain, 0);
    EXPECT_EQ(Lead::SizeSmooth, 1);
    EXPECT_EQ(Lead::UnderlayTile, 0);
    EXPECT_EQ(Lead::UnderlayStretch, 1);
    EXPECT_EQ(Lead::ScaleTwips, 1);
    EXPECT_EQ(Lead::ScalePixels, 3);
    EXPECT_EQ(Lead::ActualSize, 0);
    EXPECT_EQ(Lead::ZoomSize, 4);
}

TEST_F(LeadTest, MuchSmallerAPictureShowsTheMeanOfThePixelsThatFallTogether)
{
    const QImage picture = Sample({ 480, 400 });
    lead.SetAutoScroll(false);
    lead.SetBitmap(picture);
    lead.SetDstRect(0, 0, 60, 50);
    const QImage mean = imaging::Resample(picture, { 60, 50 }, imaging::Resampling::Smooth);
    const QImage shown = Shown();
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 60; ++x) {
            EXPECT_NEAR(shown.pixelColor(x, y).red(), mean.pixelColor(x, y).red(), 1);
            EXPECT_NEAR(shown.pixelColor(x, y).blue(), mean.pixelColor(x, y).blue(), 1);
        }
    }
}

TEST_F(LeadTest, AChangeIsPaintedByItselfOnlyWithAutoRepaint)
{
    lead.SetBitmap(Sample({ 20, 10 }));
    lead.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&lead));
    QCoreApplication::processEvents();
    PaintCount paints(lead);
    lead.SetAutoRepaint(false);
    lead.SetBitmap(Sample({ 30, 20 }));
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    lead.ForceRepaint();
    EXPECT_EQ(paints.count, 1);
    lead.SetAutoRepaint(true);
    lead.SetBitmap(Sample({ 20, 10 }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }));
}

TEST_F(LeadTest, ATransparentPictureShowsTheGround)
{
    QImage clear(20, 10, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    lead.SetBitmap(clear);
    EXPECT_EQ(Shown().pixelColor(3, 3), Ground);
}

namespace {

/// A text over the middle of a picture of 60 by 50.
class LeadTextTest : public LeadTest {
protected:
    LeadTextTest()
    {
        QImage plain(60, 50, QImage::Format_BGR888);
        plain.fill(Qt::darkBlue);
        lead.SetBitmap(plain);
        lead.Font.Name = QStringLiteral("DejaVu Sans");
        lead.Font.size = 24;
        lead.DrawFontColor = 0x00FFFF;
        lead.TextWidth = lead.DstWidth();
        lead.TextHeight = lead.DstHeight();
    }
    static bool HasText(const QImage& picture)
    {
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == QColor(Qt::yellow))
                    return true;
        return false;
    }
    void Draw(bool persistence)
    {
        lead.DrawPersistence = persistence;
        lead.DrawText(QStringLiteral("HH"), 0);
    }
};

} // namespace

TEST_F(LeadTextTest, PersistentTextIsInThePictureAndOnTheScreen)
{
    const QImage before = lead.Bitmap();
    Draw(true);
    EXPECT_TRUE(HasText(lead.Bitmap()));
    EXPECT_TRUE(HasText(Shown()));
    EXPECT_FALSE(HasText(before)) << "who shares the picture keeps it";
}

TEST_F(LeadTextTest, OtherTextIsOnTheScreenUntilThePictureChanges)
{
    Draw(false);
    EXPECT_FALSE(HasText(lead.Bitmap()));
    EXPECT_TRUE(HasText(Shown()));
    lead.SetBitmap(lead.Bitmap());
    EXPECT_FALSE(HasText(Shown()));
}

TEST_F(LeadTextTest, AnEmptyControlHasNothingToDrawOn)
{
    lead.SetBitmap({});
    EXPECT_THROW(Draw(true), ControlError);
}

TEST_F(LeadTextTest, BoldIsTheControlsOwn)
{
    const QImage plain = lead.Bitmap();
    Draw(true);
    const QImage regular = lead.Bitmap();
    lead.SetBitmap(plain);
    lead.Font.Bold = true;
    Draw(true);
    EXPECT_NE(lead.Bitmap(), regular);
}

TEST_F(LeadTest, ThePlaceScrolledToStaysWhileThereAreNoBars)
{
    lead.SetBitmap(Sample({ 300, 300 }));
    lead.show();
    QScrollBar* across = lead.findChildren<QScrollBar*>().first();
    across->setValue(100);
    const QImage before = Shown();
    lead.SetAutoScroll(false);
    EXPECT_FALSE(across->isVisible());
    lead.SetAutoScroll(true);
    EXPECT_EQ(across->value(), 100);
    EXPECT_EQ(Shown(), before);
}
