#pragma once

#include <QString>

/// The clips of bench/make_clips.sh, each with its number as a bar code in every picture.
namespace BenchClips {

/// Pictures in each of the plain clips.
inline constexpr int Frames = 500;

/// The path of a clip in the folder that TAQ_BENCH_CLIPS names; a clip that is missing ends the program with
/// a word.
QString PathOf(const char* name);

} // namespace BenchClips
