#include "desktop/PagePdf.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr int PrinterPixelsPerPixel = PrinterPixelsPerInch / 96;

void Prepare(QPdfWriter& writer, const PrintJob& job)
{
    const QPageSize sheet(job.paper.size, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    writer.setTitle(job.title);
    writer.setResolution(PrinterPixelsPerInch);
    if (!sheet.isValid()
        || !writer.setPageLayout(QPageLayout(sheet, QPageLayout::Portrait, {}, QPageLayout::Millimeter)))
        throw PrinterError(QStringLiteral("There is no paper of this size."));
}

} // namespace

QByteArray PagePdf(const PrintJob& job)
{
    QBuffer document;
    document.open(QIODevice::WriteOnly);
    QPdfWriter writer(&document);
    Prepare(writer, job);
    const QImage page =
        job.color == ColorMode::Monochrome ? job.page.convertToFormat(QImage::Format_Grayscale8) : job.page;
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.drawImage(QRect(job.at, page.size() * PrinterPixelsPerPixel), page);
    if (page.isNull() || !painter.end())
        throw PrinterError(QStringLiteral("There is not enough memory for this page."));
    return document.data();
}
