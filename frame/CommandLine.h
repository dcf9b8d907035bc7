#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>

/// What the program is started with. Files are full paths, texts of FileName.
struct CommandLine {
    enum class Wish { Open, Help, Version, Unknown };

    Wish wish = Wish::Open;
    QString unknown; ///< the option that is none, when that is the wish
    QStringList addresses; ///< of the web
    QStringList videos; ///< files whose names count as those of videos
    QStringList pictures; ///< files whose names are those of pictures that are saved here
    QStringList others; ///< files that the player may know by their content
};

/// Takes the arguments apart, raw bytes as the system gives them, without the program's own name. The first
/// option decides the wish; behind "--" nothing is an option.
CommandLine ReadCommandLine(const QByteArrayList& arguments);

/// How the program is started, as --help tells it.
QString CommandLineHelp();
