#include "Pictures.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <random>

namespace {

QByteArray Run(const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    process.start(QStringLiteral("ffmpeg"), QStringList { "-v", "error", "-y" } + arguments);
    EXPECT_TRUE(process.waitForStarted()) << "These tests need the ffmpeg program.";
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

template <typename Colour> QImage Painted(QSize size, QImage::Format format, Colour&& colour)
{
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, colour(x, y));
    return image;
}

QByteArray Rgb(const QImage& picture)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB888);
    QByteArray bytes;
    for (int y = 0; y < pixels.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(pixels.constScanLine(y)), qsizetype(pixels.width()) * 3);
    return bytes;
}

} // namespace

QImage Pictures::Photo(QSize size, QImage::Format format)
{
    std::mt19937 random(1);
    const auto clamped = [&](double value) { return std::clamp(int(value) + int(random() % 7) - 3, 0, 255); };
    return Painted(size, format, [&](int x, int y) {
        const double across = double(x) / size.width(), down = double(y) / size.height();
        const double light = (x / 40 + y / 30) % 2 ? 1.0 : 0.7;
        return QColor(clamped(255 * across * light), clamped(128 + 120 * std::sin(6 * down) * light),
            clamped(255 * (1 - down) * light));
    });
}

QImage Pictures::Plain(QSize size, QColor colour)
{
    return Painted(size, QImage::Format_BGR888, [&](int, int) { return colour; });
}

QImage Pictures::TwoColours(QSize size)
{
    return Painted(size, QImage::Format_BGR888,
        [](int x, int y) { return (x / 20 + y / 17) % 2 ? QColor(250, 10, 30) : QColor(0, 0, 90); });
}

QImage Pictures::GreyRamp(QSize size)
{
    return Painted(size, QImage::Format_BGR888, [](int x, int y) {
        const int grey = (x + y) % 256;
        return QColor(grey, grey, grey);
    });
}

double Pictures::Likeness(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 0;
    const QByteArray first = Rgb(one), second = Rgb(other);
    double squares = 0;
    for (qsizetype i = 0; i < first.size(); ++i)
        squares += std::pow(double(uchar(first[i])) - uchar(second[i]), 2);
    return squares == 0 ? 1000 : 10 * std::log10(255.0 * 255.0 * double(first.size()) / squares);
}

std::vector<QImage> Pictures::ReadElsewhere(const std::vector<QByteArray>& files, const QString& extension)
{
    const QTemporaryDir folder;
    QStringList in, out;
    for (size_t i = 0; i < files.size(); ++i) {
        QFile disk(folder.filePath(QString::number(i) + extension));
        EXPECT_TRUE(disk.open(QIODevice::WriteOnly));
        disk.write(files[i]);
        in += { "-i", disk.fileName() };
        out += { "-map", QString::number(i), "-frames:v", "1", "-sws_flags", "accurate_rnd+full_chroma_int",
            "-pix_fmt", "rgb24", folder.filePath(QString::number(i) + ".ppm") };
    }
    Run(in + out, {});
    std::vector<QImage> pictures;
    for (size_t i = 0; i < files.size(); ++i)
        pictures.push_back(
            QImage(folder.filePath(QString::number(i) + ".ppm")).convertToFormat(QImage::Format_RGB888));
    return pictures;
}

QByteArray Pictures::WriteElsewhere(
    const QImage& picture, const QString& extension, const QStringList& arguments)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("picture" + extension);
    const QString size = QStringLiteral("%1x%2").arg(picture.width()).arg(picture.height());
    Run(QStringList { "-f", "rawvideo", "-pix_fmt", "rgb24", "-s", size, "-i", "pipe:0" } + arguments
            + QStringList { name },
        Rgb(picture));
    QFile disk(name);
    EXPECT_TRUE(disk.open(QIODevice::ReadOnly));
    return disk.readAll();
}

QByteArray Pictures::Damaged(QByteArray file, unsigned reach, int flips, std::mt19937& random)
{
    for (; flips > 0; --flips) {
        const auto at = qsizetype(random() % reach);
        file[at] = char(file[at] ^ (1 << random() % 8));
    }
    return file;
}

QByteArray Encode(const QImage& picture, const imaging::FormatRow& row)
{
    return imaging::PictureFile::Encode(picture, row.format, row.bits, row.quality).Joined();
}
