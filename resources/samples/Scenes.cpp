// Scenes NAME SECONDS: paints a sample scene as raw pictures of 640x360 RGB, 25 a second, to the standard
// output. A scene is a function of the place (0 to 320, 0 to 180) and of the time in seconds.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

struct Colour {
    double Red, Green, Blue;
};

Colour operator+(Colour a, Colour b)
{
    return { a.Red + b.Red, a.Green + b.Green, a.Blue + b.Blue };
}
Colour operator*(double factor, Colour c)
{
    return { factor * c.Red, factor * c.Green, factor * c.Blue };
}

Colour Mix(Colour under, Colour over, double cover)
{
    return (1 - cover) * under + cover * over;
}

/// 0 below zero, 1 above it, soft over one pixel of the finished picture.
double Edge(double distance)
{
    return std::clamp(2 * distance + 0.5, 0.0, 1.0);
}

double Bell(double x)
{
    return std::exp(-x * x);
}

// --- Aurora: two curtains of light over a lake

constexpr double lakeShore = 138;

/// A curtain hangs from its wavy hem: sharp below, fading upwards, in rays.
double Curtain(double y, double hem, double height, double rays)
{
    return std::exp(-std::max(0.0, hem - y) / height) * std::exp(-std::max(0.0, y - hem) / 4.5) * rays;
}

double Star(double x, double y, double t)
{
    const double place = std::abs(std::sin(std::floor(x) * 12.9898 + std::floor(y) * 78.233) * 43758.5453);
    const double fromCentre = std::hypot(x - std::floor(x) - 0.5, y - std::floor(y) - 0.5);
    const bool isStar = place - std::floor(place) > 0.9988;
    return isStar ? (0.65 + 0.35 * std::sin(3 * t + 7 * place)) * Bell(2.4 * fromCentre) : 0;
}

Colour NightSky(double x, double y, double t)
{
    const double hem1 = 84 + 16 * std::sin(x / 47 + 0.42 * t) + 9 * std::sin(x / 19 - 0.63 * t);
    const double hem2 = 62 + 13 * std::sin(x / 61 - 0.35 * t + 2) + 8 * std::sin(x / 27 + 0.51 * t);
    const double rays1 = 0.72 + 0.28 * std::sin(x / 3.1 + 2.6 * std::sin(x / 23 + 0.7 * t));
    const double rays2 = 0.7 + 0.3 * std::sin(x / 2.7 - 2.2 * std::sin(x / 31 - 0.6 * t));
    return Colour { 14, 19 + y / 7, 54 + y / 4 } + Star(x, y, t) * Colour { 235, 235, 225 }
    + Curtain(y, hem1, 34, rays1) * Colour { 40 * (1 - y / 120), 215, 120 }
    + Curtain(y, hem2, 26, rays2) * Colour { 120 * (1.1 - y / 90), 80, 150 };
}

Colour Aurora(double x, double y, double t)
{
    const bool isLake = y > lakeShore;
    const double ripple = 1.6 * std::sin(1.1 * y - 2.4 * t + x / 9);
    const double height = isLake ? 2 * lakeShore - y + ripple : y;
    const double ridge = 128 - 7 * std::sin(x / 31 + 0.6) - 5 * std::sin(x / 13 + 2) - 2 * std::sin(x / 5);
    return (isLake ? 0.55 : 1) * Mix(NightSky(x, height, t), { 6, 9, 20 }, Edge(height - ridge));
}

// --- Sunset: the sun goes down over the sea

constexpr double seaLevel = 112;
constexpr double sunX = 196;

Colour EveningSky(double x, double y, double t)
{
    const double fromSun = std::hypot(x - sunX, y - 58 - 4.6 * t);
    const double cloudBands =
        0.5 + 0.5 * std::sin(x / 38 + y / 5 + 0.12 * t + 1.4 * std::sin(y / 7 + x / 71));
    const double clouds = std::pow(cloudBands, 3) * Bell((y - 44) / 20);
    return Colour { 66 + 1.55 * y, 44 + 0.66 * y, 104 - 0.36 * y } + clouds * Colour { 70, 26, 22 }
    + std::exp(-fromSun / 27) * Colour { 120, 86, 24 } + Edge(14.5 - fromSun) * Colour { 130, 110, 50 };
}

double Glitter(double x, double y, double t)
{
    const double fromTrack =
        std::abs(x - sunX + 5 * std::sin(2.3 * y + 5 * t) + 4 * std::sin(0.9 * y - 3 * t));
    const double waves = 0.55 + 0.45 * std::sin(2.9 * y - 6 * t + x / 7);
    return waves * std::exp(-fromTrack / (4 + 0.28 * (y - seaLevel)));
}

Colour Sea(double x, double y, double t)
{
    const double swell = 0.16 * (y - seaLevel + 2) * std::sin(1.7 * y - 3.1 * t + 2 * std::sin(x / 17 + t));
    const Colour reflected = EveningSky(x, std::max(0.0, 2 * seaLevel - y + swell), t);
    return 0.62 * reflected + Glitter(x, y, t) * Colour { 190, 125, 60 };
}

Colour Sunset(double x, double y, double t)
{
    if (y > seaLevel)
        return Sea(x, y, t);
    const double island = seaLevel - 15 * Bell((x - 52) / 44) - 8 * Bell((x - 110) / 30);
    return Mix(EveningSky(x, y, t), { 58, 28, 34 }, Edge(y - island));
}

// --- Balloons: three balloons rise over morning hills

struct Balloon {
    double X, Y, Radius;
    Colour Dark, Light;
};

Colour OnBalloon(const Balloon& balloon, double x, double y, Colour behind)
{
    const double down = (y - balloon.Y) / balloon.Radius;
    const double taper = down > 0 ? std::max(0.1, 1 - 0.3 * down) : 1;
    const double slice = std::sqrt(std::max(0.0001, 1 - std::pow(down > 0 ? down / 1.28 : down, 2)));
    const double halfWidth = balloon.Radius * slice * taper;
    const double across = std::clamp((x - balloon.X) / halfWidth, -1.0, 1.0);
    const double stripe = Edge(4 * std::sin(4.5 * std::asin(across)));
    const double shade = 1 - 0.34 * std::pow(std::max(0.0, across + 0.25), 2);
    const double fromMiddle = std::abs(x - balloon.X);
    const double isTall = Edge(y - balloon.Y + balloon.Radius) * Edge(1.1 * balloon.Radius - (y - balloon.Y));
    const double envelope = isTall * Edge(halfWidth - fromMiddle);

    const double ropes = Edge(0.3 - std::abs(fromMiddle - 0.15 * balloon.Radius))
        * Edge((0.2 - std::abs(down - 1.25)) * balloon.Radius);
    const double basketY = std::abs(down - 1.45) * balloon.Radius;
    const double basket = Edge(0.17 * balloon.Radius - fromMiddle) * Edge(0.13 * balloon.Radius - basketY);
    const Colour hung = Mix(behind, { 92, 62, 40 }, std::max(0.7 * ropes, basket));
    return Mix(hung, shade * Mix(balloon.Dark, balloon.Light, stripe), envelope);
}

Colour Morning(double x, double y)
{
    const double farHills = 132 + 10 * std::sin(x / 57 + 3.4) + 5 * std::sin(x / 23 + 1);
    const double nearHills = 152 + 9 * std::sin(x / 41 + 1.2) + 4 * std::sin(x / 17);
    const double mist = Bell((y - 140) / 16);
    const double grass = 5 * std::sin(y / 3 + x / 40);
    const Colour sky =
        Colour { 112 + 0.72 * y, 164 + 0.36 * y, 222 - 0.18 * y } + 50 * mist * Colour { 1, 1, 1 };
    const Colour far = Colour { 96, 132, 148 } + 44 * mist * Colour { 1, 1, 1 };
    const Colour near { 62 + grass, 108 + grass, 70 + grass };
    return Mix(Mix(sky, far, Edge(y - farHills)), near, Edge(y - nearHills));
}

Colour Balloons(double x, double y, double t)
{
    const Balloon flying[] = {
        { 268 + 0.8 * t, 70 - 1.6 * t, 10, { 140, 70, 140 }, { 250, 190, 200 } },
        { 214 - 1.4 * t, 104 - 3.1 * t + 2 * std::sin(t), 18, { 44, 128, 168 }, { 238, 232, 214 } },
        { 92 + 2.2 * t + 2 * std::sin(0.9 * t), 92 - 4.4 * t, 27, { 214, 66, 58 }, { 250, 214, 120 } },
    };
    Colour seen = Morning(x, y);
    for (const Balloon& balloon : flying)
        seen = OnBalloon(balloon, x, y, seen);
    return seen;
}

// --- pictures

constexpr int width = 640;
constexpr int height = 360;
constexpr int rate = 25;

using Scene = Colour (*)(double x, double y, double t);
const std::map<std::string, Scene> scenes { { "Aurora", Aurora }, { "Sunset", Sunset },
    { "Balloons", Balloons } };

std::uint8_t Byte(double value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
}

std::vector<std::uint8_t> Paint(Scene scene, double t)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(3 * width * height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const Colour c = scene((column + 0.5) / 2, (row + 0.5) / 2, t);
            bytes.insert(bytes.end(), { Byte(c.Red), Byte(c.Green), Byte(c.Blue) });
        }
    }
    return bytes;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 || !scenes.contains(argv[1]))
        return std::fputs("usage: Scenes Aurora|Sunset|Balloons SECONDS\n", stderr), 2;
    for (int picture = 0; picture < rate * std::atoi(argv[2]); ++picture) {
        const auto bytes = Paint(scenes.at(argv[1]), static_cast<double>(picture) / rate);
        if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size())
            return 1;
    }
}
