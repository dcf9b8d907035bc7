#include "imaging/ConfinedReader.h"

#include "base/Descriptor.h"
#include "imaging/PictureFile.h"
#include "imaging/PictureHeader.h"
#include "imaging/PictureLimits.h"
#include "imaging/ReaderAnswer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>

namespace imaging {
namespace {

using namespace std::chrono_literals;
constexpr auto LongestWait = 30s;
constexpr auto Tick = 50ms;

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
        if (!file_.IsOpen() || ftruncate(file_.Number(), off_t(size)) != 0)
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

/// Runs the reading program to its end, which takes it from the other one's hands: what it wrote stays as it
/// is.
void RunReader(int in, int out, const std::function<void()>& whileWaiting)
{
    QProcess reader;
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
    reader.start(ReaderProgram(), { QString::number(in), QString::number(out) });
    if (!reader.waitForStarted())
        throw PictureError(QStringLiteral(
            "A part of the program that opens pictures is missing. Install the program again."));
    const QDeadlineTimer end(LongestWait);
    while (reader.state() != QProcess::NotRunning && !end.hasExpired())
        if (!reader.waitForFinished(int(std::chrono::milliseconds(Tick).count())) && whileWaiting)
            whileWaiting();
    if (reader.state() != QProcess::NotRunning) {
        reader.kill();
        reader.waitForFinished();
        FailAsDamaged();
    }
    if (reader.exitStatus() != QProcess::NormalExit || reader.exitCode() != 0)
        FailAsDamaged();
}

/// Whether the answer is a picture of the size that the file's header told, lying or standing.
bool Fits(const Answer& answer, const PictureHeader& header)
{
    const bool isAsTold = answer.width == header.width && answer.height == header.height;
    const bool isTurned = answer.width == header.height && answer.height == header.width;
    const bool hasPalette = answer.format == QImage::Format_Indexed8;
    const bool isKnown =
        hasPalette || answer.format == QImage::Format_BGR888 || answer.format == QImage::Format_ARGB32;
    return (isAsTold || isTurned) && isKnown
        && (hasPalette ? answer.colours >= 1 && answer.colours <= Answer::MaxColours : answer.colours == 0);
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

QImage PictureOf(const char* shared, const PictureHeader& header)
{
    Answer answer;
    std::memcpy(&answer, shared, sizeof answer);
    if (answer.reason[0] != '\0')
        throw PictureError(
            QString::fromUtf8(answer.reason, qsizetype(strnlen(answer.reason, sizeof answer.reason))));
    if (!Fits(answer, header))
        FailAsDamaged();
    const auto format = QImage::Format(answer.format);
    const qsizetype row = RowBytes(answer.width, QImage::toPixelFormat(format).bitsPerPixel());
    QImage picture = QImage(
        reinterpret_cast<const uchar*>(shared + Answer::PixelsAt), answer.width, answer.height, row, format)
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

QImage DecodeConfined(const QByteArray& file, const std::function<void()>& whileWaiting)
{
    const PictureHeader header = PictureFile::CheckedHeader(file);
    const SharedMemory in(file.size());
    std::memcpy(in.Bytes(), file.constData(), size_t(file.size()));
    constexpr int mostBits = 32;
    const SharedMemory out(Answer::PixelsAt + RowBytes(header.width, mostBits) * header.height);
    RunReader(in.Number(), out.Number(), whileWaiting);
    return PictureOf(out.Bytes(), header);
}

} // namespace imaging
