#include "desktop/WholeFile.h"

#include "Folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using Cause = FileError::Cause;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Optional;

namespace {

/// The lowest free number, as an automatic name is found; the name taken.
QString SaveNext(const Folder& folder, const QByteArray& content)
{
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("auto%1.bmp").arg(number);
        if (Create(folder.Path(name), content))
            return name;
    }
}

} // namespace

TEST(CreatedFile, HoldsAllPartsInTheirOrder)
{
    const Folder folder;
    const QByteArray texts[] = { "header", "", "row 2", "row 1" };
    std::vector<WholeFile::Block> parts;
    for (const QByteArray& text : texts)
        parts.push_back(std::as_bytes(std::span(text.constData(), size_t(text.size()))));
    EXPECT_TRUE(WholeFile::Create(folder.Path("a"), parts));
    EXPECT_EQ(folder.Content("a"), "headerrow 2row 1");
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(CreatedFile, MayHaveMorePartsThanTheKernelTakesAtOnce)
{
    const Folder folder;
    const QByteArray text = "0123456789";
    const std::vector<WholeFile::Block> parts(5000, std::as_bytes(std::span(text.constData(), 10)));
    EXPECT_TRUE(WholeFile::Create(folder.Path("a"), parts));
    EXPECT_EQ(folder.Content("a"), text.repeated(5000));
}

TEST(CreatedFile, HasTheModeThatNewFilesHaveHere)
{
    const Folder folder;
    Create(folder.Path("ours"), "x");
    folder.Put("theirs", "x");
    struct stat ours, theirs;
    ASSERT_EQ(stat(folder.Bytes("ours").constData(), &ours), 0);
    ASSERT_EQ(stat(folder.Bytes("theirs").constData(), &theirs), 0);
    EXPECT_EQ(ours.st_mode, theirs.st_mode);
}

TEST(CreatedFile, NeverReplacesAFileWithContent)
{
    const Folder folder;
    folder.Put("a", "old");
    EXPECT_FALSE(Create(folder.Path("a"), "new"));
    EXPECT_EQ(folder.Content("a"), "old");
}

TEST(CreatedFile, ReplacesAFileOfLengthZero)
{
    const Folder folder;
    folder.Put("a", "");
    EXPECT_TRUE(Create(folder.Path("a"), "new"));
    EXPECT_EQ(folder.Content("a"), "new");
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(CreatedFile, TakesNoNameOfAFolderAPipeOrALink)
{
    const Folder folder;
    ASSERT_EQ(mkdir(folder.Bytes("folder").constData(), 0755), 0);
    ASSERT_EQ(mkfifo(folder.Bytes("pipe").constData(), 0644), 0);
    ASSERT_EQ(symlink("circle", folder.Bytes("circle").constData()), 0);
    ASSERT_EQ(symlink("nowhere", folder.Bytes("dangling").constData()), 0);
    const QStringList before = folder.Names();
    for (const QString& name : before) {
        EXPECT_FALSE(Create(folder.Path(name), "new")) << name.toStdString();
        EXPECT_TRUE(FileHasContent(folder.Path(name))) << name.toStdString();
    }
    EXPECT_EQ(folder.Names(), before);
}

TEST(CreatedFile, FillsTheLowestGap)
{
    const Folder folder;
    for (const char* name : { "auto1.bmp", "auto2.bmp", "auto4.bmp" })
        folder.Put(name, "x");
    EXPECT_EQ(SaveNext(folder, "new"), "auto3.bmp");
    EXPECT_EQ(SaveNext(folder, "new"), "auto5.bmp");
}

TEST(CreatedFile, MayHaveANameThatIsNoText)
{
    const Folder folder;
    const QString name = FileName::FromBytes("caf\xE9 %s%n\n.bmp");
    EXPECT_TRUE(Create(folder.Path(name), "x"));
    EXPECT_EQ(access(folder.Bytes(name).constData(), F_OK), 0);
    EXPECT_TRUE(FileHasContent(folder.Path(name)));
    EXPECT_EQ(unlink(folder.Bytes(name).constData()), 0); // QTemporaryDir cannot name it
}

TEST(TwoWriters, BothEndWithCompleteSets)
{
    const Folder folder;
    constexpr int each = 100;
    for (int number = 5; number <= 2 * each; number += 5) // of length 0, thus free, and fought for
        folder.Put(QStringLiteral("auto%1.bmp").arg(number), "");
    const auto save = [&](char letter) {
        for (int i = 0; i < each; ++i)
            SaveNext(folder, QByteArray(1000, letter));
    };
    std::thread first(save, 'a'), second(save, 'b');
    first.join();
    second.join();

    std::map<QByteArray, int> found;
    for (const QString& name : folder.Names())
        ++found[folder.Content(name)];
    EXPECT_EQ(found[QByteArray(1000, 'a')], each);
    EXPECT_EQ(found[QByteArray(1000, 'b')], each);
}

TEST(AProcessThatIsKilled, LeavesNoDamagedAndNoStrayFile)
{
    constexpr qsizetype size = 1 << 20;
    std::mt19937 random(7);
    for (int round = 0; round < 25; ++round) {
        const Folder folder;
        int progress[2];
        ASSERT_EQ(pipe(progress), 0);
        const pid_t child = fork();
        if (child == 0) {
            for (;;) {
                SaveNext(folder, QByteArray(size, 'x'));
                if (write(progress[1], "x", 1) != 1)
                    _exit(1);
            }
        }
        close(progress[1]);
        char byte;
        for (unsigned count = 1 + random() % 4; count > 0; --count)
            ASSERT_EQ(read(progress[0], &byte, 1), 1);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(progress[0]);
        for (const QString& name : folder.Names()) {
            EXPECT_TRUE(name.startsWith("auto")) << name.toStdString();
            EXPECT_EQ(folder.Content(name).size(), size) << name.toStdString();
        }
    }
}

TEST(ReplacedFile, IsReplacedWholeAndKeepsItsMode)
{
    const Folder folder;
    folder.Put("a", "old and longer");
    ASSERT_EQ(chmod(folder.Bytes("a").constData(), 0640), 0);
    WholeFile::Replace(folder.Path("a"), "new");
    EXPECT_EQ(folder.Content("a"), "new");
    struct stat status;
    ASSERT_EQ(stat(folder.Bytes("a").constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(ReplacedFile, NeedNotExist)
{
    const Folder folder;
    WholeFile::Replace(folder.Path("a"), "new");
    EXPECT_EQ(folder.Content("a"), "new");
}

TEST(ReplacedFile, IsTheOneBehindALink)
{
    const Folder folder;
    folder.Put("file", "old");
    ASSERT_EQ(symlink("file", folder.Bytes("link").constData()), 0);
    WholeFile::Replace(folder.Path("link"), "new");
    EXPECT_EQ(folder.Content("file"), "new");
    struct stat status;
    ASSERT_EQ(lstat(folder.Bytes("link").constData(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST(ReplacedFile, MayHaveTheLongestName)
{
    const Folder folder;
    const QString longest(255, 'n');
    WholeFile::Replace(folder.Path(longest), "new");
    EXPECT_EQ(folder.Content(longest), "new");
    EXPECT_THAT(CauseOf([&] { WholeFile::Replace(folder.Path(longest + 'n'), "new"); }),
        Optional(Cause::NameTooLong));
}

TEST(AFolderAPipeADeviceOrALinkToNothing, IsRefusedAndStaysThere)
{
    const Folder folder;
    ASSERT_EQ(mkdir(folder.Bytes("folder").constData(), 0755), 0);
    ASSERT_EQ(mkfifo(folder.Bytes("pipe").constData(), 0644), 0);
    ASSERT_EQ(symlink("circle", folder.Bytes("circle").constData()), 0);
    ASSERT_EQ(symlink("nowhere", folder.Bytes("dangling").constData()), 0);
    ASSERT_EQ(symlink("/dev/null", folder.Bytes("device").constData()), 0);
    const QStringList before = folder.Names();
    const std::map<QString, Cause> causes { { "folder", Cause::IsFolder }, { "pipe", Cause::NotRegular },
        { "circle", Cause::LinkLoop }, { "dangling", Cause::LinkWithoutTarget },
        { "device", Cause::NotRegular } };
    for (const auto& [name, cause] : causes)
        EXPECT_THAT(CauseOf([&] { WholeFile::Replace(folder.Path(name), "new"); }), Optional(cause))
            << name.toStdString();
    EXPECT_THAT(
        CauseOf([&] { WholeFile::Replace(folder.Path("folder/"), "new"); }), Optional(Cause::IsFolder));
    EXPECT_EQ(folder.Names(), before);
}

TEST(AMissingFolder, IsRefused)
{
    const Folder folder;
    const QString path = folder.Path("missing/a");
    EXPECT_THAT(CauseOf([&] { Create(path, "x"); }), Optional(Cause::FolderMissing));
    EXPECT_THAT(CauseOf([&] { WholeFile::Replace(path, "x"); }), Optional(Cause::FolderMissing));
    folder.Put("missing", "a file now");
    EXPECT_THAT(CauseOf([&] { Create(path, "x"); }), Optional(Cause::NotAFolder));
    EXPECT_THAT(CauseOf([&] { WholeFile::Replace(path, "x"); }), Optional(Cause::NotAFolder));
}

TEST(AFailure, NamesTheFileAndTheReason)
{
    try {
        Create(QStringLiteral("/nowhere/50%1 off\n.bmp"), "x");
        FAIL() << "saved";
    } catch (const FileError& error) {
        EXPECT_EQ(error.Reason(), "/nowhere/50%1 off\uFFFD.bmp could not be saved: the folder is missing.");
    }
}

TEST(ReadFile, IsReadWhole)
{
    const Folder folder;
    folder.Put("a", QByteArray(100'000, 'x'));
    EXPECT_EQ(WholeFile::Read(folder.Path("a"), 100'000), QByteArray(100'000, 'x'));
    EXPECT_THAT(CauseOf([&] { WholeFile::Read(folder.Path("a"), 99'999); }), Optional(Cause::TooLarge));
}

TEST(ReadFile, IsAnOrdinaryFileOrRefusedAtOnce)
{
    const Folder folder;
    folder.Put("empty", "");
    ASSERT_EQ(mkfifo(folder.Bytes("pipe").constData(), 0644), 0);
    ASSERT_EQ(symlink("circle", folder.Bytes("circle").constData()), 0);
    const auto read = [&](const QString& path) { return CauseOf([&] { WholeFile::Read(path, 1000); }); };
    EXPECT_THAT(read(folder.Path("missing")), Optional(Cause::FileMissing));
    EXPECT_THAT(read(folder.Path("empty")), Optional(Cause::Empty));
    EXPECT_THAT(read(folder.Path("pipe")), Optional(Cause::NotRegular));
    EXPECT_THAT(read(folder.Path("circle")), Optional(Cause::LinkLoop));
    EXPECT_THAT(read(folder.Path("")), Optional(Cause::IsFolder));
    EXPECT_THAT(read("/dev/zero"), Optional(Cause::NotRegular));
}

TEST(AName, CountsAsFreeWithoutAFileOrWithAnEmptyOne)
{
    const Folder folder;
    EXPECT_FALSE(FileHasContent(folder.Path("a")));
    folder.Put("a", "");
    EXPECT_FALSE(FileHasContent(folder.Path("a")));
    folder.Put("a", "x");
    EXPECT_TRUE(FileHasContent(folder.Path("a")));
}
