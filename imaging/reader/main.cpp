// taq-reader IN OUT [PAGES]: decodes the picture file in the open file IN, or up to so many of its pages,
// into the shared memory OUT, confined. A hostile picture that gets the better of a decoder finds nothing
// here: no files, no network, no other picture.
#include "imaging/PictureFile.h"
#include "imaging/ReaderAnswer.h"
#include "imaging/reader/Confinement.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <sys/stat.h>
#include <vector>

using imaging::PagesAnswer;
using imaging::ReaderAnswer;

namespace {

struct Mapped {
    void* bytes;
    qsizetype size;
};

Mapped Map(const char* descriptor, int protection)
{
    const int number = std::atoi(descriptor);
    struct stat status;
    if (fstat(number, &status) != 0)
        return { nullptr, 0 };
    void* bytes = mmap(nullptr, size_t(status.st_size), protection, MAP_SHARED, number, 0);
    return { bytes == MAP_FAILED ? nullptr : bytes, qsizetype(status.st_size) };
}

template <typename Kind> void Refuse(Kind& answer, const char* reason)
{
    std::strncpy(answer.reason, reason, ReaderAnswer::MaxReason - 1);
}

void Give(Mapped out, const QImage& picture)
{
    ReaderAnswer& answer = *static_cast<ReaderAnswer*>(out.bytes);
    const qsizetype row = imaging::RowBytes(picture.width(), picture.depth());
    if (row * picture.height() > out.size - ReaderAnswer::PixelsAt)
        return Refuse(answer, "The picture is damaged or incomplete."); // larger than its own header says
    answer.width = picture.width();
    answer.height = picture.height();
    answer.format = picture.format();
    answer.colours = qint32(picture.colorCount());
    std::ranges::copy(picture.colorTable(), answer.palette);
    auto* to = static_cast<char*>(out.bytes) + ReaderAnswer::PixelsAt;
    for (int y = 0; y < picture.height(); ++y, to += row)
        std::memcpy(to, picture.constScanLine(y), size_t(std::min(row, picture.bytesPerLine())));
}

/// The memory has room for so many pages of the size that the file's header tells, and whoever asked takes
/// every page for one of that size.
void GivePages(Mapped out, const std::vector<imaging::Page>& pages, int most)
{
    const qsizetype room = (out.size - PagesAnswer::PixelsAt) / most;
    PagesAnswer& answer = *static_cast<PagesAnswer*>(out.bytes);
    auto* to = static_cast<char*>(out.bytes) + PagesAnswer::PixelsAt;
    for (const imaging::Page& page : pages) {
        const bool isExpected = page.picture.sizeInBytes() == room;
        if (answer.pages == std::min(most, PagesAnswer::MaxPages) || !isExpected)
            return Refuse(answer, "The picture is damaged or incomplete."); // not what its own header says
        std::memcpy(to, page.picture.constBits(), size_t(room));
        answer.hundredths[answer.pages++] = qint32(page.time.count() / 10);
        to += room;
    }
}

/// Decodes within the walls.
template <typename Kind, typename Decode> void Answering(Mapped out, Decode&& decode)
{
    try {
        imaging::PictureFile::Initialise();
        if (!ConfineThisProcess())
            std::_Exit(imaging::ReaderNotConfined);
        decode();
    } catch (const imaging::PictureError& error) {
        Refuse(*static_cast<Kind*>(out.bytes), error.what());
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 && argc != 4)
        return EXIT_FAILURE;
    const int pages = argc == 4 ? std::atoi(argv[3]) : 0;
    const Mapped in = Map(argv[1], PROT_READ), out = Map(argv[2], PROT_READ | PROT_WRITE);
    if (!in.bytes || !out.bytes || out.size < (pages > 0 ? PagesAnswer::PixelsAt : ReaderAnswer::PixelsAt))
        return EXIT_FAILURE;
    const QByteArray file = QByteArray::fromRawData(static_cast<char*>(in.bytes), in.size);
    if (pages > 0)
        Answering<PagesAnswer>(
            out, [&] { GivePages(out, imaging::PictureFile::DecodePages(file, pages), pages); });
    else
        Answering<ReaderAnswer>(out, [&] { Give(out, imaging::PictureFile::Decode(file)); });
    std::_Exit(EXIT_SUCCESS); // the libraries' farewells want what was given up
}
