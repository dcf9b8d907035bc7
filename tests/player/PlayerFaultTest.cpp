#include "tests/player/PlayerFixture.h"
#include "tests/testing/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <sys/stat.h>

using media::Failure;

class PlayerFaultTest : public PlayerFixture {
protected:
    QString Path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QString Written(const char* name, const QByteArray& content) const
    {
        EXPECT_TRUE(MakeFile(Path(name), content));
        return Path(name);
    }
    QString Copied(const char* clip) const
    {
        const QString copy = Path(clip);
        EXPECT_TRUE(QFile::copy(ClipPath(QString::fromLatin1(clip)), copy));
        return copy;
    }
    /// The file is refused with one error of one of these kinds, and the next good one plays.
    void ExpectRefused(const QString& file, const std::set<Failure>& kinds)
    {
        Load(QStringLiteral("h264_closed.mp4"));
        errors_.clear();
        player_->SetSourceFile(file);
        EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource) << file.toStdString();
        EXPECT_EQ(player_->SourceFile(), QString());
        EXPECT_EQ(Seen(), -1);
        EXPECT_TRUE(Wait([&] { return !errors_.isEmpty(); })) << file.toStdString();
        if (errors_.isEmpty())
            return;
        const int code = errors_[0][0].toInt();
        EXPECT_TRUE(kinds.contains(Failure(code))) << file.toStdString() << " gave " << code;
        EXPECT_FALSE(player_->ErrorText(code).isEmpty());
        Load(QStringLiteral("h264_closed.mp4"));
        EXPECT_EQ(Seen(), 0);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(errors_.size(), 1);
    }

    QTemporaryDir folder_;
};

TEST_F(PlayerFaultTest, AFileThatIsNotThereIsRefused)
{
    ExpectRefused(Path("none.mp4"), { Failure::NotFound });
}

TEST_F(PlayerFaultTest, AnEmptyFileIsRefused)
{
    ExpectRefused(Written("empty.mp4", {}), { Failure::Empty });
}

TEST_F(PlayerFaultTest, ATextIsRefused)
{
    ExpectRefused(Written("text.mp4", QByteArray("not a video\n").repeated(2000)), { Failure::NotAVideo });
}

TEST_F(PlayerFaultTest, AFolderIsRefused)
{
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("folder.mp4")));
    ExpectRefused(Path("folder.mp4"), { Failure::NotAFile });
}

TEST_F(PlayerFaultTest, APipeAndADeviceAreRefusedWithoutWaiting)
{
    ASSERT_EQ(mkfifo(qPrintable(Path("pipe.mp4")), 0600), 0);
    ExpectRefused(Path("pipe.mp4"), { Failure::NotAFile });
    ExpectRefused(QStringLiteral("/dev/zero"), { Failure::NotAFile });
}

TEST_F(PlayerFaultTest, ALinkThatGoesRoundOrNowhereIsRefused)
{
    QFile::link(Path("b.mp4"), Path("a.mp4"));
    QFile::link(Path("a.mp4"), Path("b.mp4"));
    ExpectRefused(Path("a.mp4"), { Failure::NotFound, Failure::NotAFile });
}

TEST_F(PlayerFaultTest, SoundAloneIsRefused)
{
    ExpectRefused(ClipPath(QStringLiteral("audio_only.m4a")), { Failure::NotAVideo });
}

TEST_F(PlayerFaultTest, AFileWithoutItsIndexIsRefused)
{
    ExpectRefused(ClipPath(QStringLiteral("cut_moov.mp4")), { Failure::NotAVideo, Failure::Damaged });
}

TEST_F(PlayerFaultTest, GarbageInMemoryIsRefused)
{
    player_->SetSourceMemory(QByteArray(5000, 'x'));
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
    EXPECT_TRUE(Wait([&] { return errors_.size() == 1; }));
}

TEST_F(PlayerFaultTest, AnAddressThatNobodyServesIsRefused)
{
    ExpectRefused(QStringLiteral("http://127.0.0.1:1/none.mp4"), { Failure::Network, Failure::TimedOut });
    ExpectRefused(QStringLiteral("file:///etc/passwd"), { Failure::Refused });
}

TEST_F(PlayerFaultTest, EveryFailureOfAStormIsTold)
{
    for (int i = 0; i < 20; ++i)
        player_->SetSourceFile(Path("none.mp4"));
    EXPECT_TRUE(Wait([&] { return errors_.size() == 20; }));
}

TEST_F(PlayerFaultTest, AFileCutInTheMiddlePlaysWhatIsThere)
{
    const QByteArray whole = FileBytes(ClipPath(QStringLiteral("h264_opengop.ts")));
    player_->SetSourceFile(Written("cut.ts", whole.first(whole.size() / 2)));
    EXPECT_EQ(Seen(), 0);
    player_->SetRate(5);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_GT(player_->CurrentFrame(), 20);
    EXPECT_LT(player_->CurrentFrame(), 80);
}

TEST_F(PlayerFaultTest, ADeletedFilePlaysOnFromItsDescriptor)
{
    const QString copy = Copied("h264_longgop.mp4");
    player_->SetSourceFile(copy);
    player_->Run();
    ASSERT_TRUE(QFile::remove(copy));
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() > 10; }));
    player_->SetCurrentFrame(200);
    EXPECT_EQ(Seen(), 200);
    player_->SetSourceFile(copy);
    EXPECT_TRUE(Wait([&] { return errors_.size() == 1; }));
    EXPECT_EQ(errors_[0][0].toInt(), int(Failure::NotFound));
}

TEST_F(PlayerFaultTest, ATruncatedFileEndsWithAtMostOneError)
{
    const QString copy = Copied("h264_longgop.mp4");
    player_->SetSourceFile(copy);
    player_->SetRate(5);
    player_->Run();
    ASSERT_TRUE(QFile::resize(copy, 4000));
    ASSERT_TRUE(WaitForEnd());
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_EQ(Seen(), 0);
    QCoreApplication::sendPostedEvents();
    EXPECT_LE(errors_.size(), 1);
}

TEST_F(PlayerFaultTest, ARunWhereTheSizeChangesFollowsThePicture)
{
    Load(QStringLiteral("res_change.ts"));
    player_->SetRate(5);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(errors_.size(), 0);
    const QSize last = player_->GetStillPicture(5000).size();
    player_->SeekStart();
    EXPECT_NE(player_->GetStillPicture(5000).size(), last);
}
