#include "imaging/MagickCoders.h"

#include "imaging/Converted.h"
#include "imaging/Matrix.h"
#include "imaging/PictureError.h"
#include "imaging/PictureLimits.h"

#include <Magick++.h>
#include <magick/api.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <set>
#include <string>

namespace imaging::MagickCoders {
namespace {

/// How one format is read and written. A coder is always named by us, never guessed from a name or the
/// content.
struct Coder {
    const char* reader;
    const char* writer;
    void (*prepare)(Magick::Image& image, int quality);
    FormatCode format;
    bool keepsAlpha;
};

void PrepareJpg(Magick::Image& image, int quality)
{
    constexpr int percentPerStep = 4; // factor 2 is 92 percent, which keeps the colours at full resolution
    image.type(MagickLib::TrueColorType);
    image.quality(unsigned(std::clamp(100 - quality * percentPerStep, 1, 100)));
}

void PrepareTga(Magick::Image& image, int)
{
    image.type(MagickLib::TrueColorMatteType);
    image.compressType(MagickLib::NoCompression);
}

void PrepareGif(Magick::Image& image, int)
{
    image.quantizeColors(256);
    image.quantizeTreeDepth(4); // deeper trees take half a minute for a photo
    image.quantizeDither(false);
    image.quantize();
    image.classType(MagickLib::PseudoClass);
    image.colorMapSize(256); // or a simple frame would become a file of 1 to 6 bits
}

void PrepareTif(Magick::Image& image, int)
{
    image.type(MagickLib::TrueColorMatteType);
    image.compressType(MagickLib::LZWCompression);
    image.defineValue("tiff", "alpha", "unassociated");
}

void PreparePng(Magick::Image& image, int)
{
    image.type(MagickLib::TrueColorType);
    image.quality(5);
}

constexpr Coder Coders[] = {
    { "BMP", nullptr, nullptr, Bmp, false },
    { "JPEG", "JPEG", PrepareJpg, Jpg, false },
    { "TGA", "TGA", PrepareTga, Tga, true },
    { "GIF", "GIF", PrepareGif, Gif, false },
    { "TIFF", "TIFF", PrepareTif, Tif, true },
    { "PNG", "PNG24", PreparePng, Png, false },
};

const Coder& CoderOf(FormatCode format)
{
    const Coder* coder = std::ranges::find(Coders, format, &Coder::format);
    if (coder == std::end(Coders))
        throw PictureError(QStringLiteral("There is no coder for this kind of picture."));
    return *coder;
}

/// All that may ever touch a file.
const std::set<std::string> KeptCoders { "BMP", "JPEG", "TGA", "GIF", "TIFF", "PNG", "PNG24" };

std::set<std::string> CoderNames()
{
    MagickLib::ExceptionInfo exception;
    MagickLib::GetExceptionInfo(&exception);
    const std::unique_ptr<MagickLib::MagickInfo*, decltype(&MagickLib::MagickFree)> all(
        MagickLib::GetMagickInfoArray(&exception), &MagickLib::MagickFree);
    MagickLib::DestroyExceptionInfo(&exception);
    std::set<std::string> names;
    for (MagickLib::MagickInfo** info = all.get(); info && *info; ++info)
        names.insert((*info)->name);
    return names;
}

struct Limit {
    MagickLib::ResourceType resource;
    MagickLib::magick_int64_t value;
};

constexpr qint64 MiB = qint64(1) << 20;
constexpr Limit Limits[] = {
    { MagickLib::WidthResource, MaxSide },
    { MagickLib::HeightResource, MaxSide },
    { MagickLib::PixelsResource, MaxPixels },
    { MagickLib::MemoryResource, 768 * MiB },
    { MagickLib::MapResource, 0 },
    { MagickLib::DiskResource, 0 },
    { MagickLib::ReadResource, 1024 * MiB },
    { MagickLib::ThreadsResource, 2 },
};

QImage Paletted(const Magick::Image& image)
{
    QImage picture = NewPicture({ int(image.columns()), int(image.rows()) }, QImage::Format_Indexed8);
    QList<QRgb> colours;
    for (unsigned i = 0; i < image.colorMapSize(); ++i) {
        const Magick::Color colour = image.colorMap(i);
        colours.append(qRgb(ScaleQuantumToChar(colour.redQuantum()),
            ScaleQuantumToChar(colour.greenQuantum()), ScaleQuantumToChar(colour.blueQuantum())));
    }
    picture.setColorTable(colours);
    for (int y = 0; y < picture.height(); ++y) {
        image.getConstPixels(0, y, image.columns(), 1);
        const MagickLib::IndexPacket* indexes = image.getConstIndexes();
        std::transform(indexes, indexes + picture.width(), picture.scanLine(y),
            [](MagickLib::IndexPacket index) { return uchar(index); });
    }
    return picture;
}

/// The pixels row by row, since rows of a QImage may be padded.
QImage TrueColour(Magick::Image& image)
{
    const bool hasAlpha = image.matte();
    QImage picture = NewPicture({ int(image.columns()), int(image.rows()) },
        hasAlpha ? QImage::Format_ARGB32 : QImage::Format_BGR888);
    for (int y = 0; y < picture.height(); ++y)
        image.write(
            0, y, image.columns(), 1, hasAlpha ? "BGRA" : "BGR", MagickLib::CharPixel, picture.scanLine(y));
    return picture;
}

QImage ToPicture(Magick::Image& image)
{
    constexpr unsigned maxColours = 256;
    if (image.colorSpace() == MagickLib::CMYKColorspace)
        image.colorSpace(MagickLib::RGBColorspace);
    const bool isPaletted = image.classType() == MagickLib::PseudoClass && !image.matte()
        && image.colorMapSize() > 0 && image.colorMapSize() <= maxColours;
    return isPaletted ? Paletted(image) : TrueColour(image);
}

using Pictures = std::unique_ptr<MagickLib::Image, decltype(&MagickLib::DestroyImageList)>;

/// What the library says against a step; nobody looks at it here, as no picture says as much.
class Raised {
public:
    Raised() { MagickLib::GetExceptionInfo(&info_); }
    ~Raised() { MagickLib::DestroyExceptionInfo(&info_); }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    MagickLib::ExceptionInfo* Info() const { return &info_; }

private:
    mutable MagickLib::ExceptionInfo info_ {};
};

Page ToPage(const MagickLib::Image& page, const Raised& raised)
{
    QImage picture = NewPicture({ int(page.columns), int(page.rows) }, QImage::Format_ARGB32);
    if (MagickLib::DispatchImage(
            &page, 0, 0, page.columns, page.rows, "BGRA", MagickLib::CharPixel, picture.bits(), raised.Info())
        != MagickPass)
        throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
    return { std::move(picture), std::chrono::milliseconds(10) * std::min(page.delay, 6000UL) };
}

/// The bytes of all rows without padding.
QByteArray Tight(const QImage& picture)
{
    const qsizetype used = qsizetype(picture.width()) * picture.depth() / 8;
    if (used == picture.bytesPerLine())
        return QByteArray::fromRawData(
            reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    QByteArray bytes(used * picture.height(), Qt::Uninitialized);
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(bytes.data() + y * used, picture.constScanLine(y), size_t(used));
    return bytes;
}

Magick::Image FromPicture(const QImage& picture, bool withAlpha)
{
    const QImage pixels = Converted(picture, withAlpha ? QImage::Format_ARGB32 : QImage::Format_BGR888);
    Magick::Image image;
    image.read(unsigned(pixels.width()), unsigned(pixels.height()), withAlpha ? "BGRA" : "BGR",
        MagickLib::CharPixel, Tight(pixels).constData());
    image.depth(8);
    image.matte(withAlpha);
    return image;
}

} // namespace

void Initialise()
{
    MagickLib::InitializeMagickEx(nullptr, MAGICK_OPT_NO_SIGNAL_HANDER, nullptr);
    for (const std::string& name : CoderNames())
        if (!KeptCoders.contains(name))
            MagickLib::UnregisterMagickInfo(name.c_str());
    if (CoderNames() != KeptCoders)
        throw PictureError(QStringLiteral("The picture formats of this installation are not complete."));
    for (const Limit& limit : Limits)
        MagickLib::SetMagickResourceLimit(limit.resource, limit.value);
}

QImage Decode(const QByteArray& file, FormatCode format)
{
    try {
        Magick::Image image;
        image.quiet(true); // an odd tag is no reason to refuse a picture
        image.magick(CoderOf(format).reader);
        image.subImage(0);
        image.subRange(1);
        image.read(Magick::Blob(file.constData(), size_t(file.size())));
        if (format == Jpg)
            image.autoOrient();
        return ToPicture(image);
    } catch (const Magick::Exception&) {
        throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
    }
}

std::vector<Page> DecodePages(const QByteArray& file, int most)
{
    const Raised raised;
    const std::unique_ptr<MagickLib::ImageInfo, decltype(&MagickLib::DestroyImageInfo)> info(
        MagickLib::CloneImageInfo(nullptr), &MagickLib::DestroyImageInfo);
    qstrncpy(info->magick, CoderOf(Gif).reader, sizeof info->magick);
    info->subimage = 0;
    info->subrange = static_cast<unsigned long>(most);
    const Pictures parts(
        MagickLib::BlobToImage(info.get(), file.constData(), size_t(file.size()), raised.Info()),
        &MagickLib::DestroyImageList);
    const Pictures pages(parts ? MagickLib::CoalesceImages(parts.get(), raised.Info()) : nullptr,
        &MagickLib::DestroyImageList);
    std::vector<Page> decoded;
    for (const MagickLib::Image* page = pages.get(); page; page = page->next)
        decoded.push_back(ToPage(*page, raised));
    if (decoded.empty())
        throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
    return decoded;
}

QByteArray Encode(const QImage& picture, FormatCode format, int quality)
{
    const Coder& coder = CoderOf(format);
    try {
        Magick::Image image = FromPicture(picture, coder.keepsAlpha);
        coder.prepare(image, quality);
        image.magick(coder.writer);
        Magick::Blob blob;
        image.write(&blob);
        return { static_cast<const char*>(blob.data()), qsizetype(blob.length()) };
    } catch (const Magick::Exception& error) {
        throw PictureError(QStringLiteral("The picture could not be made into a file: %1")
                               .arg(QString::fromLocal8Bit(error.what())));
    }
}

} // namespace imaging::MagickCoders
