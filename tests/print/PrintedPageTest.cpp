// A page on its whole way: laid out, painted as a document, and turned into the dots of a printer.
#include "desktop/PagePdf.h"
#include "print/AAPrintPicture.h"

#include "tests/testing/FakeFrame.h"
#include "tests/testing/RenderedPdf.h"

#include <algorithm>

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr int Dots = 192;
constexpr double Within = 0.5; // millimetres

/// The part of a page that is not white, from its left or upper edge, in millimetres.
struct Stretch {
    double start;
    double length;
    double page;
};

struct Seen {
    Stretch across;
    Stretch down;
};

QRect Inked(const QImage& page)
{
    QImage mask = page.convertToFormat(QImage::Format_Grayscale8);
    mask.invertPixels();
    QRect inked;
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* const row = mask.constScanLine(y);
        const auto isInk = [](uchar darkness) { return darkness > 64; };
        const uchar* const end = row + mask.width();
        const uchar* const first = std::find_if(row, end, isInk);
        if (first != end)
            inked |= QRect(int(first - row), y, int(std::count_if(first, end, isInk)), 1);
    }
    return inked;
}

Seen SeenOn(const QImage& page, int dotsPerInch)
{
    const double scale = MillimetresPerInch / dotsPerInch;
    const QRect inked = Inked(page);
    return { { inked.x() * scale, inked.width() * scale, page.width() * scale },
        { inked.y() * scale, inked.height() * scale, page.height() * scale } };
}

/// How far the picture is from the edge, or its middle from the middle, by which it is aligned.
double FromAnchor(int anchor, const Stretch& picture)
{
    const double room = picture.page - picture.length;
    return anchor == 0 ? picture.start : anchor == 1 ? picture.start - room / 2 : room - picture.start;
}

class PrintedPageTest : public testing::Test {
protected:
    FakeFrame frame;
    AAPrintPicture control { frame };

    void SetUp() override
    {
        QImage picture(320, 180, QImage::Format_BGR888);
        picture.fill(Qt::red);
        control.SetPicture(picture);
    }
    /// The part of the sheet that the printer reaches.
    QImage Printed()
    {
        frame.state.PrintCall = true;
        control.PrintPicture();
        const QImage sheet = RenderedPdf(PagePdf(frame.printers.jobs.last()), Dots);
        return sheet.copy(sheet.rect() - frame.printers.margins * (double(Dots) / PrinterPixelsPerInch));
    }
};

} // namespace

TEST_F(PrintedPageTest, ThePictureIsPrintedWhereThePreviewShowsIt)
{
    for (const int align : { 0, 1, 2, 3, 4, 5, 6, 7, 8 }) {
        control.SetAlign(align);
        const Seen shown = SeenOn(control.GetPreview(), 96);
        const Seen printed = SeenOn(Printed(), Dots);
        EXPECT_NEAR(FromAnchor(align % 3, printed.across), FromAnchor(align % 3, shown.across), Within)
            << align;
        EXPECT_NEAR(FromAnchor(align / 3, printed.down), FromAnchor(align / 3, shown.down), Within) << align;
        EXPECT_NEAR(printed.across.length, shown.across.length, Within) << align;
        EXPECT_NEAR(printed.down.length, shown.down.length, Within) << align;
    }
}

TEST_F(PrintedPageTest, EachSideOfThePaperKeepsItsOwnMargin)
{
    frame.printers.margins = QMargins(1, 2, 3, 4) * (PrinterPixelsPerInch / 4);
    for (const int align : { 0, 4, 8 }) {
        control.SetAlign(align);
        const Seen printed = SeenOn(Printed(), Dots);
        EXPECT_NEAR(FromAnchor(align % 3, printed.across), 0, Within) << align;
        EXPECT_NEAR(FromAnchor(align / 3, printed.down), 0, Within) << align;
    }
}

TEST_F(PrintedPageTest, TheMiddleOfAnyPaperIsItsMiddle)
{
    for (const int paper : { 1, 2, 3, 4, 5, 6 }) {
        control.SetPaperSize(paper);
        const Seen printed = SeenOn(Printed(), Dots);
        EXPECT_NEAR(FromAnchor(1, printed.across), 0, Within) << paper;
        EXPECT_NEAR(FromAnchor(1, printed.down), 0, Within) << paper;
    }
}
