#include "media/FrameServer.h"
#include "media/Libav.h"
#include "tests/clips/Clips.h"
#include "tests/testing/Files.h"
#include "tests/testing/SilentServer.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace media {

namespace {

std::optional<Failure> FailureOfOpening(const Source& source)
{
    Interrupt interrupt;
    interrupt.SetDeadline(Interrupt::Clock::now() + std::chrono::minutes(1));
    try {
        FrameServer::Open(source, interrupt);
        return std::nullopt;
    } catch (const MediaError& error) {
        return error.failure;
    }
}

std::optional<Failure> FailureOfFile(const QByteArray& path)
{
    return FailureOfOpening({ Source::Kind::File, path });
}

std::optional<Failure> FailureOfClip(const char* name)
{
    return FailureOfFile(ClipPath(QString::fromUtf8(name)).toUtf8());
}

QByteArray ContentOf(const char* clip)
{
    return FileBytes(ClipPath(QString::fromUtf8(clip)));
}

class SourceGuards : public testing::Test {
protected:
    QByteArray Path(const QByteArray& name) const { return folder_.path().toUtf8() + '/' + name; }
    QByteArray Written(const QByteArray& name, const QByteArray& content) const
    {
        EXPECT_TRUE(MakeFile(QString::fromUtf8(Path(name)), content));
        return Path(name);
    }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(SourceGuards, AMissingFileIsNotFound)
{
    EXPECT_EQ(FailureOfFile(Path("missing.mp4")), Failure::NotFound);
    ASSERT_EQ(symlink("nowhere.mp4", Path("dangling.mp4").constData()), 0);
    EXPECT_EQ(FailureOfFile(Path("dangling.mp4")), Failure::NotFound);
    ASSERT_EQ(symlink("loop.mp4", Path("loop.mp4").constData()), 0);
    EXPECT_EQ(FailureOfFile(Path("loop.mp4")), Failure::NotFound);
}

TEST_F(SourceGuards, OnlyARegularFileIsOpened)
{
    ASSERT_EQ(mkfifo(Path("pipe.mp4").constData(), 0600), 0);
    EXPECT_EQ(FailureOfFile(Path("pipe.mp4")), Failure::NotAFile);
    ASSERT_EQ(mkdir(Path("folder.mp4").constData(), 0700), 0);
    EXPECT_EQ(FailureOfFile(Path("folder.mp4")), Failure::NotAFile);
    EXPECT_EQ(FailureOfFile("/dev/zero"), Failure::NotAFile);
}

TEST_F(SourceGuards, AnEmptyFileIsEmpty)
{
    EXPECT_EQ(FailureOfFile(Written("empty.mp4", {})), Failure::Empty);
}

TEST_F(SourceGuards, AFileThatMayNotBeReadSaysSo)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    const QByteArray path = Written("closed.mp4", "x");
    ASSERT_EQ(chmod(path.constData(), 0), 0);
    EXPECT_EQ(FailureOfFile(path), Failure::NoPermission);
}

TEST_F(SourceGuards, WhatIsNoVideoIsToldFromADamagedOne)
{
    EXPECT_EQ(FailureOfClip("garbage.mp4"), Failure::NotAVideo);
    EXPECT_EQ(FailureOfFile(Written("text.mp4", "Once upon a time.\n")), Failure::NotAVideo);
    EXPECT_EQ(FailureOfClip("audio_only.m4a"), Failure::NotAVideo);
    EXPECT_EQ(FailureOfClip("cover.mp3"), Failure::NotAVideo);
    EXPECT_EQ(FailureOfClip("cut_moov.mp4"), Failure::Damaged);
}

TEST_F(SourceGuards, AListUnderAnyNameOpensNoOtherFile)
{
    for (const char* name : { "hls/disguised.mp4", "hls/evil_local.m3u8", "hls/evil_net.m3u8",
             "hls/evil_nested.m3u8", "hls/vod.m3u8", "evil_concat.ffconcat", "not_a_playlist.txt" })
        EXPECT_EQ(FailureOfClip(name), Failure::NotAVideo) << name;
}

TEST_F(SourceGuards, PicturesTooLargeAreRefusedByTheirHeader)
{
    QByteArray content = ContentOf("msvideo1.avi");
    const qsizetype size = content.indexOf("strf") + 12; // width and height of the pictures, 4 bytes each
    content.replace(size, 8, QByteArray::fromHex("0080000000800000"));
    EXPECT_EQ(FailureOfFile(Written("large.avi", content)), Failure::TooLarge);
}

TEST_F(SourceGuards, ANameIsNeverReadAsAnAddressOrAPattern)
{
    const QByteArray content = ContentOf("one_frame.mp4");
    for (const char* name : { "a:b.mp4", "seq%03d.mp4", "-", "pipe:0", "concat:a|b",
             "subfile,,start,0,end,9,,:x", "line\nbreak.mp4", " ", "#?.mp4" })
        EXPECT_EQ(FailureOfFile(Written(name, content)), std::nullopt) << name;
}

TEST_F(SourceGuards, ANameThatIsNoTextOpensByItsBytes)
{
    const QByteArray path = Path("caf\xE9.mp4");
    const QByteArray clip = ClipPath(QStringLiteral("one_frame.mp4")).toUtf8();
    ASSERT_EQ(symlink(clip.constData(), path.constData()), 0);
    EXPECT_EQ(FailureOfFile(path), std::nullopt);
    ASSERT_EQ(unlink(path.constData()), 0); // the folder does not find it when it cleans up
}

TEST_F(SourceGuards, OnlyWebAddressesAreFollowed)
{
    for (const char* address : { "file:///etc/passwd", "concat:a|b", "data:text/plain,x", "pipe:0",
             "ftp://a/b", "subfile,,start,0,end,9,,:/etc/passwd", "http://a/b\nHost: c", "http://a b", "" })
        EXPECT_EQ(FailureOfOpening({ Source::Kind::Address, address }), Failure::Refused) << address;
}

TEST_F(SourceGuards, AServerThatNeverAnswersEndsWithTheDeadline)
{
    const SilentServer server;
    Interrupt interrupt;
    interrupt.SetDeadline(Interrupt::Clock::now() + std::chrono::milliseconds(200));
    try {
        FrameServer::Open({ Source::Kind::Address, server.Address().toUtf8() }, interrupt);
        FAIL() << "opened";
    } catch (const MediaError& error) {
        EXPECT_EQ(error.failure, Failure::TimedOut);
    }
}

TEST_F(SourceGuards, OnlyAnAddressFailsByTheNetwork)
{
    EXPECT_EQ(FailureOf(AVERROR(EIO), Source::Kind::Address), Failure::Network);
    EXPECT_EQ(FailureOf(AVERROR(EIO), Source::Kind::File), Failure::Damaged);
    EXPECT_EQ(FailureOf(AVERROR(EIO), Source::Kind::Memory), Failure::Damaged);
}

TEST_F(SourceGuards, EveryFailureHasAText)
{
    for (int failure = 1; failure <= int(Failure::NoResources); ++failure)
        EXPECT_TRUE(FailureText(Failure(failure)).endsWith(u'.')) << failure;
}

} // namespace media
