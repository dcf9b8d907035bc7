#pragma once

#include <functional>

/// What the platform can do with see-through windows.
struct Compositing {
    bool windows = false; ///< windows of their own, laid over the screen
    bool children = false; ///< windows inside a form, which the program lays over each other itself
    bool themes = false; ///< windows have a theme that can change
    bool roundCorners = false; ///< the theme rounds the upper corners of windows
};

/// Asked at the start of a shadow and whenever the display changes.
using CompositingTest = std::function<Compositing()>;

/// What this platform can do now. Windows need an X server with a compositing manager, because elsewhere a
/// program cannot place them; children need a screen of 16 bits or more. A program without a screen can do
/// nothing.
Compositing SystemCompositing();
