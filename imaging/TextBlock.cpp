#include "imaging/TextBlock.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStringList>

namespace imaging {
namespace {

constexpr double Unlimited = 1e6; // pixels; Qt's own lines end somewhat above

QTextOption Option(bool wraps)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute); // AlignToBlock knows the width to align to
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    return option;
}

} // namespace

TextBlock::TextBlock(const QString& text, const QFont& font, double wrapWidth, double height)
{
    static const QRegularExpression lineBreak(QStringLiteral("\\r\\n|\\r|\\n|\\x{2028}|\\x{2029}"));
    for (const QString& paragraph : text.split(lineBreak))
        AddParagraph(paragraph, font, wrapWidth, height);
    for (QTextLayout& paragraph : paragraphs_)
        AlignToBlock(paragraph);
}

void TextBlock::AddParagraph(const QString& text, const QFont& font, double wrapWidth, double height)
{
    QTextLayout& paragraph = paragraphs_.emplace_back(text, font);
    const bool wraps = wrapWidth > 0;
    paragraph.setTextOption(Option(wraps));
    paragraph.setCacheEnabled(true);
    paragraph.beginLayout();
    while (size_.height() < height) {
        QTextLine line = paragraph.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(wraps ? wrapWidth : Unlimited);
        line.setPosition({ 0, size_.height() });
        size_ = { qMax(size_.width(), line.naturalTextWidth()), size_.height() + line.height() };
    }
    paragraph.endLayout();
}

void TextBlock::AlignToBlock(QTextLayout& paragraph) const
{
    if (!paragraph.text().isRightToLeft())
        return;
    for (int i = 0; i < paragraph.lineCount(); ++i) {
        QTextLine line = paragraph.lineAt(i);
        line.setPosition({ size_.width() - line.naturalTextWidth(), line.y() });
    }
}

void TextBlock::Draw(QPainter& painter) const
{
    for (const QTextLayout& paragraph : paragraphs_)
        paragraph.draw(&painter, {});
}

} // namespace imaging
