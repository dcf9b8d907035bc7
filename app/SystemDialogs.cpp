#include "app/SystemDialogs.h"

#include "desktop/FileName.h"
#include "toolkit/FileDialog.h"

#include <QMessageBox>

QString SystemDialogs::AskSaveName(
    QWidget* owner, const QString& title, const QString& filter, const QString& folder)
{
    QString chosenFolder;
    return AskFileName(owner, FileMode::Save, title, QString(), filter, folder, QString(), chosenFolder);
}

bool SystemDialogs::ConfirmReplace(QWidget* owner, const QString& path)
{
    const auto answer = QMessageBox::question(owner, QStringLiteral("Save"),
        FileName::Shown(path) + QStringLiteral("\nThis file already exists. Replace it?"),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return answer == QMessageBox::Yes;
}

QString SystemDialogs::AskOpenNames(
    QWidget* owner, const QString& title, const QString& filter, const QString& folder)
{
    cFileDialog dialog;
    dialog.DialogTitle = title;
    dialog.SetFilter(filter);
    dialog.InitDir = folder;
    dialog.flags = cFileDialog::LongNames | cFileDialog::OverwritePrompt | cFileDialog::HideReadOnly
        | cFileDialog::AllowMultiselect;
    dialog.hWnd = owner;
    dialog.CancelError = false;
    dialog.ShowOpen();
    return dialog.Filename;
}
