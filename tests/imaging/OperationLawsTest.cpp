// What holds for every operation on pictures, at every depth.
#include "OperationTable.h"
#include "Pictures.h"

#include "imaging/ColorResolution.h"
#include "imaging/Resample.h"

#include <QFile>
#include <QFileInfo>

using Kind = OperationRow::Kind;
using namespace imaging;

namespace {

const QImage& Photo()
{
    static const QImage photo = Pictures::Photo({ 61, 43 });
    return photo;
}

QImage WithAlpha()
{
    QImage picture = Photo().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            QColor colour = picture.pixelColor(x, y);
            colour.setAlpha((x * 4 + y) % 256);
            picture.setPixelColor(x, y, colour);
        }
    return picture;
}

} // namespace

TEST(EveryOperation, KeepsTheDepth)
{
    for (const int bits : Depths)
        for (const OperationRow& row : Operations()) {
            const QImage result = row.run(AtDepth(Photo(), bits));
            EXPECT_EQ(BitsPerPixel(result), bits) << row.name;
        }
}

TEST(EveryOperation, KeepsTheByteOrder)
{
    for (const auto format :
        { QImage::Format_RGB888, QImage::Format_RGBA8888, QImage::Format_RGB32, QImage::Format_RGB16 })
        for (const OperationRow& row : Operations()) {
            const QImage result = row.run(Photo().convertToFormat(format));
            EXPECT_EQ(result.format(), format) << row.name;
            if (format != QImage::Format_RGB16) {
                EXPECT_LE(Difference(result, row.run(Photo())), 1) << row.name << " " << format;
            }
        }
}

TEST(EveryOperation, LeavesThePictureItIsGivenAlone)
{
    for (const int bits : Depths) {
        const QImage picture = AtDepth(Photo(), bits), before = picture.copy();
        for (const OperationRow& row : Operations()) {
            row.run(picture);
            ASSERT_EQ(picture, before) << row.name << " " << bits;
        }
    }
}

TEST(EveryOperation, OnColoursOrPixelsKeepsTransparency)
{
    const QImage picture = WithAlpha();
    for (const OperationRow& row : Operations()) {
        if (row.kind == Kind::Places || QByteArray(row.name).startsWith("Underlay"))
            continue;
        EXPECT_EQ(row.run(picture).convertToFormat(QImage::Format_Alpha8),
            picture.convertToFormat(QImage::Format_Alpha8))
            << row.name;
    }
}

TEST(EveryOperation, OnColoursChangesAPaletteAsItWouldThePixels)
{
    for (const int bits : { 1, 4, 8 }) {
        const QImage picture = AtDepth(Photo(), bits);
        for (const OperationRow& row : Operations()) {
            if (row.kind == Kind::Colours) {
                EXPECT_LE(
                    Difference(row.run(picture), row.run(picture.convertToFormat(QImage::Format_BGR888))), 1)
                    << row.name << " " << bits;
            }
        }
    }
}

TEST(EveryOperation, WorksOnPicturesOfOnePixelAndOfOneRow)
{
    for (const QSize size : { QSize(1, 1), QSize(1, 40), QSize(40, 1), QSize(2, 2) })
        for (const int bits : Depths)
            for (const OperationRow& row : Operations())
                EXPECT_FALSE(row.run(AtDepth(Pictures::Photo(size), bits)).isNull()) << row.name;
}

TEST(EveryOperation, TakesPicturesOfOneBitAndOfGreyAsTheyComeFromElsewhere)
{
    for (const auto format :
        { QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Grayscale8, QImage::Format_RGB30 })
        for (const OperationRow& row : Operations()) {
            const QImage picture = Photo().convertToFormat(format);
            EXPECT_EQ(BitsPerPixel(row.run(picture)), BitsPerPixel(picture)) << row.name << " " << format;
        }
}

TEST(EveryOperation, OnPixelsLeavesNoSeamsBetweenTheRowsItWorksOnAtATime)
{
    const QImage tall = Pictures::Photo({ 40, 480 });
    const QRect part(0, 120, 40, 240); // begins with a whole tile of the mosaic
    constexpr int reach = 24;
    for (const OperationRow& row : Operations()) {
        if (row.kind != Kind::Pixels || QByteArray(row.name).startsWith("Underlay"))
            continue;
        const QImage whole = row.run(tall).copy(part.adjusted(0, reach, 0, -reach));
        const QImage cut = row.run(tall.copy(part));
        EXPECT_EQ(whole, cut.copy(cut.rect().adjusted(0, reach, 0, -reach))) << row.name;
    }
}

TEST(EveryOperation, WithItsNeutralValueGivesTheSameBits)
{
    for (const int bits : Depths) {
        const QImage picture = AtDepth(Photo(), bits);
        for (const OperationRow& row : NeutralOperations())
            EXPECT_EQ(row.run(picture).constBits(), picture.constBits()) << row.name << " " << bits;
    }
}

TEST(EveryOperation, DoneTwiceOrFourTimesIsUndone)
{
    for (const int bits : Depths) {
        const QImage picture = AtDepth(Photo(), bits);
        const auto quarter = [](const QImage& one) {
            return Rotated(one, 9000, RotatedSize::Grown, Qt::white);
        };
        EXPECT_EQ(Flipped(Flipped(picture)), picture) << bits;
        EXPECT_EQ(Reversed(Reversed(picture)), picture) << bits;
        EXPECT_EQ(Inverted(Inverted(picture)), picture) << bits;
        EXPECT_EQ(quarter(quarter(quarter(quarter(picture)))), picture) << bits;
        EXPECT_EQ(Rotated(Rotated(picture, 18000, RotatedSize::Kept, Qt::white), -18000, RotatedSize::Kept,
                      Qt::white),
            picture)
            << bits;
    }
}

TEST(EveryOperation, TellsItsProgressUpToTheWhole)
{
    const QImage picture = Pictures::Photo({ 40, 900 });
    const std::function<void(const Progress&)> slow[] = {
        [&](const Progress& progress) { OilPainted(picture, 5, progress); },
        [&](const Progress& progress) { WithMedian(picture, 5, progress); },
        [&](const Progress& progress) { WithHue(picture, 5, progress); },
        [&](const Progress& progress) {
            WithColorResolution(picture, 8, PaletteKind::Fixed, Dithering::Jarvis, 0, progress);
        },
    };
    for (const auto& run : slow) {
        std::vector<int> told;
        run([&](int part) { told.push_back(part); });
        EXPECT_GT(told.size(), 5U);
        EXPECT_TRUE(std::ranges::is_sorted(told));
        EXPECT_EQ(told.back(), 1000);
    }
}

/// With TAQ_NEW_GOLDEN set, what comes out is written as what is expected, and the test fails all the same.
TEST(EveryOperation, LooksAsItDid)
{
    for (const OperationRow& row : Operations()) {
        const QString path = QStringLiteral(SOURCE_DIR "/tests/imaging/golden/%1.png").arg(row.name);
        const QImage result = row.run(Photo());
        if (qEnvironmentVariableIsSet("TAQ_NEW_GOLDEN")) {
            ADD_FAILURE() << "written: " << path.toStdString();
            ASSERT_TRUE(result.save(path));
        }
        EXPECT_LE(Difference(result, QImage(path)), 3) << row.name;
    }
}
