#pragma once

#include "media/Caption.h"

namespace media {

/// How letters look that are written from now on.
struct DigitalPen {
    QRgb colour = qRgb(255, 255, 255);
    bool isItalic = false;
    bool isUnderlined = false;

    bool operator==(const DigitalPen&) const = default;
};

/// One of the windows of digital captions (CEA-708): rows of letters, and where they stand on the picture.
class DigitalWindow {
public:
    static constexpr int ParameterBytes = 6;

    /// Takes the parameters of the command that defines a window; text stays in one of the same size.
    void Define(const uint8_t* parameters);
    void Delete() { *this = DigitalWindow(); }
    void Show(bool isVisible) { isVisible_ = isVisible; }
    bool IsVisible() const { return isVisible_; }
    void Justify(int justification) { justification_ = justification; }

    void Clear();
    void Write(char16_t letter, const DigitalPen& pen);
    void MovePen(int row, int column);
    void Backspace();
    void NewLine();
    void BeginLineAnew();

    /// Appends the rows that say something.
    void AddTo(Caption& caption) const;

private:
    struct Cell {
        char16_t letter = 0; ///< 0 for none
        DigitalPen pen = {};
    };
    using Row = std::vector<Cell>;
    Row EmptyRow() const { return Row(size_t(columns_)); }
    CaptionRow Said(const Row& row) const;
    int Top() const;
    int Left(int letters) const;

    std::vector<Row> rows_;
    int columns_ = 0;
    int penRow_ = 0;
    int penColumn_ = 0;
    int anchorPoint_ = 0; ///< of the window, from 0 (upper left) to 8 (lower right), row by row
    double anchorDown_ = 0; ///< where it stands, in parts of the area of captions
    double anchorRight_ = 0;
    int justification_ = 0; ///< left, right, centre
    bool isVisible_ = false;
};

} // namespace media
