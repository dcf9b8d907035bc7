#pragma once

#include <QString>

class ApplicationState;

/// The last four characters of a name, lower case, trimmed after they were cut: ".avi", "mpeg".
QString VideoExtension(const QString& name);

/// Whether a name counts as one of a video. The four characters alone decide, with or without a point before
/// "mpeg".
bool IsVideoName(const QString& name);

/// Sets NotVideo to whether a name does not.
void TestVideoExtension(ApplicationState& state, const QString& name);

/// A path split at its last separator: the native one for files, only "\" for a web address, so that an
/// address with forward slashes keeps its whole text. The name is cut at its first NUL.
struct VideoPathParts {
    bool isSplit = false; ///< false without a separator: name and folder are empty then
    QString name;
    QString folder; ///< without the separator
};
VideoPathParts SplitVideoPath(const QString& path);

/// An address without what logs in at its host; a file's path as it is.
QString WithoutLogIn(const QString& address);
