#include "desktop/SystemClipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

constexpr QLatin1StringView BitmapType("image/bmp");
constexpr QLatin1StringView PngType("image/png");
constexpr QLatin1StringView ToolkitType("application/x-qt-image");

QByteArray Encoded(const QImage& picture, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes;
}

/// A capture on the clipboard. The block becomes a picture at the first request and is dropped then, so that
/// the pixels are held once, shared with every window they were pasted to.
class CaptureData : public QMimeData {
public:
    explicit CaptureData(Dib&& dib)
        : dib_(std::move(dib))
    {
    }

    QImage Picture() const
    {
        if (!dib_.IsEmpty()) {
            picture_ = dib_.ToImage();
            if (!picture_.isNull())
                dib_ = Dib();
        }
        return picture_;
    }

    QStringList formats() const override
    {
        return { QString(BitmapType), QString(PngType), QString(ToolkitType) };
    }

protected:
    QVariant retrieveData(const QString& type, QMetaType) const override
    {
        if (type == ToolkitType)
            return Picture();
        if (type == BitmapType)
            return Encoded(Picture(), "BMP");
        if (type == PngType)
            return Encoded(Picture(), "PNG");
        return {};
    }

private:
    mutable Dib dib_;
    mutable QImage picture_;
};

QImage Foreign(const QMimeData& data)
{
    const QImage picture = qvariant_cast<QImage>(data.imageData());
    if (picture.isNull())
        return {};
    return picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_BGR888);
}

} // namespace

bool SystemClipboard::Open(QWidget*)
{
    if (isOpen_)
        return false;
    isOpen_ = true;
    return true;
}

void SystemClipboard::Empty()
{
    if (isOpen_)
        QGuiApplication::clipboard()->clear();
}

void SystemClipboard::SetDib(Dib&& dib)
{
    if (isOpen_ && !dib.IsEmpty())
        QGuiApplication::clipboard()->setMimeData(new CaptureData(std::move(dib)));
}

void SystemClipboard::Close()
{
    isOpen_ = false;
}

bool SystemClipboard::HasPicture() const
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasImage();
}

QImage SystemClipboard::Picture() const
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return {};
    if (const auto* capture = dynamic_cast<const CaptureData*>(data))
        return capture->Picture();
    return Foreign(*data);
}
