#include "app/Lead.h"

#include "app/AsControl.h"
#include "desktop/Clipboard.h"
#include "desktop/WholeFile.h"
#include "imaging/Animation.h"
#include "imaging/Converted.h"
#include "imaging/PictureFile.h"
#include "imaging/PictureText.h"
#include "toolkit/Twips.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

struct Depth {
    int bits;
    QImage::Format format;
};

constexpr Depth Depths[] = {
    { 1, QImage::Format_Mono },
    { 8, QImage::Format_Indexed8 },
    { 16, QImage::Format_RGB16 },
    { 24, QImage::Format_BGR888 },
    { 32, QImage::Format_ARGB32 },
};

QImage WithBits(const QImage& picture, int bits)
{
    constexpr int ownDepth = 0;
    if (bits == ownDepth)
        return picture;
    const Depth* depth = std::ranges::find(Depths, bits, &Depth::bits);
    if (depth == std::end(Depths))
        throw ControlError(QStringLiteral("A picture cannot have %1 bits.").arg(bits));
    return imaging::Converted(picture, depth->format);
}

/// A part of a picture, in its pixels, and where it stands on the control.
struct Mapping {
    QRectF from;
    QRectF to;

    double ScaleX() const { return to.width() / from.width(); }
    double ScaleY() const { return to.height() / from.height(); }

    /// The whole pixels that show within clip.
    Mapping Within(const QRectF& clip, const QRect& picture) const
    {
        const QRectF shown = clip & to;
        const QRectF seen(from.x() + (shown.x() - to.x()) / ScaleX(),
            from.y() + (shown.y() - to.y()) / ScaleY(), shown.width() / ScaleX(), shown.height() / ScaleY());
        const QRectF pixels = seen.toAlignedRect() & picture;
        return { pixels,
            QRectF(to.x() + (pixels.x() - from.x()) * ScaleX(), to.y() + (pixels.y() - from.y()) * ScaleY(),
                pixels.width() * ScaleX(), pixels.height() * ScaleY()) };
    }
};

/// Every pixel of the picture as a sharp rectangle where they are drawn apart, and their mean where they fall
/// together.
void Draw(QPainter& painter, const QImage& picture, const Mapping& mapping, ShrunkPicture& shrunk)
{
    const double ratio =
        painter.deviceTransform().m11(); // dots per pixel, also where another device stands in
    if (mapping.ScaleX() * ratio >= 1 && mapping.ScaleY() * ratio >= 1) {
        painter.drawImage(mapping.to, picture, mapping.from);
        return;
    }
    const QRect part = mapping.from.toRect();
    const QSize size = (mapping.to.size() * ratio).toSize().expandedTo({ 1, 1 });
    try {
        painter.drawImage(mapping.to, shrunk.Of(picture, part, size));
    } catch (const std::exception&) {
        // No memory: nothing may leave a paint event, and a coarse picture is one too.
        painter.drawImage(mapping.to, picture, mapping.from);
    }
}

/// The bar follows the view, not the view the bar: it stays where it is while there are no bars.
void SetBar(QScrollBar& bar, double overhang, double page, double value)
{
    const QSignalBlocker silence(bar);
    bar.setRange(0, int(overhang));
    bar.setPageStep(std::max(1, int(page)));
    bar.setSingleStep(std::max(1, int(page) / 20));
    bar.setValue(int(value));
    bar.setVisible(overhang > 0);
}

} // namespace

Lead::Lead(QWidget* parent)
    : QWidget(parent)
    , horizontal_(new QScrollBar(Qt::Horizontal, this))
    , vertical_(new QScrollBar(Qt::Vertical, this))
{
    const auto scroll = [this] {
        view_.ScrollTo(QPointF(horizontal_->value(), vertical_->value()));
        update();
    };
    for (QScrollBar* bar : { horizontal_, vertical_ }) {
        bar->hide();
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::valueChanged, this, scroll);
    }
}

void Lead::SetBitmap(const QImage& picture)
{
    ++replacements_;
    bitmap_ = picture;
    bitmap_.setDevicePixelRatio(1);
    onScreen_ = {};
    view_.SetPicture(bitmap_.size());
    Changed();
}

int Lead::BitmapBits() const
{
    return bitmap_.isNull() ? 0 : imaging::BitsPerPixel(bitmap_);
}

int Lead::Load(const QString& path, int bits, int page, int pages)
{
    if (page > 1 || pages != 1)
        throw ControlError(QStringLiteral("Only the first picture of a file can be loaded."));
    SetBitmap(AsControl([&] {
        return WithBits(
            imaging::PictureFile::Decode(WholeFile::Read(path, imaging::PictureFile::MaxFileBytes)), bits);
    }));
    return 0;
}

imaging::EncodedFile Lead::Encoded(int format, int bits, int quality) const
{
    if (bitmap_.isNull())
        throw ControlError(QStringLiteral("There is no picture to save."));
    return imaging::PictureFile::Encode(bitmap_, format, bits, quality);
}

void Lead::Save(const QString& path, int format, int bits, int quality, bool multipage) const
{
    if (multipage)
        throw ControlError(QStringLiteral("A file takes one picture only."));
    AsControl([&] { WholeFile::Replace(path, Encoded(format, bits, quality).Parts()); });
}

bool Lead::SaveNew(const QString& path, int format, int bits, int quality) const
{
    return AsControl([&] { return WholeFile::Create(path, Encoded(format, bits, quality).Parts()); });
}

void Lead::Copy(Clipboard& clipboard, bool flag) const
{
    if (!flag || bitmap_.isNull())
        throw ControlError(QStringLiteral("There is no picture to copy."));
    Dib dib = AsControl([&] { return Dib::FromImage(bitmap_); });
    if (!clipboard.Open(window()))
        throw ControlError(QStringLiteral("The clipboard is in use by another program."));
    clipboard.Empty();
    clipboard.SetDib(std::move(dib));
    clipboard.Close();
}

int Lead::Paste(Clipboard& clipboard, int flags)
{
    if (flags == PasteTest)
        return clipboard.HasPicture() ? 1 : 0;
    const QImage picture = AsControl([&] { return clipboard.Picture(); });
    if (picture.isNull())
        throw ControlError(QStringLiteral("There is no picture on the clipboard."));
    SetBitmap(picture);
    return 1;
}

void Lead::DrawText(const QString& text, int flags)
{
    if (flags != 0 || bitmap_.isNull())
        throw ControlError(QStringLiteral("There is no picture to draw on."));
    imaging::TextLook look = LookOf(*this);
    look.place.setSize(TextSize());
    QImage drawn = AsControl([&] { return imaging::WithText(bitmap_, text, look); });
    imaging::SetAnimated(drawn, false);
    if (DrawPersistence) {
        ++replacements_;
        bitmap_ = drawn;
    }
    onScreen_ = DrawPersistence ? QImage() : drawn;
    if (autoRepaint_)
        update();
}

/// In pixels of the picture, in which the display's rectangle is the part of it that is mapped.
QSizeF Lead::TextSize() const
{
    const auto inPicture = [this](double length, double shown, double mapped) {
        const double within = std::min(length, shown);
        return within * mapped / shown + (length - within) / Unit();
    };
    return { inPicture(TextWidth, DstWidth(), view_.Source().width()),
        inPicture(TextHeight, DstHeight(), view_.Source().height()) };
}

void Lead::SetScaleMode(int mode)
{
    if (mode != ScaleTwips && mode != ScalePixels)
        throw ControlError(QStringLiteral("There is no scale mode %1.").arg(mode));
    scaleMode_ = mode;
}

void Lead::SetAutoScroll(bool on)
{
    autoScroll_ = on;
    Changed();
}

void Lead::SetBackErase(bool on)
{
    backErase_ = on;
    Changed();
}

double Lead::Unit() const
{
    return scaleMode_ == ScaleTwips ? Twips::PerPixel : 1;
}
double Lead::DstWidth() const
{
    return view_.Destination().width() * Unit();
}
double Lead::DstHeight() const
{
    return view_.Destination().height() * Unit();
}
double Lead::ClientWidth() const
{
    return view_.Area().width() * Unit();
}
double Lead::ClientHeight() const
{
    return view_.Area().height() * Unit();
}

QRectF Lead::InPixels(double left, double top, double width, double height) const
{
    return { left / Unit(), top / Unit(), width / Unit(), height / Unit() };
}

void Lead::SetDstRect(double left, double top, double width, double height)
{
    view_.SetDestination(InPixels(left, top, width, height));
    Changed();
}

void Lead::SetDstClipRect(double left, double top, double width, double height)
{
    view_.SetDestinationClip(InPixels(left, top, width, height));
    Changed();
}

void Lead::SetSrcRect(double left, double top, double width, double height)
{
    view_.SetSource({ left, top, width, height });
    Changed();
}

void Lead::SetSrcClipRect(double left, double top, double width, double height)
{
    view_.SetSourceClip({ left, top, width, height });
    Changed();
}

void Lead::SetPaintSizeMode(int mode)
{
    if (mode != ActualSize && mode != ZoomSize)
        throw ControlError(QStringLiteral("There is no paint size mode %1.").arg(mode));
    view_.SetZoomed(mode == ZoomSize);
    Changed();
}

void Lead::SetPaintZoomFactor(int percent)
{
    view_.SetZoomFactor(percent);
    Changed();
}

void Lead::Changed()
{
    ArrangeBars();
    if (autoRepaint_)
        update();
}

/// A bar takes room from the area and may so make the other necessary: two rounds settle both.
void Lead::ArrangeBars()
{
    const QPointF offset = view_.Offset();
    const int thickness = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    QSizeF area = size();
    view_.SetArea(area);
    for (int round = 0; round < 2 && autoScroll_; ++round) {
        const QSizeF overhang = view_.Overhang();
        area = size() - QSizeF(overhang.height() > 0 ? thickness : 0, overhang.width() > 0 ? thickness : 0);
        view_.SetArea(area);
    }
    view_.ScrollTo(offset);
    horizontal_->setGeometry(0, height() - thickness, int(area.width()), thickness);
    vertical_->setGeometry(width() - thickness, 0, thickness, int(area.height()));
    const QSizeF overhang = autoScroll_ ? view_.Overhang() : QSizeF(0, 0);
    const QPointF shown = view_.Offset();
    SetBar(*horizontal_, overhang.width(), area.width(), shown.x());
    SetBar(*vertical_, overhang.height(), area.height(), shown.y());
}

void Lead::ScrollBy(QPointF distance)
{
    horizontal_->setValue(horizontal_->value() + qRound(distance.x()));
    vertical_->setValue(vertical_->value() + qRound(distance.y()));
}

void Lead::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (backErase_)
        painter.fillRect(event->rect(), palette().window());
    const Mapping whole { view_.Source(), view_.Destination() };
    const QRectF clip = view_.Clip() & whole.to;
    if (bitmap_.isNull() || whole.from.isEmpty() || clip.isEmpty())
        return;
    painter.setClipRect(clip);
    const Mapping shown = whole.Within(clip, bitmap_.rect());
    ShrunkPicture passing;
    if (!shown.from.isEmpty())
        Draw(painter, onScreen_.isNull() ? bitmap_ : onScreen_, shown, shrunk_ ? *shrunk_ : passing);
}

void Lead::resizeEvent(QResizeEvent*)
{
    ArrangeBars();
}

void Lead::mousePressEvent(QMouseEvent* event)
{
    panFrom_ = event->position();
    Q_EMIT MouseDown(event->button(), event->position().toPoint());
}

void Lead::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::MiddleButton)
        ScrollBy(panFrom_ - event->position());
    panFrom_ = event->position();
    Q_EMIT MouseMove(event->position().toPoint());
}

void Lead::mouseReleaseEvent(QMouseEvent* event)
{
    Q_EMIT MouseUp(event->button(), event->position().toPoint());
}

void Lead::wheelEvent(QWheelEvent* event)
{
    if (view_.Overhang().isNull() || !autoScroll_)
        return event->ignore();
    constexpr double pixelsPerUnit = 0.5; // a notch is 120 units
    const QPointF turned = event->pixelDelta().isNull() ? event->angleDelta().toPointF() * pixelsPerUnit
                                                        : event->pixelDelta().toPointF();
    const bool isSideways = event->modifiers() & Qt::ShiftModifier;
    ScrollBy(isSideways ? -turned.transposed() : -turned);
    event->accept();
}
