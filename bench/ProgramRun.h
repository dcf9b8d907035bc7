#pragma once

#include <QString>

#include <functional>

/// Every so many frames of a video written as bitmap files by the automatic capture of the real program, its
/// frame on the screen: into folder, which also serves as the program's own. look is called between two
/// events. Needs the QApplication.
void WriteByProgram(
    const QString& clip, int stride, const QString& folder, const std::function<void()>& look = [] {});
