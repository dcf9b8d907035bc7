#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

class QWidget;

/// The user closed the dialog without a choice, and the caller had asked to be told by CancelError.
class DialogCancelled : public std::runtime_error {
public:
    DialogCancelled();
};

/// The system's dialog for opening files, with the properties a form sets before and reads afterwards.
class cFileDialog {
public:
    /// Bits of flags. AllowMultiselect and FileMustExist act; Explorer is set by several names; the others
    /// are kept as they were given, for the desktop's dialog always does as they ask.
    enum Flag {
        OverwritePrompt = 0x2,
        HideReadOnly = 0x4,
        AllowMultiselect = 0x200,
        PathMustExist = 0x800,
        FileMustExist = 0x1000, ///< holds with AllowMultiselect in any case
        Explorer = 0x80000,
        LongNames = 0x200000,
    };

    /// A cancelled dialog throws DialogCancelled instead of giving an empty Filename.
    bool CancelError = false;
    /// Before: the name put forward. After: the path, or the buffer of a multiple selection
    /// (ParseMultiFileName), empty on cancel.
    QString Filename;
    /// After: the chosen name without its folder; empty after a selection of several.
    QString FileTitle;
    /// Counts from 1. Before: the filter put forward. After: the one in use at the choice.
    int FilterIndex = 1;
    /// Without a point; taken for a name typed without an extension.
    QString DefaultExt;
    QString DialogTitle;
    int flags = 0;
    /// The window the dialog belongs to.
    QWidget* hWnd = nullptr;
    /// Where the dialog opens; the current folder when empty.
    QString InitDir;

    /// Name, "|", pattern, "|" and so on; patterns of one name are separated by ";".
    void SetFilter(const QString& filter);
    /// The filter as the system takes it: every separator has become a NUL.
    QString Filter() const { return filter_; }

    /// Runs the dialog. A choice leaves the process's current folder at the chosen folder; when that cannot
    /// be entered it counts as a cancel. Of names from several folders those of the first one's are taken.
    void ShowOpen();

private:
    QString filter_;
};

/// Takes the result of a multiple selection apart: folder, NUL, and each name with a NUL after it, up to a
/// double NUL; or one path. Gives false and changes nothing when the buffer is blank. One path is split
/// behind its last separator; the folder of several names has no closing separator.
bool ParseMultiFileName(const QString& buffer, QString& folder, QStringList& files, int& count);

/// The filters of QFileDialog for a NUL-separated filter: each name as it stands, then its patterns in small
/// letters and in capitals.
QStringList NameFilters(const QString& filter);

enum class FileMode { Open = 1, Save = 2 };

/// One path, for forms that need no properties; empty on cancel. Save asks again until the folder of the path
/// is there, and makes it the current folder. chosenFolder takes the path's folder with its closing separator
/// and stays as it was on cancel.
QString AskFileName(QWidget* owner, FileMode mode, const QString& title, const QString& fileName,
    const QString& filter, const QString& startFolder, const QString& defaultExtension,
    QString& chosenFolder);
