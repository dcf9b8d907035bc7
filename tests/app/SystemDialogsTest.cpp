#include "app/SystemDialogs.h"

#include "tests/testing/Files.h"
#include "tests/testing/RunningDialog.h"

#include <QColorDialog>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

const QString Title = QStringLiteral("Open Videos To Capture");
const QString Filter = QStringLiteral("AVI Files (*.avi)|*.avi|All Files (*.*)|*.*");

class SystemDialogsTest : public testing::Test {
protected:
    SystemDialogsTest()
        : before_(QDir::currentPath())
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        for (const char* name : { "a.avi", "b.avi" })
            EXPECT_TRUE(MakeFile(Path(name), "video"));
    }
    ~SystemDialogsTest() override { QDir::setCurrent(before_); }

    QString Folder() const { return QDir(folder_.path()).canonicalPath(); }
    QString Path(const char* name) const { return Folder() + u'/' + QString::fromLatin1(name); }

    void ExpectAsked(const QFileDialog& dialog)
    {
        EXPECT_EQ(dialog.windowTitle(), Title);
        EXPECT_EQ(dialog.parentWidget(), &owner_);
        EXPECT_EQ(dialog.directory().canonicalPath(), Folder());
        EXPECT_EQ(dialog.nameFilters(),
            QStringList({ QStringLiteral("AVI Files (*.avi) (*.avi *.AVI)"),
                QStringLiteral("All Files (*.*) (*)") }));
    }
    /// The answer when the user does this with the question, which says what it is about.
    bool Confirmed(const std::function<void(QMessageBox&)>& act)
    {
        WhenOpen<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.parentWidget(), &owner_);
            EXPECT_TRUE(box.text().startsWith(Path("a.avi")));
            act(box);
        });
        return dialogs_.ConfirmReplace(&owner_, Path("a.avi"));
    }

    QTemporaryDir folder_;
    QWidget owner_;
    SystemDialogs dialogs_;
    QString before_;
};

TEST_F(SystemDialogsTest, SeveralNamesMayBeOpened)
{
    WhenOpen([this](QFileDialog& dialog) {
        ExpectAsked(dialog);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        Type(dialog, QStringLiteral("\"a.avi\" \"b.avi\""));
    });
    const QChar nul;
    EXPECT_EQ(dialogs_.AskOpenNames(&owner_, Title, Filter, Folder()),
        Folder() + nul + "a.avi" + nul + "b.avi" + nul + nul);
    EXPECT_EQ(QDir::currentPath(), Folder());
}

TEST_F(SystemDialogsTest, OneNameIsOpened)
{
    WhenOpen([this](QFileDialog& dialog) {
        ExpectAsked(dialog);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_NE(dialog.fileMode(), QFileDialog::ExistingFiles);
        EXPECT_EQ(dialog.defaultSuffix(), QStringLiteral("jpg"));
        Type(dialog, QStringLiteral("a.avi"));
    });
    EXPECT_EQ(dialogs_.AskOpenName(&owner_, Title, Filter, Folder(), QStringLiteral("jpg")), Path("a.avi"));
    WhenOpen(Cancel);
    EXPECT_EQ(dialogs_.AskOpenName(&owner_, Title, Filter, Folder(), QStringLiteral("jpg")), QString());
}

TEST_F(SystemDialogsTest, AFileToBeginWithIsPutForwardAndOneThatHasGoneLeavesItsFolder)
{
    for (const char* name : { "a.avi", "gone.avi" }) {
        const QStringList forward(QFileInfo::exists(Path(name)) ? QStringList(Path(name)) : QStringList());
        WhenOpen([this, forward](QFileDialog& dialog) {
            ExpectAsked(dialog);
            EXPECT_EQ(dialog.selectedFiles(), forward);
            dialog.reject();
        });
        dialogs_.AskOpenName(&owner_, Title, Filter, Path(name), QStringLiteral("jpg"));
    }
}

TEST_F(SystemDialogsTest, OneNameIsSaved)
{
    WhenOpen([this](QFileDialog& dialog) {
        ExpectAsked(dialog);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        Type(dialog, QStringLiteral("new.bmp"));
    });
    EXPECT_EQ(dialogs_.AskSaveName(&owner_, Title, Filter, Folder()), Path("new.bmp"));
    EXPECT_EQ(QDir::currentPath(), Folder());
}

TEST_F(SystemDialogsTest, AFolderIsAskedForFromTheOneItBeginsWithAndTheCurrentOneStays)
{
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("captures")));
    const QString current = QDir::currentPath();
    const QString heading = QStringLiteral("Current: ") + Folder();
    WhenOpen([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), heading);
        EXPECT_EQ(dialog.parentWidget(), &owner_);
        EXPECT_EQ(dialog.directory().canonicalPath(), Folder());
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        Type(dialog, Path("captures"));
    });
    EXPECT_EQ(dialogs_.AskFolder(&owner_, heading, Folder()), Path("captures"));
    EXPECT_EQ(QDir::currentPath(), current);
}

TEST_F(SystemDialogsTest, CancelIsAnEmptyAnswer)
{
    WhenOpen(Cancel);
    EXPECT_EQ(dialogs_.AskOpenNames(&owner_, Title, Filter, Folder()), QString());
    WhenOpen(Cancel);
    EXPECT_EQ(dialogs_.AskSaveName(&owner_, Title, Filter, Folder()), QString());
    WhenOpen(Cancel);
    EXPECT_EQ(dialogs_.AskFolder(&owner_, Title, Folder()), QString());
}

TEST_F(SystemDialogsTest, AFileIsNotReplacedByAHastyReturn)
{
    const auto hastyReturn = [](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        box.defaultButton()->click();
    };
    EXPECT_FALSE(Confirmed(hastyReturn));
    EXPECT_FALSE(Confirmed([](QMessageBox& box) { box.reject(); }));
    EXPECT_TRUE(Confirmed([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }));
}

TEST_F(SystemDialogsTest, AColourIsAskedForFromTheOneItBeginsWith)
{
    WhenOpen<QColorDialog>([this](QColorDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &owner_);
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Shadow Color"));
        EXPECT_EQ(dialog.currentColor(), QColor(Qt::red));
        dialog.setCurrentColor(Qt::green);
        dialog.accept();
    });
    EXPECT_EQ(AskSystemColor(&owner_, QStringLiteral("Shadow Color"), Qt::red), QColor(Qt::green));
    WhenOpen<QColorDialog>([](QColorDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(AskSystemColor(&owner_, QStringLiteral("Shadow Color"), Qt::red).isValid());
}

} // namespace
