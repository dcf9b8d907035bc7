#include "app/CRegSettings.h"

#include "tests/testing/Files.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/SmallDisk.h"

#include <QCoreApplication>
#include <QDir>
#include <QLockFile>
#include <QTemporaryDir>

#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <vector>

namespace {

const QString Section = QStringLiteral("Options");
const QString Default = QStringLiteral("the default");

class CRegSettingsTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    CRegSettings settings_ = Opened(folder_.path());

    static CRegSettings Opened(const QString& folder)
    {
        CRegSettings settings(folder);
        settings.SetCompany(QStringLiteral("Company"));
        settings.SetAppName(QStringLiteral("Program"));
        return settings;
    }

    void WriteFile(const QByteArray& bytes)
    {
        QDir().mkpath(QFileInfo(settings_.FilePath()).path());
        ASSERT_TRUE(MakeFile(settings_.FilePath(), bytes));
    }
    QString Get(const QString& key) { return settings_.GetSetting(Section, key, Default); }
    bool Save(const QString& key, const QString& value) { return settings_.SaveSetting(Section, key, value); }
    QStringList Files() const { return QDir(QFileInfo(settings_.FilePath()).path()).entryList(QDir::Files); }
};

TEST_F(CRegSettingsTest, BlankNamesFallBackToTheirDefaults)
{
    CRegSettings settings(folder_.path());
    settings.SetCompany(QStringLiteral("  Maker "));
    settings.SetAppName(QStringLiteral("\tProduct"));
    EXPECT_EQ(settings.Company(), QStringLiteral("Maker"));
    EXPECT_EQ(settings.AppName(), QStringLiteral("Product"));
    settings.SetCompany(QStringLiteral("   "));
    settings.SetAppName(QStringLiteral("   "));
    EXPECT_EQ(settings.Company(), QStringLiteral("VB and VBA Program Settings"));
    EXPECT_EQ(settings.AppName(), QCoreApplication::applicationName());
}

TEST_F(CRegSettingsTest, AMissingBranchYieldsTheDefault)
{
    EXPECT_EQ(Get(QStringLiteral("Ext")), Default);
    EXPECT_EQ(settings_.LastStatus(), CRegSettings::NotFound);
    EXPECT_FALSE(QFileInfo::exists(settings_.FilePath()));
}

TEST_F(CRegSettingsTest, WhatIsSavedIsReadByAnotherObject)
{
    ASSERT_TRUE(Save(QStringLiteral("sFontText"), QStringLiteral(" two\nlines ")));
    EXPECT_EQ(settings_.LastStatus(), CRegSettings::Success);
    EXPECT_EQ(Opened(folder_.path()).GetSetting(Section, QStringLiteral("sFontText"), Default),
        QStringLiteral(" two\nlines "));
}

TEST_F(CRegSettingsTest, TheFileStandsUnderCompanyAndProgram)
{
    ASSERT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(FileBytes(folder_.filePath(QStringLiteral("Company/Program.conf"))), "[Options]\nExt=.jpg\n");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("Program.conf")));
}

TEST_F(CRegSettingsTest, AStoredValueOfSizeZeroYieldsTheDefault)
{
    ASSERT_TRUE(Save(QStringLiteral("OldDir"), QString()));
    EXPECT_EQ(Get(QStringLiteral("OldDir")), Default);
}

TEST_F(CRegSettingsTest, AValueOfOneCharacterComesBackWhole)
{
    for (const char* value : { "7", " ", "\"", "\\" }) {
        ASSERT_TRUE(Save(QStringLiteral("sFontText"), QString::fromLatin1(value)));
        EXPECT_EQ(Get(QStringLiteral("sFontText")), QString::fromLatin1(value));
    }
}

TEST_F(CRegSettingsTest, AStarStandsForTheUnnamedValue)
{
    ASSERT_TRUE(Save(QStringLiteral("*"), QStringLiteral("unnamed")));
    EXPECT_EQ(Get(QStringLiteral("*")), QStringLiteral("unnamed"));
    EXPECT_EQ(Get(QString()), QStringLiteral("unnamed"));
}

TEST_F(CRegSettingsTest, SeveralAreWrittenInTheirOrder)
{
    const std::vector<Setting> settings { { QStringLiteral("Ext"), QStringLiteral(".jpg") },
        { QStringLiteral("BW"), QStringLiteral("True") },
        { QStringLiteral("*"), QStringLiteral("unnamed") } };
    ASSERT_TRUE(settings_.SaveSettings(Section, settings));
    EXPECT_EQ(FileBytes(settings_.FilePath()), "[Options]\nExt=.jpg\nBW=True\n=unnamed\n");
}

TEST_F(CRegSettingsTest, NobodySeesSeveralHalfWritten)
{
    const auto save = [this](int round) {
        const QString value = QString::number(round);
        const Setting settings[] { { QStringLiteral("First"), value }, { QStringLiteral("Second"), value } };
        return settings_.SaveSettings(Section, settings);
    };
    ASSERT_TRUE(save(0));
    std::atomic<bool> isEnd = false;
    std::thread reader([path = settings_.FilePath(), &isEnd] {
        while (!isEnd) {
            const QList<QByteArray> lines = FileBytes(path).split('\n');
            ASSERT_EQ(lines.size(), 4);
            EXPECT_EQ(lines[1].split('=').last(), lines[2].split('=').last());
        }
    });
    for (int round = 1; round <= 200; ++round)
        EXPECT_TRUE(save(round));
    isEnd = true;
    reader.join();
}

TEST_F(CRegSettingsTest, SectionsAreApart)
{
    ASSERT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    ASSERT_TRUE(settings_.SaveSetting({}, QStringLiteral("Ext"), QStringLiteral(".png")));
    EXPECT_EQ(Get(QStringLiteral("Ext")), QStringLiteral(".jpg"));
    EXPECT_EQ(settings_.GetSetting({}, QStringLiteral("Ext"), Default), QStringLiteral(".png"));
    EXPECT_EQ(settings_.GetSetting(QStringLiteral("Other"), QStringLiteral("Ext"), Default), Default);
}

TEST_F(CRegSettingsTest, KeysOfANewerVersionAreKept)
{
    WriteFile("[Later]\nShape=round\n[Options]\nUnknown=1\n");
    ASSERT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(FileBytes(settings_.FilePath()), "[Later]\nShape=round\n[Options]\nUnknown=1\nExt=.jpg\n");
}

TEST_F(CRegSettingsTest, ADamagedFileGivesWhatItCanAndIsKeptOnceAsACopy)
{
    const QByteArray damaged("[Options]\nExt=.gif\nBW\xFF\x01garbage\n@Variant(junk\n");
    WriteFile(damaged);
    EXPECT_EQ(Get(QStringLiteral("Ext")), QStringLiteral(".gif"));
    EXPECT_EQ(Get(QStringLiteral("BW")), Default);
    EXPECT_EQ(FileBytes(settings_.FilePath()), damaged);
    ASSERT_TRUE(Save(QStringLiteral("BW"), QStringLiteral("True")));
    ASSERT_TRUE(Save(QStringLiteral("HighQ"), QStringLiteral("True")));
    EXPECT_EQ(FileBytes(settings_.FilePath()), "[Options]\nExt=.gif\nBW=True\nHighQ=True\n");
    EXPECT_EQ(FileBytes(settings_.FilePath() + QStringLiteral(".damaged")), damaged);
    EXPECT_EQ(Files().size(), 2);
}

TEST_F(CRegSettingsTest, EveryDamagedFileHasItsOwnCopy)
{
    WriteFile("first\n");
    ASSERT_TRUE(Save(QStringLiteral("BW"), QStringLiteral("True")));
    WriteFile("second\n");
    ASSERT_TRUE(Save(QStringLiteral("BW"), QStringLiteral("True")));
    EXPECT_EQ(FileBytes(settings_.FilePath() + QStringLiteral(".damaged")), "first\n");
    EXPECT_EQ(FileBytes(settings_.FilePath() + QStringLiteral(".damaged2")), "second\n");
}

TEST_F(CRegSettingsTest, AHugeFileIsNotReadButKept)
{
    WriteFile(QByteArray(3 * 1024 * 1024, 'x'));
    EXPECT_EQ(Get(QStringLiteral("Ext")), Default);
    ASSERT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(Get(QStringLiteral("Ext")), QStringLiteral(".jpg"));
    EXPECT_EQ(QFileInfo(settings_.FilePath() + QStringLiteral(".damaged")).size(), 3 * 1024 * 1024);
}

TEST_F(CRegSettingsTest, AnEmptyFileIsFilled)
{
    WriteFile({});
    EXPECT_EQ(Get(QStringLiteral("Ext")), Default);
    ASSERT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(Files(), QStringList(QStringLiteral("Program.conf")));
}

TEST_F(CRegSettingsTest, AFolderInTheFilesPlaceIsLeftAlone)
{
    QDir().mkpath(settings_.FilePath());
    EXPECT_EQ(Get(QStringLiteral("Ext")), Default);
    EXPECT_FALSE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_TRUE(QFileInfo(settings_.FilePath()).isDir());
}

TEST_F(CRegSettingsTest, AFileInTheFoldersPlaceMakesSavingFail)
{
    QFile file(folder_.filePath(QStringLiteral("Company")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(settings_.LastStatus(), CRegSettings::NotWritten);
    EXPECT_EQ(Get(QStringLiteral("Ext")), Default);
}

TEST_F(CRegSettingsTest, AReadOnlyFileStaysAsItIs)
{
    WriteFile("[Options]\nExt=.gif\n");
    QFile::setPermissions(settings_.FilePath(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(folder_.filePath(QStringLiteral("Company")), QFile::Permissions(0x7777));
    const OrdinaryUser ordinary;
    EXPECT_FALSE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(Get(QStringLiteral("Ext")), QStringLiteral(".gif"));
}

TEST_F(CRegSettingsTest, AReadOnlyFolderMakesSavingFailAtOnce)
{
    WriteFile("[Options]\nExt=.gif\n");
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(folder_.filePath(QStringLiteral("Company")), QFile::Permissions(0x5555));
    const OrdinaryUser ordinary;
    EXPECT_FALSE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_EQ(Get(QStringLiteral("Ext")), QStringLiteral(".gif"));
}

TEST_F(CRegSettingsTest, AFileThatMayNotBeReadIsNotReplaced)
{
    WriteFile("[Options]\nExt=.gif\n");
    QFile::setPermissions(settings_.FilePath(), {});
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(folder_.filePath(QStringLiteral("Company")), QFile::Permissions(0x7777));
    {
        const OrdinaryUser ordinary;
        EXPECT_EQ(Get(QStringLiteral("Ext")), Default);
        EXPECT_FALSE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    }
    EXPECT_EQ(FileBytes(settings_.FilePath()), "[Options]\nExt=.gif\n");
}

/// One that keeps a .jpg already.
class CRegSettingsOnASmallDisk : public CRegSettingsTest {
protected:
    void SetUp() override
    {
        if (!disk.IsThere())
            GTEST_SKIP() << "this machine lets no test mount a file system";
        ASSERT_TRUE(settings.SaveSetting(Section, QStringLiteral("Ext"), QStringLiteral(".jpg")));
    }

    SmallDisk disk { 64 };
    CRegSettings settings = Opened(disk.Path());
};

TEST_F(CRegSettingsOnASmallDisk, AFullDiskKeepsTheOldSettings)
{
    disk.Fill();
    EXPECT_FALSE(settings.SaveSetting(Section, QStringLiteral("Ext"), QStringLiteral(".png")));
    EXPECT_EQ(FileBytes(settings.FilePath()), "[Options]\nExt=.jpg\n");
}

TEST_F(CRegSettingsOnASmallDisk, OfSeveralThatDoNotFitNoneIsKept)
{
    disk.Fill();
    const Setting both[] { { QStringLiteral("Ext"), QStringLiteral(".png") },
        { QStringLiteral("sFontText"), QString(100'000, u'x') } };
    EXPECT_FALSE(settings.SaveSettings(Section, both));
    EXPECT_EQ(FileBytes(settings.FilePath()), "[Options]\nExt=.jpg\n");
}

TEST_F(CRegSettingsOnASmallDisk, AReadOnlyDiskKeepsTheOldSettings)
{
    disk.MakeReadOnly();
    EXPECT_FALSE(settings.SaveSetting(Section, QStringLiteral("Ext"), QStringLiteral(".png")));
    EXPECT_EQ(settings.GetSetting(Section, QStringLiteral("Ext"), Default), QStringLiteral(".jpg"));
}

TEST_F(CRegSettingsTest, AFileSizeLimitKeepsTheOldSettings)
{
    ASSERT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    rlimit before {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit none { 0, before.rlim_max };
    ::setrlimit(RLIMIT_FSIZE, &none);
    const bool isSaved = Save(QStringLiteral("Ext"), QStringLiteral(".png"));
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);
    EXPECT_FALSE(isSaved);
    EXPECT_EQ(Get(QStringLiteral("Ext")), QStringLiteral(".jpg"));
    EXPECT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".png")));
}

/// Writes 200 keys of its own; true when every one was taken.
bool SaveMany(const QString& folder, const QString& prefix)
{
    CRegSettings settings(folder);
    settings.SetCompany(QStringLiteral("Company"));
    settings.SetAppName(QStringLiteral("Program"));
    bool isSaved = true;
    for (int i = 0; i < 200; ++i)
        isSaved = settings.SaveSetting(Section, prefix + QString::number(i), QString::number(i)) && isSaved;
    return isSaved;
}

void ExpectMany(CRegSettings& settings, const QString& prefix)
{
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(settings.GetSetting(Section, prefix + QString::number(i), Default), QString::number(i));
}

TEST_F(CRegSettingsTest, TwoProgramsWritingDifferentKeysKeepThemAll)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        ::_exit(SaveMany(folder_.path(), QStringLiteral("child")) ? 0 : 1);
    EXPECT_TRUE(SaveMany(folder_.path(), QStringLiteral("parent")));
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    ExpectMany(settings_, QStringLiteral("child"));
    ExpectMany(settings_, QStringLiteral("parent"));
}

TEST_F(CRegSettingsTest, TwoObjectsWritingDifferentKeysKeepThemAll)
{
    std::thread other([this] { EXPECT_TRUE(SaveMany(folder_.path(), QStringLiteral("other"))); });
    EXPECT_TRUE(SaveMany(folder_.path(), QStringLiteral("one")));
    other.join();
    ExpectMany(settings_, QStringLiteral("other"));
    ExpectMany(settings_, QStringLiteral("one"));
}

TEST_F(CRegSettingsTest, TheLockOfADeadProgramIsTakenOver)
{
    WriteFile("[Options]\n");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        QLockFile lock(settings_.FilePath() + QStringLiteral(".lock"));
        ::_exit(lock.tryLock(0) ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(QFileInfo::exists(settings_.FilePath() + QStringLiteral(".lock")));
    EXPECT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
}

TEST_F(CRegSettingsTest, AProgramKilledWhileItSavesLeavesAWholeFile)
{
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            SaveMany(folder_.path(), QString::number(round) + u'k');
            ::_exit(0);
        }
        const QString first = QString::number(round) + QStringLiteral("k0");
        while (Get(first) == Default && ::waitpid(child, nullptr, WNOHANG) == 0)
            std::this_thread::yield();
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        EXPECT_EQ(Get(first), QStringLiteral("0"));
    }
    EXPECT_TRUE(Save(QStringLiteral("Ext"), QStringLiteral(".jpg")));
    EXPECT_FALSE(Files().contains(QStringLiteral("Program.conf.damaged")));
}

} // namespace
