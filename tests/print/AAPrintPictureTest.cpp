#include "print/AAPrintPicture.h"

#include "tests/testing/FakeFrame.h"
#include "tests/testing/ReasonOf.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

constexpr int QuarterInch = PrinterPixelsPerInch / 4;
/// A4 less a quarter of an inch on each side, in pixels of the screen.
constexpr QSize Page(746, 1075);
constexpr QSize Preview(Page.width() - 28, Page.height() - 52);

QImage Plain(QSize size, QColor color)
{
    QImage picture(size, QImage::Format_BGR888);
    picture.fill(color);
    return picture;
}

class AAPrintPictureTest : public testing::Test {
protected:
    FakeFrame frame;
    FakePrinters& printers = frame.printers;
    AAPrintPicture control { frame };

    /// As it is printed.
    QImage Printed()
    {
        frame.state.PrintCall = true;
        control.PrintPicture();
        return printers.jobs.last().page;
    }
    static bool IsRed(const QImage& page, int x, int y) { return page.pixelColor(x, y) == QColor(Qt::red); }
};

} // namespace

TEST_F(AAPrintPictureTest, ItBeginsWithThePropertiesOfAnA4PageAndThePictureInTheMiddle)
{
    EXPECT_EQ(control.Align(), 4);
    EXPECT_TRUE(control.Picture().isNull());
    EXPECT_TRUE(control.ShowBorder());
    EXPECT_EQ(control.DefultPrinter(), QString());
    EXPECT_EQ(control.PaperSize(), 2);
    EXPECT_EQ(control.PaperWidth(), 210);
    EXPECT_EQ(control.PaperHeight(), 297);
    EXPECT_FALSE(control.Stretch());
    EXPECT_EQ(control.GetPaperWH(), QSize(210, 297));
}

TEST_F(AAPrintPictureTest, PropertiesAreSavedUnderTheirNamesAndReadBack)
{
    const QImage picture = Plain({ 3, 2 }, Qt::red);
    control.SetAlign(7);
    control.SetPicture(picture);
    control.SetShowBorder(false);
    control.SetDefultPrinter(QStringLiteral("Beta"));
    control.SetPaperSize(0);
    control.SetPaperWidth(100);
    control.SetPaperHeight(120);
    control.SetStretch(true);
    const QVariantMap saved = control.SavedProperties();
    EXPECT_EQ(saved.keys(),
        QStringList({ QStringLiteral("Align"), QStringLiteral("PaperHeight"), QStringLiteral("PaperSize"),
            QStringLiteral("PaperWidth"), QStringLiteral("Picture"), QStringLiteral("Printer"),
            QStringLiteral("ShowBorder"), QStringLiteral("Stretch") }));
    AAPrintPicture other(frame);
    other.ReadProperties(saved);
    EXPECT_EQ(other.SavedProperties(), saved);
    EXPECT_EQ(other.Picture(), picture);
    other.ReadProperties({});
    EXPECT_EQ(other.SavedProperties(), AAPrintPicture(frame).SavedProperties());
}

TEST_F(AAPrintPictureTest, SettingAPropertyIsToldAndDrawsNothing)
{
    QSignalSpy changes(&control, &AAPrintPicture::PropertyChanged);
    control.SetAlign(2);
    control.SetPicture(Plain({ 3, 2 }, Qt::red));
    control.SetShowBorder(false);
    control.SetDefultPrinter(QStringLiteral("Beta"));
    control.SetPaperSize(0);
    control.SetPaperWidth(100);
    control.SetPaperHeight(120);
    control.SetStretch(true);
    QStringList told;
    for (const QVariantList& change : changes)
        told << change[0].toString();
    EXPECT_EQ(told.join(u' '),
        QStringLiteral("Align Picture ShowBorder Printer PaperSize PaperWidth PaperHeight Stretch"));
    EXPECT_TRUE(printers.papers.isEmpty()) << "the printer is asked with each page";
}

TEST_F(AAPrintPictureTest, TheMarginsAreWhatThePrinterCannotReach)
{
    QSignalSpy told(&control, &AAPrintPicture::PrinterMargin);
    printers.margins = { 40, 80, 120, 160 };
    control.GetPrinterMargin();
    EXPECT_EQ(control.MarginLeft, 40);
    EXPECT_EQ(control.MarginTop, 80);
    EXPECT_EQ(control.MarginRight, 120);
    EXPECT_EQ(control.MarginBottom, 160);
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0], QVariantList({ 40, 80, 120, 160 })) << "left, top, right, bottom";
}

TEST_F(AAPrintPictureTest, MarginsStayAsTheyWereWhenThePrinterFailsAndThePreviewIsDrawnFromThem)
{
    control.GetPrinterMargin();
    printers.failsMetrics = true;
    QSignalSpy told(&control, &AAPrintPicture::PrinterMargin);
    EXPECT_EQ(control.GetPreview().size(), Preview);
    EXPECT_EQ(control.MarginLeft, QuarterInch);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(AAPrintPictureTest, ThePreviewIsSmallerThanThePrintByAFixedAmount)
{
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    EXPECT_EQ(control.GetPreview().size(), Preview);
    EXPECT_EQ(Printed().size(), Page);
    EXPECT_EQ(control.GetPreview().size(), Preview) << "a print does not last";
}

TEST_F(AAPrintPictureTest, MarginsOfTheSidesMakeThePageNarrowerAndThoseAboveAndBelowMakeItLower)
{
    printers.margins = { 40, 80, 120, 160 };
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    const QSize page(794 - (40 + 120) / 4, 1123 - (80 + 160) / 4);
    EXPECT_EQ(control.GetPreview().size(), page - QSize(28, 52));
    EXPECT_EQ(Printed().size(), page);
    EXPECT_EQ(printers.jobs.last().at, QPoint(40, 80)) << "the page begins where the printer can";
}

TEST_F(AAPrintPictureTest, ThePageDrawnLastIsShownWhicheverWasAskedForFirst)
{
    control.SetPicture(Plain({ 100, 50 }, Qt::red));
    QImage newer;
    frame.whenPumped = [&] {
        frame.whenPumped = {};
        control.SetAlign(8);
        newer = control.GetPreview();
    };
    control.SetAlign(0);
    const QImage older = control.GetPreview();
    EXPECT_TRUE(IsRed(newer, newer.width() - 1, newer.height() - 1));
    EXPECT_EQ(older, newer);
}

TEST_F(AAPrintPictureTest, ThePreviewLetsEventsThroughOnce)
{
    control.GetPreview();
    EXPECT_EQ(frame.log, QStringList(QStringLiteral("PumpEvents")));
}

TEST_F(AAPrintPictureTest, ThePictureStandsAtItsOwnSizeWhereAlignPutsIt)
{
    control.SetPicture(Plain({ 100, 50 }, Qt::red));
    for (const int align : { 0, 1, 2, 3, 4, 5, 6, 7, 8 }) {
        control.SetAlign(align);
        const QImage page = Printed();
        const int x = (Page.width() - 100) * (align % 3) / 2;
        const int y = (Page.height() - 50) * (align / 3) / 2;
        EXPECT_TRUE(IsRed(page, x, y) && IsRed(page, x + 99, y + 49)) << align;
        EXPECT_FALSE(x > 0 && IsRed(page, x - 1, y)) << align;
        EXPECT_FALSE(y > 0 && IsRed(page, x, y - 1)) << align;
        EXPECT_FALSE(x + 100 < Page.width() && IsRed(page, x + 100, y)) << align;
        EXPECT_FALSE(y + 50 < Page.height() && IsRed(page, x, y + 50)) << align;
    }
}

TEST_F(AAPrintPictureTest, OfAPictureLargerThanThePageTheMiddleIsPrintedAndTheEdgesAreCut)
{
    QImage picture = Plain({ 1920, 1600 }, Qt::blue);
    picture.setPixelColor(960, 800, Qt::red);
    control.SetPicture(picture);
    const QImage page = Printed();
    EXPECT_EQ(page.size(), Page);
    EXPECT_TRUE(IsRed(page, 960 - (1920 - Page.width()) / 2, 800 - (1600 - Page.height() + 1) / 2));
    for (const QPoint corner : { QPoint(0, 0), QPoint(Page.width() - 1, Page.height() - 1) })
        EXPECT_EQ(page.pixelColor(corner), QColor(Qt::blue));
}

TEST_F(AAPrintPictureTest, StretchFillsThePageWhateverAlignSays)
{
    control.SetPicture(Plain({ 30, 20 }, Qt::red));
    control.SetStretch(true);
    QImage before;
    for (const int align : { 0, 4, 8 }) {
        control.SetAlign(align);
        const QImage page = control.GetPreview();
        EXPECT_EQ(page, Plain(Preview, Qt::red).convertToFormat(page.format())) << align;
    }
}

TEST_F(AAPrintPictureTest, APaperOfTheUsersOwnIsPreviewedInItsSizeAndGoesToThePrinterAsCode256)
{
    printers.margins = {};
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    control.SetPaperSize(0);
    control.SetPaperWidth(100);
    control.SetPaperHeight(100);
    EXPECT_EQ(control.GetPreview().size(), QSize(378 - 28, 378 - 52));
    EXPECT_EQ(printers.papers.last(), Paper({ 256, { 100, 100 } }));
    EXPECT_EQ(Printed().size(), QSize(378, 378));
    EXPECT_EQ(printers.jobs.last().paper, Paper({ 256, { 100, 100 } }));
}

TEST_F(AAPrintPictureTest, ThePageIsHandedToThePrinterAtItsMargins)
{
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    Printed();
    EXPECT_EQ(printers.jobs.last().at, QPoint(QuarterInch, QuarterInch));
}

TEST_F(AAPrintPictureTest, HighQPrintsAt600DotsAndBWWithoutColour)
{
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    for (const bool isHigh : { true, false })
        for (const bool isGrey : { true, false }) {
            frame.state.HighQ = isHigh;
            frame.state.BW = isGrey;
            Printed();
            EXPECT_EQ(printers.jobs.last().quality, isHigh ? 600 : 300);
            EXPECT_EQ(int(printers.jobs.last().color), isGrey ? 1 : 2);
        }
}

TEST_F(AAPrintPictureTest, WhatThePrinterRefusesIsTheControlsFailure)
{
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    printers.failsPrint = true;
    EXPECT_EQ(ReasonOf([&] { control.PrintPicture(); }), QStringLiteral("The printer does not answer."));
}

TEST_F(AAPrintPictureTest, APaperThatLeavesNoPageIsNotPrintedAndHasNoPreview)
{
    control.SetPicture(Plain({ 10, 10 }, Qt::red));
    control.SetPaperSize(0);
    for (const qint16 side : { qint16(1), qint16(0), qint16(-5), qint16(32767) }) {
        control.SetPaperWidth(side);
        control.SetPaperHeight(side);
        EXPECT_TRUE(control.GetPreview().isNull()) << side;
        EXPECT_NE(ReasonOf([&] { control.PrintPicture(); }), QString()) << side;
    }
    EXPECT_TRUE(printers.jobs.isEmpty());
}
