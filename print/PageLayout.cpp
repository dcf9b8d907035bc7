#include "print/PageLayout.h"

#include <array>

namespace PageLayout {
namespace {

struct PaperRow {
    int code;
    QSize size; // millimetres
};

constexpr PaperRow Papers[] {
    { Paper::UserDefined, {} },
    { 11, { 148, 210 } },
    { 9, { 210, 297 } },
    { 8, { 297, 420 } },
    { 12, { 250, 354 } },
    { 13, { 182, 257 } },
    { 15, { 215, 275 } },
};
constexpr int OrdinaryPaper = 2;

enum class Edge { Near, Middle, Far };

struct AlignRow {
    Edge across;
    Edge down;
};

constexpr AlignRow Aligns[] {
    { Edge::Near, Edge::Near },
    { Edge::Middle, Edge::Near },
    { Edge::Far, Edge::Near },
    { Edge::Near, Edge::Middle },
    { Edge::Middle, Edge::Middle },
    { Edge::Far, Edge::Middle },
    { Edge::Near, Edge::Far },
    { Edge::Middle, Edge::Far },
    { Edge::Far, Edge::Far },
};

/// Printer pixels to one of the screen. Every printer's resolution is told so that it is this.
constexpr int PrinterPixelsPerPixel = 4;
static_assert(PrinterPixelsPerInch == PrinterPixelsPerPixel * 96);
constexpr double PixelsPerMillimetre = 96 / 25.4;

template <std::size_t Count, typename Row> bool IsRowOf(const Row (&)[Count], int index)
{
    return index >= 0 && index < int(Count);
}

int Start(Edge edge, int page, int picture)
{
    switch (edge) {
    case Edge::Near:
        return 0;
    case Edge::Middle:
        return (page - picture) >> 1; // down to the next whole pixel, below 0 too
    case Edge::Far:
        return page - picture;
    }
    Q_UNREACHABLE();
}

int Length(int millimetres, int marginsOfBothSides)
{
    return qRound(millimetres * PixelsPerMillimetre - double(marginsOfBothSides) / PrinterPixelsPerPixel);
}

} // namespace

Paper PaperOf(int paperSize, QSize custom)
{
    const PaperRow& row = Papers[IsRowOf(Papers, paperSize) ? paperSize : OrdinaryPaper];
    return { row.code, row.code == Paper::UserDefined ? custom : row.size };
}

QSize PageSize(QSize paper, QMargins margins)
{
    return { Length(paper.width(), margins.left() + margins.right()),
        Length(paper.height(), margins.top() + margins.bottom()) };
}

QSize PreviewSize(QSize page)
{
    return page - QSize(PreviewNarrower.Pixels(), PreviewLower.Pixels());
}

QPoint PlaceOf(int align, QSize page, QSize picture)
{
    const AlignRow& row = Aligns[IsRowOf(Aligns, align) ? align : 0];
    return { Start(row.across, page.width(), picture.width()),
        Start(row.down, page.height(), picture.height()) };
}

} // namespace PageLayout
