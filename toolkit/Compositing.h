#pragma once

#include <QString>

#include <functional>

/// What the platform can do with see-through windows.
struct Compositing {
    bool windows = false; ///< windows of their own, laid over the screen
    bool children = false; ///< windows inside a form, which the program lays over each other itself
    bool themes = false; ///< windows have a theme that can change
    bool roundCorners = false; ///< the theme rounds the upper corners of windows
};

/// What a platform tells of itself.
struct PlatformFacts {
    QString name {}; ///< as Qt has it
    int bits = 0; ///< of a pixel of its screen; 0 without a screen
    bool hasManager = false; ///< something composes the windows on the screen
};
/// Windows need an X server with a compositing manager, because elsewhere a program cannot place them;
/// children need a screen that is seen, of 16 bits or more.
Compositing CompositingOf(const PlatformFacts& platform);

/// Asked at the start of a shadow and whenever the display changes.
using CompositingTest = std::function<Compositing()>;

/// What this platform can do now.
Compositing SystemCompositing();
