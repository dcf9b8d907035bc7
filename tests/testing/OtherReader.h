#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>

/// Puts a shell script where the program that reads pictures stands, or nothing at all, until the end of the
/// scope. Only for tests that stand in a folder of their own.
class OtherReader {
public:
    explicit OtherReader(const QByteArray& script)
        : isMoved_(QFile::rename(Place(), Aside()))
    {
        if (!isMoved_ || script.isEmpty())
            return;
        QFile file(Place());
        isThere_ = file.open(QIODevice::WriteOnly | QIODevice::NewOnly)
            && file.write("#!/bin/sh\n" + script) > 0
            && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ~OtherReader()
    {
        if (!isMoved_)
            return;
        QFile::remove(Place());
        QFile::rename(Aside(), Place());
    }
    OtherReader(const OtherReader&) = delete;
    OtherReader& operator=(const OtherReader&) = delete;

    /// Whether the script stands there.
    bool IsThere() const { return isThere_; }
    /// Whether the program itself is gone from there.
    bool HasMoved() const { return isMoved_; }

    /// A line of a script that goes on once this file is there.
    static QByteArray WaitFor(const QString& path)
    {
        return "until [ -e '" + path.toUtf8() + "' ]; do :; done\n";
    }
    /// The line of a script that goes on as the program itself.
    static QByteArray TheProgramItself() { return "exec \"$0.aside\" \"$@\"\n"; }

private:
    static QString Place() { return QCoreApplication::applicationDirPath() + QStringLiteral("/taq-reader"); }
    static QString Aside() { return Place() + QStringLiteral(".aside"); }
    bool isMoved_;
    bool isThere_ = false;
};
