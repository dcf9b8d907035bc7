#include "imaging/ConfinedReader.h"

#include "base/Descriptor.h"
#include "imaging/PictureFile.h"
#include "imaging/PictureHeader.h"
#include "imaging/PictureLimits.h"
#include "imaging/ReaderAnswer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>

namespace imaging {
namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds Tick = 50ms;

[[noreturn]] void FailForMemory()
{
    throw PictureError(QStringLiteral("There is not enough memory for this picture."));
}

[[noreturn]] void FailAsDamaged()
{
    throw PictureError(QStringLiteral("This picture is damaged or too large and could not be opened."));
}

/// Memory that two programs share and neither can make larger or smaller.
class SharedMemory {
public:
    explicit SharedMemory(qsizetype size)
        : file_(memfd_create("picture", MFD_CLOEXEC | MFD_ALLOW_SEALING))
        , size_(size_t(size))
    {
        // Memory that is only promised would end the program where it is touched and not there.
        if (!file_.IsOpen() || posix_fallocate(file_.Number(), 0, off_t(size)) != 0)
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

/// Bits of a pixel of a picture as answered.
int BitsOf(const ReaderAnswer& answer)
{
    return QImage::toPixelFormat(QImage::Format(answer.format)).bitsPerPixel();
}

/// Starts the reading program with these two open files.
void StartReader(QProcess& reader, int in, int out)
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
    reader.start(QCoreApplication::applicationDirPath() + QStringLiteral("/taq-reader"),
        { QString::number(in), QString::number(out) });
    if (!reader.waitForStarted())
        throw PictureError(QStringLiteral(
            "A part of the program that opens pictures is missing. Install the program again."));
}

/// Waits until the reading program has ended or was ended: from then on nobody changes the shared memory.
void AwaitEnd(QProcess& reader, const std::function<void()>& whileWaiting, QDeadlineTimer end)
{
    while (reader.state() != QProcess::NotRunning && !end.hasExpired())
        if (!reader.waitForFinished(int(Tick.count())))
            whileWaiting();
    if (reader.state() != QProcess::NotRunning) {
        reader.kill();
        reader.waitForFinished();
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

/// The reader's reason as a line that can be shown, whatever it wrote; empty when it gave none.
QString ReasonOf(const ReaderAnswer& answer)
{
    QString reason =
        QString::fromUtf8(answer.reason, qsizetype(strnlen(answer.reason, sizeof answer.reason)));
    for (QChar& character : reason)
        if (!character.isPrint())
            character = QLatin1Char(' ');
    return reason.simplified();
}

/// The picture in shared memory, whose rows have room for this many bytes.
QImage PictureOf(const char* shared, qsizetype bytes)
{
    ReaderAnswer answer;
    std::memcpy(&answer, shared, sizeof answer);
    if (const QString reason = ReasonOf(answer); !reason.isEmpty())
        throw PictureError(reason);
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

} // namespace

QImage DecodeConfined(
    const QByteArray& file, const std::function<void()>& whileWaiting, std::chrono::milliseconds longestWait)
{
    const PictureHeader header = PictureFile::CheckedHeader(file);
    const SharedMemory in(file.size());
    std::memcpy(in.Bytes(), file.constData(), size_t(file.size()));
    constexpr int mostBits = 32;
    const qsizetype bytes = RowBytes(header.width, mostBits) * header.height;
    const SharedMemory out(ReaderAnswer::PixelsAt + bytes);
    QProcess reader;
    StartReader(reader, in.Number(), out.Number());
    AwaitEnd(reader, whileWaiting, QDeadlineTimer(longestWait));
    return PictureOf(out.Bytes(), bytes);
}

} // namespace imaging
