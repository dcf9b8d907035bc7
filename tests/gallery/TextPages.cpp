#include "TextPages.h"

#include "imaging/PictureText.h"
#include "tests/testing/FakeFrame.h"
#include "tests/text/TextSamples.h"
#include "text/GetFonts.h"
#include "text/frmWatermark.h"
#include "toolkit/xpcheckbox.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using imaging::TextLook;
using imaging::TextStyle;
using Take = std::function<void(const QString& name, QWidget& window)>;

namespace {

TextLook Look(QPointF place, TextStyle style, double points)
{
    TextLook look;
    look.font = QStringLiteral("DejaVu Sans");
    look.points = points;
    look.color = QColor(235, 235, 235);
    look.style = style;
    look.hilite = QColor(250, 240, 150);
    look.shadow = QColor(20, 20, 30);
    look.shadowDepth = points < 15 ? QPoint(2, 3) : QPoint(4, 6);
    look.place = QRectF(place, QSizeF(600, 900));
    return look;
}

QImage StylesSheet()
{
    QImage sheet = TextGround({ 1080, 640 });
    for (const imaging::TextStyleRow& row : imaging::TextStyles) {
        const double top = 14 + 78 * double(row.style);
        const QString name = QLatin1String(row.name);
        for (const auto& [left, points] : { std::pair(14.0, 10.0), { 230.0, 18.0 }, { 560.0, 44.0 } })
            sheet = imaging::WithText(sheet, points < 40 ? name + QStringLiteral(" at noon") : name,
                Look({ left, top }, row.style, points));
    }
    return sheet;
}

QImage SettingsSheet()
{
    QImage sheet = TextGround({ 1080, 640 });
    TextLook wrapped = Look({ 14, 14 }, TextStyle::OutlineBlock, 18);
    wrapped.hilite = Qt::black;
    wrapped.shadow = QColor(170, 40, 30);
    wrapped.wraps = true;
    wrapped.place.setWidth(420);
    sheet = imaging::WithText(sheet,
        QStringLiteral("A long line that wraps within its place\nשלום עולם מימין לשמאל\nمرحبا بالعالم\n"
                       "日本語のテキストと中文\nEmoji 🎬🍓👩‍🚀🇩🇪\nbroken: "
                       "mmmmmmmmmmmmmmmmmmmmmmmmmmmmmmm"),
        wrapped);
    for (int angle = 0; angle < 3600; angle += 300) {
        TextLook turned = Look(
            { 480.0 + angle / 300 % 4 * 145, 20.0 + angle / 1200 * 200 }, TextStyle(angle / 300 % 8), 14);
        turned.angle = angle;
        sheet = imaging::WithText(sheet, QStringLiteral("%1 degrees").arg(angle / 10), turned);
    }
    TextLook italic = Look({ 14, 420 }, TextStyle::Normal, 30);
    italic.isItalic = true;
    sheet = imaging::WithText(sheet, QStringLiteral("Italic fjord"), italic);
    italic.place.moveTop(500);
    italic.isBold = true;
    italic.style = TextStyle::DropShadow;
    return imaging::WithText(
        sheet, QStringLiteral("Bold italic, running out of the picture on the right"), italic);
}

void ShowPicture(const Take& take, const QString& name, const QImage& picture)
{
    QLabel label;
    label.setPixmap(QPixmap::fromImage(picture));
    label.setFixedSize(picture.size()); // by itself it would be no larger than the screen likes
    take(name, label);
}

void ShowDialogs(const Take& take)
{
    FakeFrame frame;
    frame.state.sFontText = QStringLiteral("Holidays on the coast, 2003");
    frmWatermark words(frame, nullptr);
    take(QStringLiteral("watermark-empty"), words);
    words.findChild<QLineEdit*>()->setText(QStringLiteral("The last evening of the summer"));
    take(QStringLiteral("watermark"), words);

    frame.state.SFontSize = 32;
    frame.state.SFontName = QStringLiteral("DejaVu Sans");
    frame.state.sFontColor = 0x3070E0;
    for (const Key key : { Key::sFontShadowColor, Key::sFontBorderColor })
        frame.state.Settings.SaveSetting(
            frame.state.SettingsSection, QLatin1String(Row(key).name), QStringLiteral("5263440"));
    GetFonts plain(frame, nullptr, {});
    take(QStringLiteral("get-font-plain"), plain);
    frame.state.Settings.SaveSetting(
        frame.state.SettingsSection, QStringLiteral("UseShadows"), QStringLiteral("True"));
    GetFonts shadows(frame, nullptr, {});
    shadows.findChild<QComboBox*>()->setCurrentIndex(int(TextStyle::BlockShadow));
    shadows.findChild<QLineEdit*>(QStringLiteral("TextAngle"))->setText(QStringLiteral("5"));
    take(QStringLiteral("get-font"), shadows);
    shadows.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    shadows.findChild<QComboBox*>()->setCurrentIndex(int(TextStyle::OutlineBlock));
    take(QStringLiteral("get-font-black"), shadows);
}

} // namespace

void ShowTexts(const Take& take)
{
    ShowPicture(take, QStringLiteral("text-styles"), StylesSheet());
    ShowPicture(take, QStringLiteral("text-settings"), SettingsSheet());
    ShowPicture(take, QStringLiteral("text-samples"), TextSampleSheet());
    ShowDialogs(take);
}
