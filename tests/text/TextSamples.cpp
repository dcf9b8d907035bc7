#include "tests/text/TextSamples.h"

#include "imaging/PictureText.h"
#include "text/PrintUserText.h"

#include <QLinearGradient>
#include <QPainter>

#include <functional>

namespace {

constexpr QSize Size { 240, 96 };

TextSettings Base()
{
    TextSettings text;
    text.PositionX = 16;
    text.PositionY = 12;
    text.SFontName = QStringLiteral("DejaVu Sans");
    text.SFontSize = 24;
    text.sFontColor = 0xE0E8F0;
    text.sFontText = QStringLiteral("Fjord 12 at noon, from the pier");
    text.UseShadows = true;
    text.WatermarkTextStyle = qint16(imaging::TextStyle::OutlineBlock);
    text.sFontBorderColor = 0x104080;
    text.sFontShadowColor = 0x501818;
    text.TextShadowPosX = 4;
    text.TextShadowPosY = 6;
    return text;
}

struct Setting {
    const char* name;
    void (*change)(TextSettings& text);
};
constexpr Setting Settings[] = {
    { "font-name", [](TextSettings& text) { text.SFontName = QStringLiteral("DejaVu Serif"); } },
    { "font-size", [](TextSettings& text) { text.SFontSize = 13; } },
    { "italic", [](TextSettings& text) { text.SFontItalic = true; } },
    { "font-colour", [](TextSettings& text) { text.sFontColor = 0x2060F0; } },
    { "text", [](TextSettings& text) { text.sFontText = QStringLiteral("Two\nlines"); } },
    { "left", [](TextSettings& text) { text.PositionX = 90; } },
    { "top", [](TextSettings& text) { text.PositionY = 50; } },
    { "no-shadows", [](TextSettings& text) { text.UseShadows = false; } },
    { "angle", [](TextSettings& text) { text.sFontWatermarkTextAngle = 350; } },
    { "border-colour", [](TextSettings& text) { text.sFontBorderColor = 0x00E0FF; } },
    { "shadow-colour", [](TextSettings& text) { text.sFontShadowColor = 0x40A040; } },
    { "shadow-right", [](TextSettings& text) { text.TextShadowPosX = 14; } },
    { "shadow-down", [](TextSettings& text) { text.TextShadowPosY = 18; } },
    { "word-wrap", [](TextSettings& text) { text.WordWrap = true; } },
};

TextSample Sample(const QString& name, const TextSettings& text)
{
    return { name, text, WithUserText(TextGround(Size), text) };
}

} // namespace

QImage TextGround(QSize size)
{
    QImage ground(size, QImage::Format_BGR888);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setColorAt(0, QColor(90, 120, 150));
    gradient.setColorAt(0.5, QColor(200, 190, 160));
    gradient.setColorAt(1, QColor(50, 70, 50));
    QPainter(&ground).fillRect(ground.rect(), gradient);
    return ground;
}

std::vector<TextSample> TextSamples()
{
    std::vector<TextSample> samples;
    for (const imaging::TextStyleRow& row : imaging::TextStyles) {
        TextSettings text = Base();
        text.WatermarkTextStyle = qint16(row.style);
        samples.push_back(Sample(QString::fromLatin1(row.name).toLower().replace(u' ', u'-'), text));
    }
    for (const Setting& setting : Settings) {
        TextSettings text = Base();
        setting.change(text);
        samples.push_back(Sample(QLatin1String(setting.name), text));
    }
    return samples;
}

QImage TextSampleSheet()
{
    constexpr int columns = 4;
    constexpr int caption = 22;
    constexpr QSize cell { Size.width() + 8, Size.height() + caption };
    const std::vector<TextSample> samples = TextSamples();
    const int rows = (int(samples.size()) + columns - 1) / columns;
    QImage sheet(cell.width() * columns, cell.height() * rows, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < int(samples.size()); ++i) {
        const QPoint corner(i % columns * cell.width(), i / columns * cell.height());
        painter.drawText(QRect(corner, QSize(cell.width(), caption)), samples[size_t(i)].name);
        painter.drawImage(corner + QPoint(0, caption), samples[size_t(i)].picture);
    }
    return sheet;
}
