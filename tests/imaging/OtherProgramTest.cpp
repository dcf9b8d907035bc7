// The operations beside those of another program, where both mean the same.
#include "OperationTable.h"
#include "Pictures.h"

#include "imaging/Resample.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace imaging;

namespace {

/// What ImageMagick makes of pictures, given as files in front of the arguments.
QImage MadeElsewhere(const std::vector<QImage>& pictures, const QStringList& arguments)
{
    const QTemporaryDir folder;
    QStringList command;
    for (const QImage& picture : pictures) {
        command += folder.filePath(QStringLiteral("%1.png").arg(command.size()));
        EXPECT_TRUE(picture.save(command.back()));
    }
    const QString made = folder.filePath("made.ppm");
    command += arguments + QStringList { "-depth", "8", "+repage", made };
    QProcess process;
    process.start(QStringLiteral("convert-im6.q16"), command);
    EXPECT_TRUE(process.waitForStarted()) << "These tests need ImageMagick.";
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QImage(made);
}

struct Row {
    const char* name;
    QImage (*ours)(const QImage&);
    QStringList theirs;
    int tolerance; ///< of any channel of any pixel
};

QStringList Correlated(const char* weights)
{
    return { "-morphology", "Correlate", weights };
}

/// Both signs of a filter, of which the larger shows.
QStringList EitherSign(const char* weights, const char* reverse)
{
    return QStringList { "(", "+clone" } + Correlated(weights) + QStringList { ")", "(", "-clone", "0" }
    + Correlated(reverse) + QStringList { ")", "-delete", "0", "-compose", "Lighten", "-composite" };
}

std::vector<Row> Rows()
{
    constexpr int exact = 0, rounding = 1;
    return {
        { "Flip", [](const QImage& p) { return Flipped(p); }, { "-flip" }, exact },
        { "Reverse", [](const QImage& p) { return Reversed(p); }, { "-flop" }, exact },
        { "Rotate", [](const QImage& p) { return Rotated(p, 9000, RotatedSize::Grown, Qt::white); },
            { "-rotate", "90" }, exact },
        { "Grayscale", [](const QImage& p) { return Grey(p); },
            { "-grayscale", "Rec601Luma", "-type", "TrueColor" }, rounding },
        { "Invert", [](const QImage& p) { return Inverted(p); }, { "-negate" }, exact },
        { "Brightness", [](const QImage& p) { return WithBrightness(p, 300); },
            { "-brightness-contrast", "30x0" }, rounding },
        { "Contrast up", [](const QImage& p) { return WithContrast(p, 400); },
            { "-brightness-contrast", "0x40" }, rounding },
        { "Contrast down", [](const QImage& p) { return WithContrast(p, -700); },
            { "-brightness-contrast", "0x-70" }, rounding },
        { "Saturation", [](const QImage& p) { return WithSaturation(p, -500); },
            { "-color-matrix", "3x3: 0.6495,0.2935,0.057,0.1495,0.7935,0.057,0.1495,0.2935,0.557" },
            rounding },
        { "Hue", [](const QImage& p) { return WithHue(p, 60); }, { "-modulate", "100,100,133.33333" },
            rounding },
        { "Gamma", [](const QImage& p) { return WithGamma(p, 150); }, { "-gamma", "1.5" }, rounding },
        { "Posterize", [](const QImage& p) { return Posterized(p, 5); }, { "+dither", "-posterize", "5" },
            rounding },
        { "Solarize", [](const QImage& p) { return Solarized(p, 100); }, { "-solarize", "39.2157%" }, exact },
        { "Sharpen", [](const QImage& p) { return Sharpened(p, 200); }, { "-unsharp", "3x1+1+0" }, 2 },
        { "Median", [](const QImage& p) { return WithMedian(p, 5); }, { "-statistic", "Median", "5x5" },
            exact },
        { "Mosaic", [](const QImage& p) { return Mosaic(p, 4); }, { "-scale", "25%", "-scale", "400%" },
            rounding },
        { "Emboss", [](const QImage& p) { return Embossed(p, Direction::West, 2); },
            QStringList { "-grayscale", "Rec601Luma", "-bias", "50.196%" }
                + Correlated("3x3: -0.25,0,0.25,-0.5,0,0.5,-0.25,0,0.25")
                + QStringList { "-type", "TrueColor" },
            2 },
        { "Gradient", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::GradientNorth); },
            Correlated("3x3: 1,1,1,1,-2,1,-1,-1,-1"), rounding },
        { "Sobel", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::SobelHorizontal); },
            EitherSign("3x3: -1,0,1,-2,0,2,-1,0,1", "3x3: 1,0,-1,2,0,-2,1,0,-1"), rounding },
        { "Prewitt", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::PrewittVertical); },
            EitherSign("3x3: -1,-1,-1,0,0,0,1,1,1", "3x3: 1,1,1,0,0,0,-1,-1,-1"), rounding },
        { "Shift", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::ShiftHorizontal); },
            EitherSign("3x3: 0,0,0,-1,1,0,0,0,0", "3x3: 0,0,0,1,-1,0,0,0,0"), rounding },
        { "Size plain",
            [](const QImage& p) {
                return Resample(p, { 120, 120 }, Resampling::Nearest);
            },
            { "-sample", "120x120!" }, exact },
        { "Size smooth",
            [](const QImage& p) {
                return Resample(p, { 20, 10 }, Resampling::Smooth);
            },
            { "-scale", "20x10!" }, rounding },
    };
}

} // namespace

TEST(OtherProgram, AgreesOnEveryPixel)
{
    const QImage photo = Pictures::Photo({ 60, 40 });
    for (const Row& row : Rows())
        EXPECT_LE(Difference(row.ours(photo), MadeElsewhere({ photo }, row.theirs)), row.tolerance)
            << row.name;
}

TEST(OtherProgram, AgreesOnARotationBetweenQuarters)
{
    const QImage photo = Pictures::Photo({ 160, 120 });
    const QImage ours = Rotated(photo, 2500, RotatedSize::Kept, Qt::white);
    const QImage theirs = MadeElsewhere({ photo },
        { "-virtual-pixel", "white", "-filter", "point", "-interpolate", "catrom", "-distort", "SRT", "25" });
    EXPECT_GT(Pictures::Likeness(ours, theirs), 32);
}

TEST(OtherProgram, AgreesOnStretchedTones)
{
    const QImage flat = WithContrast(Pictures::Photo({ 60, 40 }), -400);
    EXPECT_LE(Difference(WithStretchedIntensity(flat), MadeElsewhere({ flat }, { "-auto-level" })), 1);
}

TEST(OtherProgram, AgreesOnAnUnderlay)
{
    const QImage photo = Pictures::Photo({ 60, 40 }), below = Pictures::TwoColours({ 60, 40 });
    const QImage theirs = MadeElsewhere({ photo, below }, { "-compose", "Multiply", "-composite" });
    EXPECT_LE(Difference(Underlaid(photo, below, UnderlayFit::Tiled), theirs), 1);
}
