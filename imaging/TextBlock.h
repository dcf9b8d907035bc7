#pragma once

#include <QFont>
#include <QSizeF>
#include <QTextLayout>

#include <deque>

class QPainter;

namespace imaging {

/// A text laid out in lines of whatever scripts it is written in.
class TextBlock {
public:
    /// Lines break where the text says, and at wrapWidth when that is positive. Lines that would begin below
    /// height are left out. font is of the device that is drawn on.
    TextBlock(const QString& text, const QFont& font, double wrapWidth, double height);

    /// The room that the lines take, in pixels.
    QSizeF Size() const { return size_; }
    /// Draws with the painter's pen, the upper left corner at the origin.
    void Draw(QPainter& painter) const;

private:
    void AddParagraph(const QString& text, const QFont& font, double wrapWidth, double height);
    void AlignToBlock(QTextLayout& paragraph) const;

    std::deque<QTextLayout> paragraphs_;
    QSizeF size_ { 0, 0 };
};

} // namespace imaging
