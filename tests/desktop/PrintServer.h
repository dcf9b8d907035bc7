#pragma once

#include <QList>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

/// A variable of the environment, until the end of the scope.
class Variable {
public:
    Variable(const char* name, const QByteArray& value);
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable();

private:
    const char* name_;
    bool wasSet_;
    QByteArray before_;
};

/// A print server of the test's own, whose printers write what they get into files. This user's printers are
/// its printers, and his default is kept in its folder, until its end.
class PrintServer {
public:
    struct Queue {
        const char* name;
        bool isDefault = false;
        bool isStopped = false;
        bool takesJobs = true;
        /// Knows A4 and A5, margins of one, two, three and four quarters of an inch (left, right, above and
        /// below), colours and resolutions; without, it tells nothing of itself, and what it prints is not
        /// kept.
        bool hasSheets = false;
    };

    /// The attributes of a job, as text.
    using Job = QMap<QString, QString>;

    /// Where it cannot run, Trouble says why.
    explicit PrintServer(const QList<Queue>& queues);
    ~PrintServer();
    QString Trouble() const { return trouble_; }

    /// What the user has chosen for all his jobs, as a line of his file of such choices.
    void Choose(const QByteArray& line) const;
    /// All jobs that it ever took, in their order.
    QList<Job> Jobs() const;
    /// Waits until a printer has got its last job whole; what it got, empty when that never happens.
    QByteArray Printed(const char* queue) const;

    /// It stays, and says nothing more.
    void Freeze();
    void Thaw();
    void Kill();

private:
    QList<Job> Ask(int operation, const QString& about) const;
    QString Start(const QList<Queue>& queues);
    void Configure(const QList<Queue>& queues) const;
    QString Path(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
    Variable address_ { "CUPS_SERVER", Path(QStringLiteral("state/socket")).toUtf8() };
    Variable rootsDefault_ { "CUPS_SERVERROOT", Path(QStringLiteral("client")).toUtf8() };
    Variable anybodysDefault_ { "HOME", Path(QStringLiteral("client")).toUtf8() };
    QProcess server_;
    QString trouble_;
};
