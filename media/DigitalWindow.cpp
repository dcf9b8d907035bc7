#include "media/DigitalWindow.h"

#include <algorithm>
#include <cmath>

namespace media {

namespace {

// The anchors' own grid, of wide pictures; the area of captions is 42 letters wide on it.
constexpr double AnchorsDown = 75;
constexpr double AnchorsRight = 210;
constexpr double Percent = 100;
constexpr int WideColumns = 42;
constexpr int WideMargin = (WideColumns - CaptionColumns) / 2;

enum Justification { FromLeft, FromRight, Centred };

/// Where a length begins that is anchored at its begin, middle or end (0 to 2), kept within a range.
int BeginOf(double anchor, int part, int length, int range)
{
    const int begin = int(std::lround(anchor * range - length * part / 2.0));
    return std::clamp(begin, 0, std::max(range - length, 0));
}

bool IsEmpty(char16_t letter)
{
    return letter == 0 || letter == u' ';
}

} // namespace

void DigitalWindow::Define(const uint8_t* parameters)
{
    constexpr int VisibleBit = 0x20;
    constexpr int RelativeBit = 0x80;
    const bool isRelative = parameters[1] & RelativeBit;
    isVisible_ = parameters[0] & VisibleBit;
    anchorDown_ = (parameters[1] & 0x7F) / (isRelative ? Percent : AnchorsDown);
    anchorRight_ = parameters[2] / (isRelative ? Percent : AnchorsRight);
    anchorPoint_ = std::min(parameters[3] >> 4, 8);
    const int rows = std::min((parameters[3] & 0x0F) + 1, CaptionRows);
    const int columns = std::min((parameters[4] & 0x3F) + 1, WideColumns);
    if (rows == int(rows_.size()) && columns == columns_)
        return;
    columns_ = columns;
    rows_.assign(size_t(rows), EmptyRow());
    MovePen(0, 0);
}

void DigitalWindow::Clear()
{
    std::ranges::fill(rows_, EmptyRow());
    MovePen(0, 0);
}

void DigitalWindow::Write(char16_t letter, const DigitalPen& pen)
{
    if (penRow_ >= int(rows_.size()) || penColumn_ >= columns_)
        return;
    rows_[size_t(penRow_)][size_t(penColumn_++)] = { letter, pen };
}

void DigitalWindow::MovePen(int row, int column)
{
    penRow_ = row;
    penColumn_ = column;
}

void DigitalWindow::Backspace()
{
    if (penColumn_ == 0)
        return;
    --penColumn_;
    Write(0, {});
    --penColumn_;
}

void DigitalWindow::NewLine()
{
    penColumn_ = 0;
    if (penRow_ + 1 < int(rows_.size())) {
        ++penRow_;
    } else if (!rows_.empty()) {
        rows_.erase(rows_.begin());
        rows_.push_back(EmptyRow());
    }
}

void DigitalWindow::BeginLineAnew()
{
    if (penRow_ < int(rows_.size()))
        rows_[size_t(penRow_)] = EmptyRow();
    penColumn_ = 0;
}

int DigitalWindow::Top() const
{
    return BeginOf(anchorDown_, anchorPoint_ / 3, int(rows_.size()), CaptionRows);
}

int DigitalWindow::Left(int letters) const
{
    const int left = BeginOf(anchorRight_, anchorPoint_ % 3, columns_, WideColumns) - WideMargin;
    const int room = std::max(columns_ - letters, 0);
    return justification_ == FromRight ? left + room : justification_ == Centred ? left + room / 2 : left;
}

/// A row from its first letter to its last, its column counted from the window's left.
CaptionRow DigitalWindow::Said(const Row& row) const
{
    const auto isLetter = [](const Cell& cell) { return !IsEmpty(cell.letter); };
    const auto first = std::ranges::find_if(row, isLetter);
    const auto end = std::find_if(row.rbegin(), row.rend(), isLetter).base();
    CaptionRow said;
    said.column = int(first - row.begin());
    for (auto cell = first; cell < end; ++cell) {
        if (cell == first || cell->pen != std::prev(cell)->pen)
            said.runs.push_back({ {}, cell->pen.colour, cell->pen.isItalic, cell->pen.isUnderlined });
        said.runs.back().text += QChar(cell->letter ? cell->letter : u' ');
    }
    return said;
}

void DigitalWindow::AddTo(Caption& caption) const
{
    for (size_t i = 0; i < rows_.size(); ++i) {
        CaptionRow said = Said(rows_[i]);
        if (said.runs.empty())
            continue;
        int letters = 0;
        for (const CaptionRun& run : said.runs)
            letters += int(run.text.size());
        said.row = Top() + int(i);
        said.column = Left(letters) + (justification_ == FromLeft ? said.column : 0);
        caption.push_back(std::move(said));
    }
}

} // namespace media
