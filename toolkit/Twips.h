#pragma once

#include <compare>

/// A length in twips: 15 to the device-independent pixel. Forms state their fixed measures in it.
struct Twips {
    int value = 0;
    static constexpr int PerPixel = 15;

    constexpr auto operator<=>(const Twips&) const = default;
    constexpr Twips operator+(Twips other) const { return { value + other.value }; }
    constexpr Twips operator-(Twips other) const { return { value - other.value }; }
    /// Device-independent pixels, rounded to the nearest.
    constexpr int Pixels() const { return (value + (value < 0 ? -PerPixel : PerPixel) / 2) / PerPixel; }
    static constexpr Twips FromPixels(int pixels) { return { pixels * PerPixel }; }
};

constexpr Twips operator""_twips(unsigned long long value)
{
    return { static_cast<int>(value) };
}
