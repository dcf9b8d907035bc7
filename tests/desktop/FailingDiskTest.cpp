// What a disk that fails, or is full, leaves behind.
#include "FailingCalls.h"
#include "Folder.h"
#include "tests/testing/SmallDisk.h"

#include <cerrno>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

using Cause = FileError::Cause;
using testing::AnyOf;
using testing::ElementsAre;
using testing::Optional;

namespace {

const QByteArray Old = "old content";
const QByteArray New = QByteArray("new content").repeated(1000);

class FailingDisk : public testing::Test {
protected:
    ~FailingDisk() override { FailingCalls::Reset(); }
};

/// A disk that knows no unnamed files.
class PlainDisk : public FailingDisk {
protected:
    PlainDisk() { FailingCalls::Refuse("O_TMPFILE", EOPNOTSUPP); }
};

/// A disk that in addition renames only by replacing.
class PoorDisk : public PlainDisk {
protected:
    PoorDisk() { FailingCalls::Refuse("renameat2", EINVAL); }
};

/// Lets every call of a save fail in turn, until the save gets through. Old content or new stands there,
/// whole, and nothing beside it.
template <typename Save> void FailEveryCallOnce(bool hasOldFile, Save&& save)
{
    for (const int error : { ENOSPC, EIO, EACCES, EDQUOT, ENOENT }) {
        bool isThrough = false;
        for (int n = 1; !isThrough; ++n) {
            const Folder folder;
            if (hasOldFile)
                folder.Put("a", Old);
            FailingCalls::FailAt(n, error);
            const auto cause = CauseOf([&] { save(folder.Path("a")); });
            isThrough = FailingCalls::Count() < n;
            FailingCalls::FailAt(0, 0);
            SCOPED_TRACE(testing::Message() << "call " << n << " fails with " << error);
            if (!cause) {
                EXPECT_EQ(folder.Content("a"), New);
            } else if (hasOldFile) {
                EXPECT_THAT(folder.Names(), ElementsAre("a"));
                EXPECT_THAT(folder.Content("a"), AnyOf(Old, New));
            } else if (!folder.Names().isEmpty()) {
                EXPECT_THAT(folder.Names(), ElementsAre("a"));
                EXPECT_EQ(folder.Content("a"), New);
            }
            ASSERT_LT(n, 50);
        }
    }
}

void CreateNew(const QString& path)
{
    Create(path, New);
}
void Replace(const QString& path)
{
    WholeFile::Replace(path, New);
}

} // namespace

TEST_F(FailingDisk, LeavesOldOrNewWhenAnyCallFails)
{
    FailEveryCallOnce(false, CreateNew);
    FailEveryCallOnce(false, Replace);
    FailEveryCallOnce(true, Replace);
}

TEST_F(PlainDisk, LeavesOldOrNewWhenAnyCallFails)
{
    FailEveryCallOnce(false, CreateNew);
    FailEveryCallOnce(false, Replace);
    FailEveryCallOnce(true, Replace);
}

TEST_F(PoorDisk, LeavesOldOrNewWhenAnyCallFails)
{
    FailEveryCallOnce(false, CreateNew);
    FailEveryCallOnce(true, Replace);
}

TEST_F(PlainDisk, TakesNewFilesAndKeepsThoseWithContent)
{
    const Folder folder;
    EXPECT_TRUE(Create(folder.Path("a"), New));
    EXPECT_FALSE(Create(folder.Path("a"), Old));
    EXPECT_EQ(folder.Content("a"), New);
    folder.Put("b", "");
    EXPECT_TRUE(Create(folder.Path("b"), New));
    EXPECT_EQ(folder.Content("b"), New);
    EXPECT_THAT(folder.Names(), ElementsAre("a", "b"));
}

TEST_F(PoorDisk, TakesNewFilesAndKeepsThoseWithContent)
{
    const Folder folder;
    EXPECT_TRUE(Create(folder.Path("a"), New));
    EXPECT_FALSE(Create(folder.Path("a"), Old));
    EXPECT_EQ(folder.Content("a"), New);
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST_F(FailingDisk, WithoutLocksKeepsAnEmptyFileAndTheNextNameIsTaken)
{
    FailingCalls::Refuse("flock", EBADF);
    const Folder folder;
    folder.Put("a", "");
    EXPECT_FALSE(Create(folder.Path("a"), New));
    EXPECT_TRUE(Create(folder.Path("b"), New));
}

TEST_F(FailingDisk, ThatTakesFewBytesAtATimeGetsThemAll)
{
    FailingCalls::WriteAtMost(7);
    const Folder folder;
    EXPECT_TRUE(Create(folder.Path("a"), New));
    EXPECT_EQ(folder.Content("a"), New);
}

TEST_F(FailingDisk, ThatTakesNothingIsTold)
{
    for (const int error : { ENOSPC, EDQUOT, EIO, EROFS }) {
        FailingCalls::Refuse("writev", error);
        const Folder folder;
        folder.Put("old", Old);
        EXPECT_TRUE(CauseOf([&] { Create(folder.Path("new"), New); }));
        EXPECT_TRUE(CauseOf([&] { WholeFile::Replace(folder.Path("old"), New); }));
        EXPECT_THAT(folder.Names(), ElementsAre("old"));
        EXPECT_EQ(folder.Content("old"), Old);
    }
}

TEST(AFileSizeLimit, IsToldAndLeavesTheOldFile)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const Folder folder;
    folder.Put("old", Old);
    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small { 1000, before.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto created = CauseOf([&] { Create(folder.Path("new"), New); });
    const auto replaced = CauseOf([&] { WholeFile::Replace(folder.Path("old"), New); });
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_THAT(created, Optional(Cause::TooLarge));
    EXPECT_THAT(replaced, Optional(Cause::TooLarge));
    EXPECT_THAT(folder.Names(), ElementsAre("old"));
    EXPECT_EQ(folder.Content("old"), Old);
}

namespace {

class SmallDiskTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!disk.IsThere())
            GTEST_SKIP()
                << "Needs the right to mount a disk: run as root to test a full and a read-only one.";
    }
    QString Path(const QString& name) const { return disk.Path() + '/' + name; }
    QStringList Names() const { return QDir(disk.Path()).entryList(QDir::Files | QDir::Hidden); }
    QByteArray Content(const QString& name) const { return WholeFile::Read(Path(name), 1 << 20); }

    SmallDisk disk { 1024 };
};

} // namespace

TEST_F(SmallDiskTest, FullKeepsWhatIsThereAndTakesNoHalfFile)
{
    int saved = 0;
    const QByteArray picture(100'000, 'x');
    const auto cause = CauseOf([&] {
        for (;; ++saved)
            Create(Path(QStringLiteral("auto%1.bmp").arg(saved)), picture);
    });
    EXPECT_THAT(cause, Optional(Cause::DiskFull));
    EXPECT_GT(saved, 5);
    EXPECT_THAT(CauseOf([&] { WholeFile::Replace(Path("auto0.bmp"), picture.repeated(2)); }),
        Optional(Cause::DiskFull));
    EXPECT_EQ(Names().size(), saved);
    for (const QString& name : Names())
        EXPECT_EQ(Content(name), picture) << name.toStdString();
}

TEST_F(SmallDiskTest, ThatCanOnlyBeReadIsTold)
{
    WholeFile::Replace(Path("old"), Old);
    disk.MakeReadOnly();
    EXPECT_THAT(CauseOf([&] { Create(Path("new"), New); }), Optional(Cause::ReadOnly));
    EXPECT_THAT(CauseOf([&] { WholeFile::Replace(Path("old"), New); }), Optional(Cause::ReadOnly));
    EXPECT_EQ(Content("old"), Old);
}
