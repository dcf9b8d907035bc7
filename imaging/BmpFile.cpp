#include "imaging/BmpFile.h"

#include "imaging/Converted.h"

namespace imaging::BmpFile {
namespace {

/// File header and information header, little-endian as on every machine the program runs on.
struct [[gnu::packed]] Header {
    char mark[2] = { 'B', 'M' };
    quint32 fileBytes = 0;
    quint32 reserved = 0;
    quint32 pixelsAt = 54;
    quint32 headerSize = 40;
    qint32 width = 0;
    qint32 height = 0; // positive: the lowest row first
    quint16 planes = 1;
    quint16 bits = 24;
    quint32 compression = 0;
    quint32 imageBytes = 0;
    qint32 horizontalPixelsPerMetre = 0;
    qint32 verticalPixelsPerMetre = 0;
    quint32 coloursUsed = 0;
    quint32 coloursImportant = 0;
};
static_assert(sizeof(Header) == 54);
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

} // namespace

EncodedFile Encode(const QImage& picture)
{
    const QImage pixels = Converted(picture, QImage::Format_BGR888);
    Header header;
    header.width = pixels.width();
    header.height = pixels.height();
    header.imageBytes = quint32((pixels.width() * 3 + 3) / 4 * 4) * quint32(pixels.height());
    header.fileBytes = quint32(sizeof header) + header.imageBytes;
    return { QByteArray(reinterpret_cast<const char*>(&header), sizeof header), pixels };
}

} // namespace imaging::BmpFile
