// operations: each operation on a picture of 12 megapixels, against the nearest that ImageMagick and
// GraphicsMagick have, whichever of the two takes less. The peers run as programs on their own raw files, and
// what they take to do nothing is taken off.
#include "bench/Comparison.h"
#include "imaging/ColorResolution.h"
#include "imaging/Colours.h"
#include "imaging/Edges.h"
#include "imaging/Filters.h"
#include "imaging/Mirror.h"
#include "imaging/Resample.h"
#include "imaging/Rotate.h"
#include "imaging/Tones.h"
#include "imaging/Underlay.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <sstream>

using namespace imaging;

namespace {

constexpr double Goal = 0.5;

struct Case {
    const char* what;
    QImage (*ours)(const QImage&);
    const char* imageMagick; ///< arguments between the file and the end
    const char* graphicsMagick; ///< nullptr where it has nothing near
};

QImage Depth(const QImage& p, int bits, PaletteKind palette, Dithering dithering)
{
    return WithColorResolution(p, bits, palette, dithering, 0);
}

QImage TileOf(const QImage& p)
{
    static const QImage tile = p.copy(0, 0, 640, 480);
    return tile;
}

/// Tones that leave room for stretching; the peers do the same work whatever the tones.
QImage FlatOf(const QImage& p)
{
    static const QImage flat = WithContrast(p, -400);
    return flat;
}

const Case Cases[] = {
    { "flip", [](const QImage& p) { return Flipped(p); }, "-flip", "-flip" },
    { "reverse", [](const QImage& p) { return Reversed(p); }, "-flop", "-flop" },
    { "rotate by a quarter", [](const QImage& p) { return Rotated(p, 9000, RotatedSize::Grown, Qt::white); },
        "-rotate 90", "-rotate 90" },
    { "rotate by 30 degrees", [](const QImage& p) { return Rotated(p, 3000, RotatedSize::Grown, Qt::white); },
        "-rotate 30", "-rotate 30" },
    { "grayscale", [](const QImage& p) { return Grey(p); }, "-grayscale Rec601Luma",
        "-colorspace Rec601Luma" },
    { "invert", [](const QImage& p) { return Inverted(p); }, "-negate", "-negate" },
    { "brightness", [](const QImage& p) { return WithBrightness(p, 300); }, "-brightness-contrast 30x0",
        "-modulate 130,100,100" },
    { "contrast", [](const QImage& p) { return WithContrast(p, 300); }, "-brightness-contrast 0x30",
        "-contrast" },
    { "saturation", [](const QImage& p) { return WithSaturation(p, 300); }, "-modulate 100,130,100",
        "-modulate 100,130,100" },
    { "hue", [](const QImage& p) { return WithHue(p, 60); }, "-modulate 100,100,133",
        "-modulate 100,100,133" },
    { "gamma", [](const QImage& p) { return WithGamma(p, 150); }, "-gamma 1.5", "-gamma 1.5" },
    { "sharpen", [](const QImage& p) { return Sharpened(p, 200); }, "-unsharp 3x1+1+0", "-unsharp 3x1+1+0" },
    { "stretch intensity", [](const QImage& p) { return WithStretchedIntensity(FlatOf(p)); }, "-auto-level",
        "-normalize" },
    { "median of 3", [](const QImage& p) { return WithMedian(p, 3); }, "-statistic Median 3x3", "-median 1" },
    { "mosaic of 10", [](const QImage& p) { return Mosaic(p, 10); }, "-scale 10% -scale 1000%",
        "-scale 10% -scale 1000%" },
    { "posterize to 4", [](const QImage& p) { return Posterized(p, 4); }, "+dither -posterize 4", nullptr },
    { "solarize", [](const QImage& p) { return Solarized(p, 128); }, "-solarize 50%", "-solarize 50%" },
    { "oil of 5", [](const QImage& p) { return OilPainted(p, 5); }, "-paint 2", "-paint 2" },
    { "emboss", [](const QImage& p) { return Embossed(p, Direction::East, 2); }, "-emboss 1", "-emboss 1" },
    { "gradient filter", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::GradientNorth); },
        "-morphology Convolve 3x3:1,1,1,1,-2,1,-1,-1,-1", "-convolve 1,1,1,1,-2,1,-1,-1,-1" },
    { "Sobel filter", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::SobelHorizontal); },
        "-morphology Convolve Sobel", "-convolve -1,0,1,-2,0,2,-1,0,1" },
    { "shift filter", [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::ShiftHorizontal); },
        "-morphology Convolve 3x3:0,0,0,-1,1,0,0,0,0", "-convolve 0,0,0,-1,1,0,0,0,0" },
    { "underlay stretched", [](const QImage& p) { return Underlaid(p, TileOf(p), UnderlayFit::Stretched); },
        "( +clone -crop 640x480+0+0 +repage -resize 4000x3000! ) -compose Multiply -composite", nullptr },
    { "size to a half, plain", [](const QImage& p) { return Resample(p, p.size() / 2, Resampling::Nearest); },
        "-sample 50%", "-sample 50%" },
    { "size to a half, smooth", [](const QImage& p) { return Resample(p, p.size() / 2, Resampling::Smooth); },
        "-scale 50%", "-scale 50%" },
    { "8 bits, optimized, no dithering",
        [](const QImage& p) { return Depth(p, 8, PaletteKind::Optimized, Dithering::None); },
        "+dither -colors 256", "+dither -colors 256" },
    { "8 bits, optimized, Floyd-Steinberg",
        [](const QImage& p) { return Depth(p, 8, PaletteKind::Optimized, Dithering::FloydSteinberg); },
        "-dither FloydSteinberg -colors 256", "-dither -colors 256" },
    { "1 bit, Floyd-Steinberg",
        [](const QImage& p) { return Depth(p, 1, PaletteKind::Fixed, Dithering::FloydSteinberg); },
        "-dither FloydSteinberg -monochrome", "-dither -monochrome" },
    { "1 bit, ordered", [](const QImage& p) { return Depth(p, 1, PaletteKind::Fixed, Dithering::Ordered); },
        "-ordered-dither o8x8", nullptr },
};

/// A program on a file of its own kind.
class Peer {
public:
    Peer(std::vector<std::string> program, std::string file)
        : program_(std::move(program))
        , file_(std::move(file))
    {
    }

    void Take(const std::string& picture) const { CostOf(Command(picture, "", file_)); }

    /// What the arguments cost beyond reading.
    Cost Run(const char* arguments) const
    {
        return CostOf(Command(file_, arguments, "null:")) - CostOf(Command(file_, "", "null:"));
    }

private:
    std::vector<std::string> Command(
        const std::string& from, const char* arguments, const std::string& to) const
    {
        std::vector<std::string> command = program_;
        command.push_back(from);
        std::istringstream words(arguments);
        for (std::string word; words >> word;)
            command.push_back(word);
        command.push_back(to);
        return command;
    }

    std::vector<std::string> program_;
    std::string file_;
};

/// A frame of a sample video with the noise of a camera.
void MakePicture(const std::string& path)
{
    CostOf({ "ffmpeg", "-v", "error", "-y", "-ss", "2", "-i", "resources/samples/Sunset.mpg", "-frames:v",
        "1", "-vf", "scale=4000:3000,noise=alls=10", "-pix_fmt", "rgb24", path });
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(name).toStdString(); };
    MakePicture(in("picture.png"));
    const Peer imageMagick({ "convert-im6.q16" }, in("im.mpc"));
    const Peer graphicsMagick({ "gm", "convert" }, in("gm.mpc"));
    imageMagick.Take(in("picture.png"));
    graphicsMagick.Take(in("picture.png"));
    const QImage picture = QImage(folder.filePath("picture.png")).convertToFormat(QImage::Format_BGR888);

    std::printf("\n");
    PrintHead();
    for (const Case& one : Cases) {
        if (argc > 1 && std::none_of(argv + 1, argv + argc, [&](const char* name) {
                return one.what == std::string(name);
            }))
            continue;
        const auto peer = [&] {
            const Cost first = imageMagick.Run(one.imageMagick);
            if (!one.graphicsMagick)
                return first;
            const Cost second = graphicsMagick.Run(one.graphicsMagick);
            return first.cpu < second.cpu ? first : second;
        };
        const auto ours = [&] {
            const Stopwatch watch;
            one.ours(picture);
            return watch.Elapsed();
        };
        Compare(one.what, { "the better of the two", peer }, { { "imaging", ours, Goal } });
    }
    return 0;
}
