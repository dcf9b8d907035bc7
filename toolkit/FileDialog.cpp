#include "toolkit/FileDialog.h"

#include "toolkit/PathText.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

#include <algorithm>

namespace {

constexpr QChar Nul;

QString UpToNul(const QString& text)
{
    return text.left(text.indexOf(Nul));
}

struct Question {
    QWidget* owner = nullptr;
    QString title;
    QString folder;
    QString name;
    QString filter;
    int filterIndex = 1;
    QString defaultExtension;
    QFileDialog::AcceptMode accept = QFileDialog::AcceptOpen;
    QFileDialog::FileMode mode = QFileDialog::ExistingFile;
};

struct Answer {
    QStringList paths;
    int filterIndex = 1;
};

void Prepare(QFileDialog& dialog, const Question& question, const QStringList& filters)
{
    dialog.setAcceptMode(question.accept);
    dialog.setFileMode(question.mode);
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the names say it themselves
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(question.filterIndex - 1, filters.value(0)));
    dialog.setDefaultSuffix(question.defaultExtension);
    if (const QString name = UpToNul(question.name); !name.isEmpty())
        dialog.selectFile(name);
}

/// The number of a filter, from 1 on; Qt's own dialog tells it by the name shown, a desktop's by the whole.
int NumberOf(const QString& chosen, const QStringList& filters)
{
    const auto isChosen = [&chosen](const QString& filter) {
        return filter == chosen || filter.left(filter.lastIndexOf(QLatin1Char('('))).trimmed() == chosen;
    };
    const auto found = std::find_if(filters.begin(), filters.end(), isChosen);
    return found == filters.end() ? 0 : static_cast<int>(found - filters.begin()) + 1;
}

// The owner may close while the dialog runs and takes the dialog with it: that is a cancel.
Answer Ask(const Question& question)
{
    const bool folderStands = !question.folder.isEmpty() && QDir(question.folder).exists();
    const QPointer<QFileDialog> dialog =
        new QFileDialog(question.owner, question.title, folderStands ? question.folder : QDir::currentPath());
    const QStringList filters = NameFilters(question.filter);
    Prepare(*dialog, question, filters);
    const int result = dialog->exec();
    if (!dialog)
        return {};
    Answer answer;
    if (result == QDialog::Accepted) {
        answer.paths = dialog->selectedFiles();
        answer.filterIndex = NumberOf(dialog->selectedNameFilter().trimmed(), filters);
    }
    delete dialog;
    return answer;
}

/// False when the owner closed meanwhile and took the message with it.
bool TellMissingFolder(const Question& question, const QString& folder)
{
    const QPointer<QMessageBox> box = new QMessageBox(QMessageBox::Warning, question.title,
        QStringLiteral("There is no folder %1.").arg(QDir::toNativeSeparators(folder)), QMessageBox::Ok,
        question.owner);
    box->exec();
    const bool ownerStands = !box.isNull();
    delete box;
    return ownerStands;
}

/// Asks until the folder of the chosen path is there; what was typed is put forward again.
Answer AskInFolder(Question question)
{
    for (;;) {
        Answer answer = Ask(question);
        if (answer.paths.isEmpty())
            return {};
        const QFileInfo chosen(answer.paths.first());
        if (QFileInfo(chosen.absolutePath()).isDir())
            return answer;
        if (!TellMissingFolder(question, chosen.absolutePath()))
            return {};
        question.name = chosen.fileName();
        question.filterIndex = answer.filterIndex;
    }
}

/// The names of the first one's folder: a result has room for one folder only, and a name of another would
/// lead to the wrong file.
QStringList OfOneFolder(const QStringList& paths)
{
    QStringList kept;
    for (const QString& path : paths)
        if (QFileInfo(path).absolutePath() == QFileInfo(paths.first()).absolutePath())
            kept << path;
    return kept;
}

QString ResultBuffer(const QStringList& paths)
{
    if (paths.size() == 1)
        return QDir::toNativeSeparators(paths.first());
    QString buffer = QDir::toNativeSeparators(QFileInfo(paths.first()).absolutePath()) + Nul;
    for (const QString& path : paths)
        buffer += QFileInfo(path).fileName() + Nul;
    return buffer + Nul;
}

/// Cameras write "A.AVI", and some desktops' own dialogs tell capitals from small letters. "*.*" means every
/// file, with or without a point in its name.
QStringList InBothCases(const QString& patterns)
{
    QStringList both;
    for (const QString& part : patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString pattern = part.trimmed();
        if (pattern == QLatin1String("*.*"))
            both << QStringLiteral("*");
        else
            both << pattern.toLower() << pattern.toUpper();
    }
    both.removeDuplicates();
    return both;
}

QString ToNulSeparated(const QString& filter)
{
    QString separated = filter;
    for (QChar& character : separated) {
        if (character == QLatin1Char(':') || character == QLatin1Char('|'))
            character = Nul;
    }
    return separated;
}

} // namespace

DialogCancelled::DialogCancelled()
    : std::runtime_error("Cancel was selected.")
{
}

void cFileDialog::SetFilter(const QString& filter)
{
    filter_ = ToNulSeparated(filter);
}

void cFileDialog::ShowOpen()
{
    const bool several = flags & AllowMultiselect;
    if (several)
        flags |= Explorer;
    Question question { hWnd, DialogTitle, InitDir, Filename, filter_, FilterIndex, DefaultExt };
    // Several names are always of files that are there. One that does not exist is of use to a caller only
    // who takes one name and did not ask for existing ones.
    question.mode = several     ? QFileDialog::ExistingFiles
        : flags & FileMustExist ? QFileDialog::ExistingFile
                                : QFileDialog::AnyFile;
    const Answer answer = Ask(question);
    Filename.clear();
    FileTitle.clear();
    const QStringList paths = OfOneFolder(answer.paths);
    // Callers look for the names in the current folder: one that cannot be entered gives no result.
    if (paths.isEmpty() || !QDir::setCurrent(QFileInfo(paths.first()).absolutePath())) {
        if (CancelError)
            throw DialogCancelled();
        return;
    }
    Filename = ResultBuffer(paths);
    FilterIndex = answer.filterIndex;
    if (paths.size() == 1)
        FileTitle = QFileInfo(paths.first()).fileName();
}

// A NUL-separated filter is read in pairs, a name and its patterns. Since the colon separates as well, no
// name and no pattern can hold one: with it the pairs would shift. Patterns of one name stand between ";",
// and between blanks for Qt, which takes the last brackets for the patterns.
QStringList NameFilters(const QString& filter)
{
    QStringList filters;
    const QStringList parts = filter.split(Nul);
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << QStringLiteral("%1 (%2)").arg(parts[i], InBothCases(parts[i + 1]).join(QLatin1Char(' ')));
    return filters;
}

QString AskFileName(QWidget* owner, FileMode mode, const QString& title, const QString& fileName,
    const QString& filter, const QString& startFolder, const QString& defaultExtension, QString& chosenFolder)
{
    Question question { owner, title, startFolder, fileName, ToNulSeparated(filter), 1, defaultExtension };
    if (mode != FileMode::Open) {
        question.accept = QFileDialog::AcceptSave;
        question.mode = QFileDialog::AnyFile;
    }
    const Answer answer = mode == FileMode::Open ? Ask(question) : AskInFolder(question);
    if (answer.paths.isEmpty())
        return {};
    QString path = UpToNul(QDir::toNativeSeparators(answer.paths.first()));
    chosenFolder = path.left(PathText::LastSeparator(path) + 1);
    if (mode != FileMode::Open)
        QDir::setCurrent(chosenFolder); // where the next name is asked for
    return path;
}
