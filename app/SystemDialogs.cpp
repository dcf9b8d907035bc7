#include "app/SystemDialogs.h"

#include "desktop/FileName.h"
#include "toolkit/FileDialog.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

namespace {

constexpr int OpenFlags = cFileDialog::LongNames | cFileDialog::OverwritePrompt | cFileDialog::HideReadOnly
    | cFileDialog::AllowMultiselect;
static_assert(OpenFlags == 0x200206);

} // namespace

QString SystemDialogs::AskSaveName(
    QWidget* owner, const QString& title, const QString& filter, const QString& folder)
{
    QString chosenFolder;
    return AskFileName(owner, FileMode::Save, title, QString(), filter, folder, QString(), chosenFolder);
}

QString SystemDialogs::AskOpenName(QWidget* owner, const QString& title, const QString& filter,
    const QString& start, const QString& extension)
{
    const QFileInfo given(start);
    const bool isFolder = start.isEmpty() || given.isDir();
    QString chosenFolder;
    return AskFileName(owner, FileMode::Open, title, given.isFile() ? given.fileName() : QString(), filter,
        isFolder ? start : given.path(), extension, chosenFolder);
}

bool SystemDialogs::ConfirmReplace(QWidget* owner, const QString& path)
{
    // The owner may close while the question stands, and takes it along: that is a no.
    const QPointer<QMessageBox> question = new QMessageBox(QMessageBox::Question, QStringLiteral("Save"),
        FileName::Shown(path) + QStringLiteral("\nThis file already exists. Replace it?"),
        QMessageBox::Yes | QMessageBox::No, owner);
    question->setDefaultButton(QMessageBox::No);
    const int answer = question->exec();
    delete question;
    return answer == QMessageBox::Yes;
}

QString SystemDialogs::AskOpenNames(
    QWidget* owner, const QString& title, const QString& filter, const QString& folder)
{
    cFileDialog dialog;
    dialog.DialogTitle = title;
    dialog.SetFilter(filter);
    dialog.InitDir = folder;
    dialog.flags = OpenFlags;
    dialog.hWnd = owner;
    dialog.CancelError = false;
    dialog.ShowOpen();
    return dialog.Filename;
}

QString SystemDialogs::AskFolder(QWidget* owner, const QString& heading, const QString& folder)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(owner, heading, folder);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    const QString chosen = isChosen ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    return QDir::toNativeSeparators(chosen);
}

QColor AskSystemColor(QWidget* owner, const QString& title, const QColor& start)
{
    const QPointer<QColorDialog> dialog = new QColorDialog(start, owner);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setWindowTitle(title);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    const QColor chosen = isChosen ? dialog->selectedColor() : QColor();
    delete dialog;
    return chosen;
}
