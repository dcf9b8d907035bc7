#include "Witness.h"

#include <QProcess>

#include <cmath>
#include <limits>

namespace {

QByteArray OutputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    process.waitForFinished(60'000);
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
        ? process.readAllStandardOutput()
        : QByteArray();
}

QImage FromPortable(const QByteArray& bytes)
{
    return QImage::fromData(bytes, "PPM").convertToFormat(QImage::Format_RGB888);
}

} // namespace

QImage Witness::FrameOf(const QString& video, int number)
{
    return FromPortable(OutputOf(QStringLiteral("ffmpeg"),
        { QStringLiteral("-nostdin"), QStringLiteral("-i"), video, QStringLiteral("-vf"),
            QStringLiteral("select=eq(n\\,%1),scale=flags=accurate_rnd+full_chroma_int").arg(number),
            QStringLiteral("-frames:v"), QStringLiteral("1"), QStringLiteral("-c:v"), QStringLiteral("ppm"),
            QStringLiteral("-f"), QStringLiteral("image2pipe"), QStringLiteral("-") }));
}

QImage Witness::PictureOf(const QString& file, QString* kind)
{
    *kind = QString::fromLatin1(
        OutputOf(QStringLiteral("identify"), { QStringLiteral("-format"), QStringLiteral("%m "), file }))
                .section(u' ', 0, 0);
    return FromPortable(OutputOf(QStringLiteral("convert"),
        { file + QStringLiteral("[0]"), QStringLiteral("-auto-orient"), QStringLiteral("-alpha"),
            QStringLiteral("off"), QStringLiteral("-depth"), QStringLiteral("8"), QStringLiteral("ppm:-") }));
}

double Witness::Likeness(const QImage& one, const QImage& other)
{
    if (one.isNull() || one.size() != other.size())
        return -1;
    const QImage a = one.convertToFormat(QImage::Format_RGB888);
    const QImage b = other.convertToFormat(QImage::Format_RGB888);
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width() * 3; ++x)
            sum += std::pow(int(a.constScanLine(y)[x]) - int(b.constScanLine(y)[x]), 2);
    const double mean = sum / (3.0 * a.width() * a.height());
    return mean == 0 ? std::numeric_limits<double>::infinity() : 10 * std::log10(255.0 * 255.0 / mean);
}
