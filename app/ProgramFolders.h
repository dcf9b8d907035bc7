#pragma once

#include <QString>

/// Where the program finds what came with it, and where it keeps what it makes. Alone in a folder of its own
/// it has all of it beside itself. Where it may not write, or stands among other programs in a "bin", what it
/// makes goes to the user's own data.
class ProgramFolders {
public:
    /// applicationFolder is the folder of the executable, dataFolder the user's own for the data of all
    /// programs; both without a separator at their end.
    ProgramFolders(const QString& applicationFolder, const QString& dataFolder);

    /// What the folders of captures stand in.
    QString Home() const { return home_; }
    bool IsHomeBeside() const { return isBeside_; }
    /// The user's guide; a path also where there is none.
    QString Guide() const;
    /// The user's folder for pictures behind the windows of his desktop, which need not be there.
    QString Backgrounds() const;

    /// Makes the folders of captures where they are missing. True when the home was missing too, which is not
    /// beside the program: the user should hear of it.
    bool Make() const;

private:
    QString applicationFolder_;
    QString dataFolder_;
    bool isBeside_;
    QString home_;
};
