#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// The one message box of the program, modal over owner.
class ErrorBox {
public:
    virtual ~ErrorBox() = default;
    virtual void Show(QWidget* owner, const QString& title, const QString& message) = 0;
    /// The same with the check box that silences further errors of the player; nothing when they are
    /// silenced.
    virtual void ShowPlayerError(QWidget* owner, const QString& title, const QString& message) = 0;
};

/// The file dialogs. Filters are in the form "name|pattern;pattern|name|pattern".
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// The chosen path, empty on cancel; asks before an existing file is replaced. Leaves the process's
    /// current folder at the chosen folder.
    virtual QString AskSaveName(
        QWidget* owner, const QString& title, const QString& filter, const QString& folder) = 0;
    /// Whether a file may be replaced that the user has not named himself; asked of a name that was
    /// completed.
    virtual bool ConfirmReplace(QWidget* owner, const QString& path) = 0;
    /// The one path chosen to be opened, empty on cancel; a name without an extension gets this one. It
    /// begins in a folder, or with a file, which is put forward.
    virtual QString AskOpenName(QWidget* owner, const QString& title, const QString& filter,
        const QString& start, const QString& extension) = 0;
    /// The result buffer of a multiple selection: one full path, or folder NUL name NUL name NUL; empty on
    /// cancel. Leaves the process's current folder at the chosen folder.
    virtual QString AskOpenNames(
        QWidget* owner, const QString& title, const QString& filter, const QString& folder) = 0;
    /// The one folder chosen, beginning at this one; empty on cancel. The current folder stays.
    virtual QString AskFolder(QWidget* owner, const QString& heading, const QString& folder) = 0;
};

/// Asks for a colour, beginning with start; an invalid colour on cancel.
using AskColor = std::function<QColor(QWidget* owner, const QString& title, const QColor& start)>;
