#include "EditPages.h"

#include "edit/ColorRes.h"
#include "edit/Resize.h"
#include "edit/Tools.h"
#include "edit/Visual.h"
#include "tests/testing/FakeCapture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QSlider>

namespace {

using Take = std::function<void(const QString& name, QWidget& window)>;

/// A lake in the evening, larger than the editor's room.
QImage Evening(QSize size)
{
    QImage picture(size, QImage::Format_BGR888);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = size.width();
    const double height = size.height();
    QLinearGradient sky(0, 0, 0, height * 0.6);
    sky.setColorAt(0, QColor(40, 60, 110));
    sky.setColorAt(1, QColor(250, 180, 120));
    painter.fillRect(picture.rect(), sky);
    QLinearGradient lake(0, height * 0.6, 0, height);
    lake.setColorAt(0, QColor(200, 150, 120));
    lake.setColorAt(1, QColor(20, 40, 70));
    painter.fillRect(QRectF(0, height * 0.6, width, height), lake);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 230, 170));
    painter.drawEllipse(QPointF(width * 0.65, height * 0.48), height * 0.08, height * 0.08);
    painter.setBrush(QColor(30, 40, 50));
    painter.drawPolygon(QPolygonF({ { 0, height * 0.6 }, { width * 0.2, height * 0.3 },
        { width * 0.35, height * 0.5 }, { width * 0.5, height * 0.38 }, { width * 0.8, height * 0.6 } }));
    return picture;
}

} // namespace

void ShowEditing(const Take& take)
{
    FakeFrame frame;
    FakeCapture capture(Evening({ 1920, 1080 }));
    capture.MakeActive(frame);
    {
        Tools tools(frame);
        tools.setAttribute(Qt::WA_DeleteOnClose, false);
        tools.LTools(&capture.form);
        tools.findChild<QSlider*>(QStringLiteral("HSlider1(0)"))->setValue(62);
        tools.findChild<QSlider*>(QStringLiteral("HSlider1(1)"))->setValue(0);
        take(QStringLiteral("tools"), tools);
    }
    Resize resize(frame, nullptr, capture.lead.Bitmap().size());
    take(QStringLiteral("resize"), resize);
    ColorRes deep(frame, nullptr, 24);
    take(QStringLiteral("color-resolution-24"), deep);
    ColorRes flat(frame, nullptr, 8);
    take(QStringLiteral("color-resolution-8"), flat);
    capture.ShowPicture(Evening({ 1920, 1080 }));
    frame.clipboard.picture = Evening({ 300, 400 });
    {
        Visual visual(frame);
        visual.setAttribute(Qt::WA_DeleteOnClose, false);
        take(QStringLiteral("visual"), visual);
    }
    capture.ShowPicture(Evening({ 400, 300 }));
    frame.clipboard.picture = {};
    Visual small(frame);
    small.setAttribute(Qt::WA_DeleteOnClose, false);
    small.resize(small.minimumSizeHint());
    take(QStringLiteral("visual-small"), small);
}
