#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

/// What a program of the desktop said.
struct ToolAnswer {
    QString output; ///< its standard output, trimmed
    QString fault; ///< why it failed, as a sentence; empty when it went well
    bool IsGood() const { return fault.isEmpty(); }
};

/// Whether a program of this name can be started.
bool HasTool(const QString& program);
/// Runs a program without waiting. then is called from the event loop when it has ended, could not be started
/// or took more than ten seconds; no more when owner is gone, which ends the program.
void RunTool(QObject& owner, const QString& program, const QStringList& arguments,
    std::function<void(const ToolAnswer& answer)> then);
