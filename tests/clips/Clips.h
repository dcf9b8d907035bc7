#pragma once
#include <QString>
#include <vector>

/// One clip that tests/clips/catalogue.py describes.
struct Clip {
    QString Name;
    int Pictures = 0; ///< in the first video; 0 when the file must not open as a video
    std::vector<int>
        Numbers; ///< one a picture, in display order; -1 where anything may stand; empty without bar code
    std::vector<int> Tags; ///< in the order in which they appear
    QString Property;
};

/// The absolute path of a clip in the build folder.
QString ClipPath(const QString& name);

/// All clips of the manifest; throws std::runtime_error when it is not there.
std::vector<Clip> AllClips();

/// The clip of that name; throws std::runtime_error when the manifest has none.
Clip ClipNamed(const QString& name);

/// "0-2,?2,9" as 0, 1, 2, -1, -1, 9.
std::vector<int> ExpandNumbers(const QString& ranges);
