#pragma once

#include <QString>

/// Where a capture goes and who names it.
struct SaveTarget {
    enum class Naming { Automatic, Asked };
    enum class Folder {
        Chosen, ///< "OldFolder", the folder chosen for captures
        AutoSave, ///< the folder "AutoSave" beside the program
        Current, ///< the process's current folder
    };
    Naming naming;
    Folder folder;

    bool operator==(const SaveTarget&) const = default;
};

/// The target by the settings of these names.
SaveTarget TargetOf(bool specialFolder, bool autoSave, bool autoDir);

/// The name with the extension appended, unless its last four characters in lower case are the extension:
/// "shot.JPG" stays, "shot.png" becomes "shot.png.jpg".
QString WithExtension(const QString& name, const QString& extension);

/// The filter of the dialog that asks for a capture's name: all seven formats together, then each by itself.
QString SaveFilter();
