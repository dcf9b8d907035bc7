#include "toolkit/FileDialog.h"

#include "tests/testing/RunningDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A folder with three files, apart from the current folder, which comes back at the end.
struct Folder {
    Folder()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QDir(folder.path()).mkdir(QStringLiteral("sea"));
        for (const char* name : { "a.avi", "b.avi", "c.txt" }) {
            QFile file(Path(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    ~Folder() { QDir::setCurrent(before); }
    QString Sea() const { return QDir(folder.filePath(QStringLiteral("sea"))).canonicalPath(); }
    QString Path(const char* name) const { return Sea() + QLatin1Char('/') + QLatin1String(name); }

    QTemporaryDir folder;
    QString before = QDir::currentPath();
};

cFileDialog VideoDialog(const Folder& folder)
{
    cFileDialog dialog;
    dialog.DialogTitle = QStringLiteral("Open Videos To Capture");
    dialog.SetFilter(QStringLiteral("AVI Files (*.avi)|*.avi|All Files (*.*)|*.*"));
    dialog.InitDir = folder.Sea();
    dialog.flags = cFileDialog::LongNames | cFileDialog::HideReadOnly | cFileDialog::OverwritePrompt;
    return dialog;
}

QString Nul()
{
    return QString(QChar());
}

} // namespace

TEST(cFileDialog, TheBitsAreThoseThatCallersKnow)
{
    EXPECT_EQ(cFileDialog::OverwritePrompt, 0x2);
    EXPECT_EQ(cFileDialog::HideReadOnly, 0x4);
    EXPECT_EQ(cFileDialog::AllowMultiselect, 0x200);
    EXPECT_EQ(cFileDialog::PathMustExist, 0x800);
    EXPECT_EQ(cFileDialog::FileMustExist, 0x1000);
    EXPECT_EQ(cFileDialog::Explorer, 0x80000);
    EXPECT_EQ(cFileDialog::LongNames, 0x200000);
}

TEST(cFileDialog, SeveralFilesGiveFolderAndNamesWithANulAfterEach)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.flags |= cFileDialog::AllowMultiselect;
    WhenOpen([](QFileDialog& open) { Type(open, QStringLiteral("\"a.avi\" \"b.avi\"")); });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, folder.Sea() + Nul() + "a.avi" + Nul() + "b.avi" + Nul() + Nul());
    EXPECT_TRUE(dialog.flags & cFileDialog::Explorer);
    QString chosen;
    QStringList files;
    int count = 0;
    EXPECT_TRUE(ParseMultiFileName(dialog.Filename, chosen, files, count));
    EXPECT_EQ(chosen, folder.Sea());
    EXPECT_EQ(files, QStringList({ "a.avi", "b.avi" }));
}

TEST(cFileDialog, OfNamesFromTwoFoldersThoseOfTheFirstAreTaken)
{
    const Folder folder;
    QFile other(folder.folder.filePath(QStringLiteral("d.avi")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    cFileDialog dialog = VideoDialog(folder);
    dialog.flags |= cFileDialog::AllowMultiselect;
    WhenOpen([&](QFileDialog& open) {
        Type(open, QStringLiteral("\"%1\" \"%2\"").arg(folder.Path("a.avi"), other.fileName()));
    });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, folder.Path("a.avi"));
    EXPECT_EQ(dialog.FileTitle, QStringLiteral("a.avi"));
}

TEST(cFileDialog, AFolderThatCannotBeEnteredGivesNoResult)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.Filename = QStringLiteral("before");
    WhenOpen([&](QFileDialog& open) {
        // The folder goes between the choice and its end.
        QObject::connect(
            &open, &QFileDialog::accepted, &open, [&] { QDir(folder.Sea()).removeRecursively(); });
        Type(open, QStringLiteral("a.avi"));
    });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, QString());
    EXPECT_EQ(dialog.FileTitle, QString());
    EXPECT_EQ(QDir::currentPath(), folder.before);
}

TEST(cFileDialog, AMultiSelectionWithOneFileIsAPlainPath)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.flags |= cFileDialog::AllowMultiselect;
    WhenOpen([](QFileDialog& open) { Type(open, QStringLiteral("b.avi")); });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, folder.Path("b.avi"));
    EXPECT_EQ(dialog.FileTitle, QStringLiteral("b.avi"));
}

TEST(cFileDialog, WithoutTheMultiSelectBitOneFileIsChosen)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.flags |= cFileDialog::FileMustExist;
    WhenOpen([](QFileDialog& open) {
        EXPECT_EQ(open.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(open.windowTitle(), QStringLiteral("Open Videos To Capture"));
        Type(open, QStringLiteral("a.avi"));
    });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, folder.Path("a.avi"));
    EXPECT_FALSE(dialog.flags & cFileDialog::Explorer);
}

TEST(cFileDialog, AChoiceLeavesTheCurrentFolderAtTheChosenFolder)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    WhenOpen([](QFileDialog& open) { Type(open, QStringLiteral("a.avi")); });
    dialog.ShowOpen();
    EXPECT_EQ(QDir::currentPath(), folder.Sea());
}

TEST(cFileDialog, CancelGivesAnEmptyResultAndLeavesTheCurrentFolder)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.Filename = QStringLiteral("a.avi");
    WhenOpen(Cancel);
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, QString());
    EXPECT_EQ(dialog.FileTitle, QString());
    EXPECT_EQ(QDir::currentPath(), folder.before);
}

TEST(cFileDialog, CancelIsAnErrorWhenCancelErrorIsTrue)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.CancelError = true;
    WhenOpen(Cancel);
    EXPECT_THROW(dialog.ShowOpen(), DialogCancelled);
    EXPECT_EQ(dialog.Filename, QString());
}

TEST(cFileDialog, TheFiltersAreOfferedAndTheOneInUseIsTold)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    dialog.FilterIndex = 2;
    WhenOpen([](QFileDialog& open) {
        const QStringList filters = open.nameFilters();
        EXPECT_EQ(filters, QStringList({ "AVI Files (*.avi) (*.avi *.AVI)", "All Files (*.*) (*)" }));
        EXPECT_TRUE(filters.value(1).startsWith(open.selectedNameFilter()));
        open.selectNameFilter(filters.value(0));
        Type(open, QStringLiteral("a.avi"));
    });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FilterIndex, 1);
}

TEST(cFileDialog, TheUserReadsTheFiltersAsTheFormNamesThem)
{
    const Folder folder;
    cFileDialog dialog = VideoDialog(folder);
    WhenOpen([](QFileDialog& open) {
        const auto* kinds = open.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(kinds->itemText(0).trimmed(), QStringLiteral("AVI Files (*.avi)"));
        EXPECT_EQ(kinds->itemText(1).trimmed(), QStringLiteral("All Files (*.*)"));
        open.reject();
    });
    dialog.ShowOpen();
}

TEST(cFileDialog, TheDialogAsksForExistingFilesByTheBitOrWhenSeveralMayBeChosen)
{
    const Folder folder;
    for (const auto& [flags, mode] :
        { std::pair(0, QFileDialog::AnyFile), { cFileDialog::FileMustExist, QFileDialog::ExistingFile },
            { cFileDialog::AllowMultiselect, QFileDialog::ExistingFiles },
            { cFileDialog::AllowMultiselect | cFileDialog::FileMustExist, QFileDialog::ExistingFiles } }) {
        cFileDialog dialog = VideoDialog(folder);
        dialog.flags = flags;
        WhenOpen([mode](QFileDialog& open) {
            EXPECT_EQ(open.fileMode(), mode);
            open.reject();
        });
        dialog.ShowOpen();
    }
}

TEST(cFileDialog, AnInitDirThatIsGoneOpensTheCurrentFolder)
{
    const Folder folder;
    QDir::setCurrent(folder.Sea());
    cFileDialog dialog = VideoDialog(folder);
    dialog.InitDir = QStringLiteral("/no/such/folder");
    WhenOpen([&](QFileDialog& open) {
        EXPECT_EQ(open.directory().canonicalPath(), folder.Sea());
        open.reject();
    });
    dialog.ShowOpen();
}

TEST(cFileDialog, AnOwnerThatClosesMeanwhileIsACancel)
{
    const Folder folder;
    auto* owner = new QWidget;
    cFileDialog dialog = VideoDialog(folder);
    dialog.hWnd = owner;
    WhenOpen([owner](QFileDialog&) { delete owner; });
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, QString());
}

TEST(AskFileName, OpenGivesThePathAndItsFolderWithTheClosingSeparator)
{
    const Folder folder;
    QString chosen;
    WhenOpen([](QFileDialog& open) {
        EXPECT_EQ(open.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(open.fileMode(), QFileDialog::ExistingFile);
        Type(open, QStringLiteral("a.avi"));
    });
    const QString path = AskFileName(nullptr, FileMode::Open, QStringLiteral("Open"), QString(),
        QStringLiteral("AVI|*.avi"), folder.Sea(), QStringLiteral("avi"), chosen);
    EXPECT_EQ(path, folder.Path("a.avi"));
    EXPECT_EQ(chosen, folder.Sea() + QLatin1Char('/'));
}

TEST(AskFileName, SaveTakesTheDefaultExtensionForANameWithoutOne)
{
    const Folder folder;
    QString chosen;
    WhenOpen([](QFileDialog& open) {
        EXPECT_EQ(open.acceptMode(), QFileDialog::AcceptSave);
        Type(open, QStringLiteral("new"));
    });
    const QString path =
        AskFileName(nullptr, FileMode::Save, QStringLiteral("Save"), QStringLiteral("first.bmp"),
            QStringLiteral("Bitmap|*.bmp"), folder.Sea(), QStringLiteral("bmp"), chosen);
    EXPECT_EQ(path, folder.Path("new.bmp"));
    EXPECT_EQ(QDir::currentPath(), folder.Sea()) << "where the next name is asked for";
}

TEST(AskFileName, SaveAsksBeforeAFileIsReplaced)
{
    const Folder folder;
    QString chosen;
    bool asked = false;
    WhenOpen([&](QFileDialog& open) {
        WhenOpen<QMessageBox>([&](QMessageBox& box) {
            asked = true;
            box.button(QMessageBox::Yes)->click();
        });
        Type(open, QStringLiteral("a.avi"));
    });
    const QString path = AskFileName(nullptr, FileMode::Save, QStringLiteral("Save"), QString(),
        QStringLiteral("AVI|*.avi"), folder.Sea(), QString(), chosen);
    EXPECT_TRUE(asked);
    EXPECT_EQ(path, folder.Path("a.avi"));
}

TEST(AskFileName, SaveInsistsOnAFolderThatIsThere)
{
    const Folder folder;
    QString chosen;
    WhenOpen([&](QFileDialog& open) {
        WhenOpen<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("There is no folder %1.").arg(folder.Path("gone")));
            WhenOpen([](QFileDialog& again) {
                EXPECT_EQ(again.selectedFiles(), QStringList(again.directory().filePath("new.bmp")));
                Type(again, QStringLiteral("other"));
            });
            box.accept();
        });
        Type(open, folder.Path("gone/new.bmp"));
    });
    const QString path = AskFileName(nullptr, FileMode::Save, QStringLiteral("Save"), QString(),
        QStringLiteral("Bitmap|*.bmp"), folder.Sea(), QStringLiteral("bmp"), chosen);
    EXPECT_EQ(path, folder.Path("other.bmp"));
    EXPECT_EQ(chosen, folder.Sea() + QLatin1Char('/'));
}

TEST(AskFileName, AFileIsNoFolderToSaveIn)
{
    const Folder folder;
    QString chosen = QStringLiteral("before");
    WhenOpen([&](QFileDialog& open) {
        WhenOpen<QMessageBox>([](QMessageBox& box) {
            WhenOpen(Cancel);
            box.accept();
        });
        Type(open, folder.Path("a.avi/new.bmp"));
    });
    EXPECT_EQ(AskFileName(nullptr, FileMode::Save, QStringLiteral("Save"), QString(), QString(), folder.Sea(),
                  QString(), chosen),
        QString());
    EXPECT_EQ(chosen, QStringLiteral("before"));
}

TEST(AskFileName, AnOwnerThatClosesWhileItIsToldIsACancel)
{
    const Folder folder;
    QString chosen;
    auto* owner = new QWidget;
    WhenOpen([&](QFileDialog& open) {
        WhenOpen<QMessageBox>([owner](QMessageBox&) { delete owner; });
        Type(open, folder.Path("gone/new.bmp"));
    });
    EXPECT_EQ(AskFileName(owner, FileMode::Save, QStringLiteral("Save"), QString(), QString(), folder.Sea(),
                  QString(), chosen),
        QString());
}

TEST(AskFileName, CancelGivesAnEmptyPathAndLeavesTheFolder)
{
    const Folder folder;
    QString chosen = QStringLiteral("before");
    WhenOpen(Cancel);
    EXPECT_EQ(AskFileName(nullptr, FileMode::Open, QStringLiteral("Open"), QString(), QString(), folder.Sea(),
                  QString(), chosen),
        QString());
    EXPECT_EQ(chosen, QStringLiteral("before"));
}
