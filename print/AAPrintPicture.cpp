#include "print/AAPrintPicture.h"

#include "app/ApplicationState.h"
#include "app/AsControl.h"
#include "app/Frame.h"
#include "print/PageLayout.h"

#include <QPainter>
#include <QPointer>

#include <utility>

namespace {

constexpr int HighQuality = 600; // dots to the inch
constexpr int OrdinaryQuality = 300;
/// A page of more pixels would be paper of over two metres each way.
constexpr qint64 MostPixels = qint64(64) << 20;

QImage WhitePage(QSize size)
{
    if (size.isEmpty() || qint64(size.width()) * size.height() > MostPixels)
        return {};
    QImage page(size, QImage::Format_RGB32);
    page.fill(Qt::white);
    return page;
}

} // namespace

AAPrintPicture::AAPrintPicture(Frame& frame, QObject* parent)
    : QObject(parent)
    , frame_(frame)
{
}

template <typename Value> void AAPrintPicture::Set(Value& property, const Value& value, const char* name)
{
    property = value;
    Q_EMIT PropertyChanged(QLatin1String(name));
}

void AAPrintPicture::SetAlign(qint32 align)
{
    Set(align_, align, "Align");
}

void AAPrintPicture::SetPicture(const QImage& picture)
{
    Set(picPicture_, picture, "Picture");
}

void AAPrintPicture::SetShowBorder(bool shows)
{
    Set(showBorder_, shows, "ShowBorder");
}

void AAPrintPicture::SetDefultPrinter(const QString& name)
{
    Set(defultPrinter_, name, "Printer");
}

void AAPrintPicture::SetPaperSize(qint32 size)
{
    Set(paperSize_, size, "PaperSize");
}

void AAPrintPicture::SetPaperWidth(qint16 width)
{
    Set(paperWidth_, width, "PaperWidth");
}

void AAPrintPicture::SetPaperHeight(qint16 height)
{
    Set(paperHeight_, height, "PaperHeight");
}

void AAPrintPicture::SetStretch(bool stretches)
{
    Set(stretch_, stretches, "Stretch");
}

QVariantMap AAPrintPicture::SavedProperties() const
{
    return { { QStringLiteral("Align"), align_ }, { QStringLiteral("Picture"), picPicture_ },
        { QStringLiteral("ShowBorder"), showBorder_ }, { QStringLiteral("Printer"), defultPrinter_ },
        { QStringLiteral("PaperSize"), paperSize_ }, { QStringLiteral("PaperWidth"), paperWidth_ },
        { QStringLiteral("PaperHeight"), paperHeight_ }, { QStringLiteral("Stretch"), stretch_ } };
}

void AAPrintPicture::ReadProperties(const QVariantMap& properties)
{
    const auto valueOf = [&properties](const char* name, const QVariant& otherwise) {
        return properties.value(QLatin1String(name), otherwise);
    };
    align_ = valueOf("Align", 4).toInt();
    picPicture_ = valueOf("Picture", QImage()).value<QImage>();
    showBorder_ = valueOf("ShowBorder", true).toBool();
    defultPrinter_ = valueOf("Printer", QString()).toString();
    paperSize_ = valueOf("PaperSize", 2).toInt();
    paperWidth_ = valueOf("PaperWidth", 210).value<qint16>();
    paperHeight_ = valueOf("PaperHeight", 297).value<qint16>();
    stretch_ = valueOf("Stretch", false).toBool();
}

Paper AAPrintPicture::CurrentPaper() const
{
    return PageLayout::PaperOf(paperSize_, { paperWidth_, paperHeight_ });
}

QSize AAPrintPicture::GetPaperWH() const
{
    return CurrentPaper().size;
}

void AAPrintPicture::GetPrinterMargin()
{
    try {
        const SheetMetrics sheet = frame_.SystemPrinters().Metrics(CurrentPaper());
        MarginTop = sheet.offset.y();
        MarginBottom = sheet.physical.height() - (sheet.printable.height() + MarginTop);
        MarginLeft = sheet.offset.x();
        MarginRight = sheet.physical.width() - (sheet.printable.width() + MarginLeft);
    } catch (const PrinterError&) {
        return; // the page is drawn from the margins known so far
    }
    Q_EMIT PrinterMargin(MarginLeft, MarginTop, MarginRight, MarginBottom);
}

void AAPrintPicture::DrawPreview()
{
    GetPrinterMargin();
    QSize size = PageLayout::PageSize(GetPaperWH(), { MarginLeft, MarginTop, MarginRight, MarginBottom });
    if (!std::exchange(frame_.State().PrintCall, false))
        size = PageLayout::PreviewSize(size);
    const QPoint place = PageLayout::PlaceOf(align_, size, picPicture_.size());
    picPrint = WhitePage(size);
    if (!picPrint.isNull() && !picPicture_.isNull()) {
        QPainter painter(&picPrint);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(stretch_ ? QRect({}, size) : QRect(place, picPicture_.size()), picPicture_);
    }
    frame_.PumpEvents();
}

QImage AAPrintPicture::GetPreview()
{
    const QPointer<AAPrintPicture> alive(this);
    DrawPreview();
    return alive ? picPrint : QImage();
}

void AAPrintPicture::PrintPicture()
{
    DrawPreview();
    const QImage page = std::exchange(picPrint, {}); // its pixels are needed no more
    if (picPicture_.isNull() || page.isNull())
        throw ControlError(QStringLiteral("There is nothing that could be printed on this paper."));
    const ApplicationState& state = frame_.State();
    AsControl([&] {
        frame_.SystemPrinters().Print({ QStringLiteral("TAQ Video Capture Pro"), CurrentPaper(), page,
            { MarginLeft, MarginTop }, state.HighQ ? HighQuality : OrdinaryQuality,
            state.BW ? ColorMode::Monochrome : ColorMode::Color });
    });
}
