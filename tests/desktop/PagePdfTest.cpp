#include "desktop/PagePdf.h"

#include "tests/testing/RenderedPdf.h"

namespace {

constexpr Paper A4 { 9, { 210, 297 } };

PrintJob Colourful()
{
    PrintJob job { QStringLiteral("A page"), A4, QImage(97, 61, QImage::Format_RGB32), {}, 300,
        ColorMode::Color };
    for (int y = 0; y < job.page.height(); ++y)
        for (int x = 0; x < job.page.width(); ++x)
            job.page.setPixelColor(x, y, QColor(x * 2, y * 4, (x * y) % 256));
    return job;
}

} // namespace

TEST(PagePdf, EveryPixelOfThePageIsInTheDocument)
{
    const PrintJob job = Colourful();
    EXPECT_EQ(EmbeddedInPdf(PagePdf(job)).convertToFormat(QImage::Format_RGB32), job.page);
}

TEST(PagePdf, WithoutColourThePageIsGrey)
{
    PrintJob job = Colourful();
    job.color = ColorMode::Monochrome;
    const QImage printed = EmbeddedInPdf(PagePdf(job));
    EXPECT_TRUE(printed.allGray());
    EXPECT_EQ(printed.convertToFormat(QImage::Format_Grayscale8),
        job.page.convertToFormat(QImage::Format_Grayscale8));
}

TEST(PagePdf, TheSheetHasTheSizeOfThePaper)
{
    PrintJob job = Colourful();
    for (const QSize millimetres :
        { QSize(210, 297), QSize(148, 210), QSize(250, 354), QSize(100, 100), QSize(300, 120) }) {
        job.paper = { Paper::UserDefined, millimetres };
        const QImage sheet = RenderedPdf(PagePdf(job), 127); // five dots to the millimetre
        EXPECT_NEAR(sheet.width(), millimetres.width() * 5, 2);
        EXPECT_NEAR(sheet.height(), millimetres.height() * 5, 2);
    }
}

TEST(PagePdf, ThePageStandsAtItsPlaceOnTheSheetInItsOwnSize)
{
    PrintJob job = Colourful();
    job.page.fill(Qt::red);
    job.at = { PrinterPixelsPerInch, 2 * PrinterPixelsPerInch };
    const QImage sheet = RenderedPdf(PagePdf(job), 96).convertToFormat(QImage::Format_RGB32);
    const QRect page(QPoint(96, 2 * 96), job.page.size());
    EXPECT_EQ(sheet.copy(page), job.page);
    const QRect around = page.adjusted(-2, -2, 2, 2);
    for (const QPoint outside :
        { around.topLeft(), around.topRight(), around.bottomLeft(), around.bottomRight() })
        EXPECT_EQ(sheet.pixelColor(outside), QColor(Qt::white));
}

TEST(PagePdf, APaperWithoutSizeOrAPageWithoutPixelsIsRefused)
{
    PrintJob job = Colourful();
    job.paper.size = {};
    EXPECT_THROW(PagePdf(job), PrinterError);
    job = Colourful();
    job.page = {};
    EXPECT_THROW(PagePdf(job), PrinterError);
}
