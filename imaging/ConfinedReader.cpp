#include "imaging/ConfinedReader.h"

#include "base/Descriptor.h"
#include "imaging/Animation.h"
#include "imaging/PictureFile.h"
#include "imaging/PictureHeader.h"
#include "imaging/PictureLimits.h"
#include "imaging/ReaderAnswer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>

namespace imaging {
namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds Tick = 50ms;
constexpr int BitsOfPages = 32;
constexpr qsizetype MostPageBytes = qsizetype(96) << 20; // the reading program needs eight times as much

[[noreturn]] void FailForMemory()
{
    throw PictureError(QStringLiteral("There is not enough memory for this picture."));
}

[[noreturn]] void FailAsDamaged()
{
    throw PictureError(QStringLiteral("This picture is damaged or too large and could not be opened."));
}

/// Memory that is only promised would end the program where it is touched and not there. A signal in the
/// middle takes back what was got.
bool Reserve(int file, qsizetype size)
{
    int error = EINTR;
    while (error == EINTR)
        error = posix_fallocate(file, 0, off_t(size));
    return error == 0;
}

/// Memory that two programs share and neither can make larger or smaller.
class SharedMemory {
public:
    explicit SharedMemory(qsizetype size)
        : file_(memfd_create("picture", MFD_CLOEXEC | MFD_ALLOW_SEALING))
        , size_(size_t(size))
    {
        if (!file_.IsOpen() || !Reserve(file_.Number(), size))
            FailForMemory();
        if (fcntl(file_.Number(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0)
            FailForMemory();
        bytes_ = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED, file_.Number(), 0);
        if (bytes_ == MAP_FAILED)
            FailForMemory();
    }
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory() { munmap(bytes_, size_); }
    int Number() const { return file_.Number(); }
    char* Bytes() const { return static_cast<char*>(bytes_); }

private:
    Descriptor file_;
    size_t size_;
    void* bytes_ = nullptr;
};

/// Beside this program, or where an installation keeps what only programs start.
QString ReaderProgram()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString installed = folder + QStringLiteral("/../libexec/taq-video-capture-pro/taq-reader");
    return QFile::exists(installed) ? installed : folder + QStringLiteral("/taq-reader");
}

/// Bits of a pixel of a picture as answered.
int BitsOf(const ReaderAnswer& answer)
{
    return QImage::toPixelFormat(QImage::Format(answer.format)).bitsPerPixel();
}

/// Starts the reading program with these two open files and what else it is told.
void StartReader(QProcess& reader, int in, int out, const QStringList& more)
{
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("OMP_THREAD_LIMIT"), QStringLiteral("1")); // it may not start threads
    reader.setProcessEnvironment(environment);
    reader.setStandardInputFile(QProcess::nullDevice());
    reader.setStandardOutputFile(QProcess::nullDevice());
    reader.setStandardErrorFile(QProcess::nullDevice());
    reader.setChildProcessModifier([in, out] {
        for (const int kept : { in, out })
            fcntl(kept, F_SETFD, 0);
    });
    reader.start(ReaderProgram(), QStringList { QString::number(in), QString::number(out) } + more);
    if (!reader.waitForStarted())
        throw PictureError(QStringLiteral(
            "A part of the program that opens pictures is missing. Install the program again."));
}

/// Waits until the reading program has ended or was ended: from then on nobody changes the shared memory.
void AwaitEnd(QProcess& reader, const std::function<void()>& whileWaiting, QDeadlineTimer end)
{
    while (reader.state() != QProcess::NotRunning && !end.hasExpired())
        if (!reader.waitForFinished(int(Tick.count())) && whileWaiting)
            whileWaiting();
    if (reader.state() != QProcess::NotRunning) {
        reader.kill();
        if (!reader.waitForFinished())
            FailAsDamaged();
    }
    if (reader.exitStatus() == QProcess::NormalExit && reader.exitCode() == ReaderNotConfined)
        throw PictureError(QStringLiteral("This picture cannot be opened safely on this system."));
    if (reader.exitStatus() != QProcess::NormalExit || reader.exitCode() != 0)
        FailAsDamaged();
}

/// Whether the answer is a picture whose rows fit into this many bytes. It need not have the size that the
/// file's header told: the first picture of a GIF may be smaller than its screen.
bool Fits(const ReaderAnswer& answer, qsizetype bytes)
{
    const bool hasPalette = answer.format == QImage::Format_Indexed8;
    const bool isKnown =
        hasPalette || answer.format == QImage::Format_BGR888 || answer.format == QImage::Format_ARGB32;
    if (!isKnown || !IsPictureSize(answer.width, answer.height))
        return false;
    if (RowBytes(answer.width, BitsOf(answer)) * answer.height > bytes)
        return false;
    return hasPalette ? answer.colours >= 1 && answer.colours <= ReaderAnswer::MaxColours
                      : answer.colours == 0;
}

/// Every pixel has a colour: one without would be read beyond the palette.
bool IsWithinPalette(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* row = picture.constScanLine(y);
        if (picture.width() > 0 && *std::max_element(row, row + picture.width()) >= picture.colorCount())
            return false;
    }
    return true;
}

/// Throws the reader's reason, if it gave one, as a line that can be shown, whatever it wrote.
void CheckReason(const char (&reason)[ReaderAnswer::MaxReason])
{
    QString line = QString::fromUtf8(reason, qsizetype(strnlen(reason, sizeof reason)));
    for (QChar& character : line)
        if (!character.isPrint())
            character = QLatin1Char(' ');
    line = line.simplified();
    if (!line.isEmpty())
        throw PictureError(line);
}

/// The picture in shared memory, whose rows have room for this many bytes.
QImage PictureOf(const char* shared, qsizetype bytes)
{
    ReaderAnswer answer;
    std::memcpy(&answer, shared, sizeof answer);
    CheckReason(answer.reason);
    if (!Fits(answer, bytes))
        FailAsDamaged();
    const auto format = QImage::Format(answer.format);
    QImage picture = QImage(reinterpret_cast<const uchar*>(shared + ReaderAnswer::PixelsAt), answer.width,
        answer.height, RowBytes(answer.width, BitsOf(answer)), format)
                         .copy();
    if (picture.isNull())
        FailForMemory();
    if (format == QImage::Format_Indexed8) {
        picture.setColorTable(QList<QRgb>(answer.palette, answer.palette + answer.colours));
        if (!IsWithinPalette(picture))
            FailAsDamaged();
    }
    return picture;
}

/// Runs the reading program to its end over these two memories.
void RunReader(const SharedMemory& in, const SharedMemory& out, const QStringList& more,
    const std::function<void()>& whileWaiting, std::chrono::milliseconds longestWait)
{
    QProcess reader;
    StartReader(reader, in.Number(), out.Number(), more);
    AwaitEnd(reader, whileWaiting, QDeadlineTimer(longestWait));
}

void Fill(const SharedMemory& memory, const QByteArray& file)
{
    std::memcpy(memory.Bytes(), file.constData(), size_t(file.size()));
}

/// A page that would not be seen is seen as long as others show it who were asked the same.
std::chrono::milliseconds TimeOf(int hundredths)
{
    constexpr int least = 2, instead = 10, most = 6000;
    return std::chrono::milliseconds(10 * (hundredths < least ? instead : std::min(hundredths, most)));
}

std::vector<Page> PagesFrom(const char* shared, QSize size, int most)
{
    PagesAnswer answer;
    std::memcpy(&answer, shared, sizeof answer);
    CheckReason(answer.reason);
    if (answer.pages < 1 || answer.pages > most)
        FailAsDamaged();
    std::vector<Page> pages;
    const qsizetype row = RowBytes(size.width(), BitsOfPages);
    const auto* from = reinterpret_cast<const uchar*>(shared + PagesAnswer::PixelsAt);
    for (int page = 0; page < answer.pages; ++page, from += row * size.height()) {
        QImage picture = QImage(from, size.width(), size.height(), row, QImage::Format_ARGB32).copy();
        if (picture.isNull())
            FailForMemory();
        pages.push_back({ std::move(picture), TimeOf(answer.hundredths[page]) });
    }
    return pages;
}

} // namespace

QImage DecodeConfined(
    const QByteArray& file, const std::function<void()>& whileWaiting, std::chrono::milliseconds longestWait)
{
    const PictureHeader header = PictureFile::CheckedHeader(file);
    const SharedMemory in(file.size());
    Fill(in, file);
    constexpr int mostBits = 32;
    const qsizetype bytes = RowBytes(header.width, mostBits) * header.height;
    const SharedMemory out(ReaderAnswer::PixelsAt + bytes);
    RunReader(in, out, {}, whileWaiting, longestWait);
    QImage picture = PictureOf(out.Bytes(), bytes);
    SetAnimated(picture, PagesOf(file) > 1);
    return picture;
}

Pages DecodePagesConfined(const QByteArray& file, const std::function<void()>& whileWaiting)
{
    const PictureHeader header = PictureFile::CheckedHeader(file);
    const qsizetype pageBytes = RowBytes(header.width, BitsOfPages) * header.height;
    const auto room = int(std::clamp<qsizetype>(MostPageBytes / pageBytes, 1, PagesAnswer::MaxPages));
    const int inFile = PagesOf(file);
    const int pages = std::min(inFile, room);
    const SharedMemory in(file.size());
    Fill(in, file);
    const SharedMemory out(PagesAnswer::PixelsAt + pageBytes * pages);
    RunReader(in, out, { QString::number(pages) }, whileWaiting, LongestWait);
    return { PagesFrom(out.Bytes(), QSize(int(header.width), int(header.height)), pages), inFile };
}

} // namespace imaging
