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

QImage Decoded(const QString& file, const QStringList& filter)
{
    const QStringList before { QStringLiteral("-nostdin"), QStringLiteral("-i"), file };
    const QStringList after { QStringLiteral("-frames:v"), QStringLiteral("1"), QStringLiteral("-sws_flags"),
        QStringLiteral("accurate_rnd+full_chroma_int"), QStringLiteral("-c:v"), QStringLiteral("ppm"),
        QStringLiteral("-f"), QStringLiteral("image2pipe"), QStringLiteral("-") };
    const QByteArray picture = OutputOf(QStringLiteral("ffmpeg"), before + filter + after);
    return QImage::fromData(picture, "PPM").convertToFormat(QImage::Format_RGB888);
}

} // namespace

QImage Witness::FrameOf(const QString& video, int number)
{
    return Decoded(video, { QStringLiteral("-vf"), QStringLiteral("select=eq(n\\,%1)").arg(number) });
}

QImage Witness::PictureOf(const QString& file, QString* kind)
{
    *kind = QString::fromLatin1(OutputOf(QStringLiteral("ffprobe"),
                                    { QStringLiteral("-v"), QStringLiteral("error"),
                                        QStringLiteral("-show_entries"), QStringLiteral("stream=codec_name"),
                                        QStringLiteral("-of"), QStringLiteral("csv=p=0"), file }))
                .trimmed();
    return Decoded(file, {});
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
