#include "app/ProgramFolders.h"

#include "app/ApplicationState.h"
#include "tests/testing/Files.h"
#include "tests/testing/OrdinaryUser.h"

#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

class ProgramFoldersTest : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString program = Made("prefix/bin");
    const QString data = folder.filePath(QStringLiteral("home/.local/share"));
    const QString home = data + QStringLiteral("/TAQ Video Capture Pro");

    QString Made(const char* name)
    {
        const QString path = folder.filePath(QLatin1String(name));
        QDir().mkpath(path);
        return path;
    }
    ProgramFolders Folders() const { return { program, data }; }
    static QStringList FoldersIn(const QString& path)
    {
        return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    }
    /// Nobody may write there until the end of the test, once nobody is root.
    class Sealed {
    public:
        explicit Sealed(const QString& path)
            : path_(path)
        {
            QFile::setPermissions(
                path_, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        }
        ~Sealed() { QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); }

    private:
        QString path_;
    };
};

const QStringList CaptureFolders { "AutoFrame", "AutoSave", "Help", "WallPaper" };

} // namespace

TEST_F(ProgramFoldersTest, AProgramInAFolderOfItsOwnKeepsEverythingBesideItself)
{
    EXPECT_TRUE(Folders().IsHomeBeside());
    EXPECT_EQ(Folders().Home(), program);
    EXPECT_FALSE(Folders().Make()) << "nothing to tell";
    EXPECT_EQ(FoldersIn(program), CaptureFolders);
    EXPECT_FALSE(QFile::exists(data));
}

TEST_F(ProgramFoldersTest, WhereItMayNotWriteItKeepsThemInTheUsersDataAndTellsItOnce)
{
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
    const Sealed sealed(program);
    Made("home");
    QFile::setPermissions(folder.filePath(QStringLiteral("home")), QFile::Permissions(0x7777));
    const OrdinaryUser user;
    EXPECT_FALSE(Folders().IsHomeBeside());
    EXPECT_EQ(Folders().Home(), home);
    EXPECT_TRUE(Folders().Make());
    EXPECT_EQ(FoldersIn(home), CaptureFolders);
    EXPECT_FALSE(Folders().Make()) << "the second start is silent";
}

TEST_F(ProgramFoldersTest, AmongTheSystemsProgramsItKeepsThemInTheUsersDataAlsoForTheAdministrator)
{
    Made("prefix/share/taq-video-capture-pro");
    EXPECT_EQ(Folders().Home(), home);
    EXPECT_TRUE(Folders().Make());
    EXPECT_TRUE(FoldersIn(program).isEmpty());
    EXPECT_EQ(FoldersIn(home), CaptureFolders);
}

TEST_F(ProgramFoldersTest, AHomeThatCannotBeMadeIsPassedOver)
{
    Made("prefix/share/taq-video-capture-pro");
    MakeFile(folder.filePath(QStringLiteral("home")), "in the way");
    EXPECT_FALSE(Folders().Make());
}

TEST_F(ProgramFoldersTest, TheGuideIsFoundBesideTheProgramOrInTheSharedFolderOfItsInstallation)
{
    const QString beside = program + QStringLiteral("/Help/TAQ.HLP");
    EXPECT_EQ(Folders().Guide(), beside) << "also when it is missing";
    const QString shared = Made("prefix/share/taq-video-capture-pro/Help") + QStringLiteral("/TAQ.HLP");
    MakeFile(shared, "guide");
    EXPECT_EQ(Folders().Guide(), shared);
    Made("prefix/bin/Help");
    MakeFile(beside, "guide");
    EXPECT_EQ(Folders().Guide(), beside);
}

TEST_F(ProgramFoldersTest, TheStateTakesItsFoldersAndTheDefaultsOfItsSettingsFromThere)
{
    Made("prefix/share/taq-video-capture-pro");
    QWidget frame;
    ApplicationState state(program, folder.filePath(QStringLiteral("settings")), data);
    state.LoadApplicationState(frame);
    EXPECT_TRUE(state.IsHomeNew);
    EXPECT_EQ(state.Beside(QStringLiteral("AutoFrame")), home + QStringLiteral("/AutoFrame"));
    EXPECT_EQ(state.OldFolder, home + QStringLiteral("/AutoSave"));
    EXPECT_TRUE(QFile::exists(home + QStringLiteral("/AutoSave")));
    ApplicationState second(program, folder.filePath(QStringLiteral("settings")), data);
    second.LoadApplicationState(frame);
    EXPECT_FALSE(second.IsHomeNew);
}
