// Videos of the web: what the player makes of servers that behave and of those that do not. However a server
// behaves, an attempt ends within its time, and nothing is opened that the address does not name.
#include "app/Hourglass.h"
#include "tests/player/PlayerFixture.h"
#include "tests/player/WebServer.h"
#include "tests/testing/RunningDialog.h"

#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

namespace {

class PlayerAddressTest : public PlayerFixture {
protected:
    WebServer server_;
    const QString plain_ = server_.Plain();
    const QString secret_ = server_.Secret();
    static inline const QString NotFound = QStringLiteral("The file or address was not found.");
    static inline const QString NotAVideo = QStringLiteral("This is not a video of a known kind.");
    static inline const QString NoAnswer = QStringLiteral("There was no answer in time.");
    static inline const QString NotAllowed = QStringLiteral("This address is not allowed.");
    static inline const QString NetworkFailed = QStringLiteral("The network or the server failed.");

    void SetUp() override { ASSERT_FALSE(plain_.isEmpty()) << "the server does not answer"; }
    void TearDown() override { player_.reset(); }

    bool Opens(const QString& address)
    {
        player_->SetSourceFile(address);
        return player_->SourceKind() == ltmmPlay::FileSource;
    }
    /// What the user is told of an address that does not open.
    QString Refusal(const QString& address)
    {
        EXPECT_FALSE(Opens(address)) << address.toStdString();
        EXPECT_TRUE(Wait([this] { return !errors_.empty(); }));
        return errors_.empty() ? QString() : player_->ErrorText(errors_.takeFirst()[0].toInt());
    }
};

} // namespace

TEST_F(PlayerAddressTest, AVideoOfTheWebIsExactToTheFrame)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/good/h264_opengop.mp4")));
    for (const int number : { 0, 30, 7, 31 }) {
        player_->SetCurrentFrame(number);
        EXPECT_EQ(Seen(), number);
    }
}

TEST_F(PlayerAddressTest, FramesAreCountedWhilePicturesMadeAheadWaitToBeTaken)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/good/fast_240fps.mp4")));
    player_->SetCurrentFrame(100);
    EXPECT_FALSE(player_->HasFrameCount()) << "an address is read as far as it is needed";
    player_->ExpectFrames(0, 10);
    ASSERT_TRUE(Wait([this] { return player_->IsFrameReady(30); })) << "the shelf is full";
    EXPECT_EQ(player_->FrameCount(), 240);
}

TEST_F(PlayerAddressTest, AServerThatGivesOnlyWholeFilesServesAVideoWithItsIndexInFront)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/whole/frag.mp4")));
    EXPECT_EQ(Seen(), 0);
}

TEST_F(PlayerAddressTest, ASlowServerIsWaitedFor)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/slow/two_frames.avi")));
    EXPECT_EQ(Seen(), 0);
}

TEST_F(PlayerAddressTest, WhatCameBeforeTheLineWasCutIsShown)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/cut/frag.mp4")));
    player_->SetCurrentFrame(5);
    EXPECT_EQ(Seen(), 5);
}

TEST_F(PlayerAddressTest, ALineThatFallsSilentShowsWhatCame)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/stalled/frag.mp4")));
    EXPECT_EQ(Seen(), 0);
}

TEST_F(PlayerAddressTest, AVideoWithoutAToldEndPlaysAtItsOwnRateOnly)
{
    player_->SetRate(2); // of the video before
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/live/h264_opengop.ts")));
    EXPECT_EQ(player_->Rate(), 1);
    EXPECT_TRUE(player_->IsRateSupported(1));
    EXPECT_FALSE(player_->IsRateSupported(2));
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/good/h264_opengop.ts")));
    EXPECT_TRUE(player_->IsRateSupported(2));
}

TEST_F(PlayerAddressTest, WhatIsSentAsItHappensHasNeitherStartNorEndToSeek)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/live/h264_opengop.ts")));
    EXPECT_EQ(player_->CheckSeeking(ltmmPlay::EveryCapability), 0);
}

TEST_F(PlayerAddressTest, WhatCheckSeekingPromisesIsKept)
{
    for (const char* way : { "/good/frag.mp4", "/whole/frag.mp4" }) {
        SCOPED_TRACE(way);
        ASSERT_TRUE(Opens(plain_ + QLatin1String(way)));
        EXPECT_EQ(player_->CheckSeeking(ltmmPlay::EveryCapability), ltmmPlay::EveryCapability);
        player_->SeekEnd();
        EXPECT_EQ(Seen(), ClipNamed(QStringLiteral("frag.mp4")).Numbers.back());
        EXPECT_EQ(player_->TrackingPosition(), player_->TrackingMax());
        player_->SeekStart();
        EXPECT_EQ(Seen(), 0);
        player_->MarkSelectionEnd();
        EXPECT_LT(selections_.last().at(1).toInt(), player_->TrackingMax());
    }
}

TEST_F(PlayerAddressTest, AnEndThatDoesNotComeInTimeIsNotShownAsTheEnd)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/stalled/frag.mp4")));
    player_->SeekEnd();
    EXPECT_LT(Seen(), ClipNamed(QStringLiteral("frag.mp4")).Numbers.back());
    EXPECT_LT(player_->TrackingPosition(), player_->TrackingMax());
}

TEST_F(PlayerAddressTest, AServerThatNeverAnswersIsGivenUp)
{
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/silent")), NoAnswer);
}

TEST_F(PlayerAddressTest, AServerThatFallsSilentBehindItsHeaderIsGivenUp)
{
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/mute")), NoAnswer);
}

TEST_F(PlayerAddressTest, TheUserCanCancelTheWaitAndIsToldNothing)
{
    const Hourglass waiting; // of who opens the address
    Pointer whileAsked = Pointer::Busy;
    WhenOpen<QDialog>([&](QDialog& box) {
        whileAsked = CurrentPointer();
        QTest::mouseClick(box.findChild<QPushButton*>(), Qt::LeftButton);
    });
    EXPECT_FALSE(Opens(plain_ + QStringLiteral("/silent")));
    EXPECT_TRUE(player_->WasCancelled());
    EXPECT_TRUE(Opens(plain_ + QStringLiteral("/good/frag.mp4")));
    EXPECT_TRUE(errors_.empty());
    EXPECT_FALSE(player_->WasCancelled());
    EXPECT_EQ(whileAsked, Pointer::Normal);
}

TEST_F(PlayerAddressTest, APlayerMayGoWhileAnAddressOpens)
{
    WhenOpen<QDialog>([this](QDialog&) { player_.reset(); });
    player_->SetSourceFile(plain_ + QStringLiteral("/silent"));
    EXPECT_EQ(player_, nullptr);
}

TEST_F(PlayerAddressTest, NothingOfAnAddressLandsOnTheDisk)
{
    const QTemporaryDir here;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(here.path()));
    QDir::setCurrent(here.path());
    EXPECT_TRUE(Opens(plain_ + QStringLiteral("/good/h264_closed.mp4")));
    player_->Run();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(player_->CurrentFrame(), 99);
    QDir::setCurrent(QDir::rootPath());
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    EXPECT_TRUE(QDir(here.path()).isEmpty());
}

TEST_F(PlayerAddressTest, WithoutAWayToLetTheUserWaitThePlayerWaitsByItself)
{
    PlayerControl alone;
    alone.SetSourceFile(plain_ + QStringLiteral("/good/frag.mp4"));
    EXPECT_EQ(alone.SourceKind(), ltmmPlay::FileSource);
}

TEST_F(PlayerAddressTest, TimersTickAndWindowsPaintWhileAnAddressOpens)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(20);
    EXPECT_TRUE(Opens(plain_ + QStringLiteral("/slow/two_frames.avi")));
    EXPECT_GT(ticks, 0);
}

TEST_F(PlayerAddressTest, APlayListOfTheWebLeadsToItsFirstReference)
{
    EXPECT_TRUE(Opens(plain_ + QStringLiteral("/leads.asx?") + plain_ + QStringLiteral("/good/frag.mp4")));
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/leads.asx?file://" TAQ_CLIPS "/frag.mp4")), NotAllowed);
}

TEST_F(PlayerAddressTest, HeaderLinesWithoutEndAreGivenUp)
{
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/headers.asx")), NoAnswer);
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/headers")), NoAnswer);
}

TEST_F(PlayerAddressTest, APageThatIsNotThereIsTold)
{
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/gone")), NotFound);
}

TEST_F(PlayerAddressTest, APageOfTextIsNoVideo)
{
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/login")), NotAVideo);
}

TEST_F(PlayerAddressTest, AServerThatCannotProveWhoItIsIsRefused)
{
    EXPECT_EQ(Refusal(secret_ + QStringLiteral("/good/frag.mp4")), NetworkFailed);
    EXPECT_EQ(
        Refusal(plain_ + QStringLiteral("/to?") + secret_ + QStringLiteral("/good/frag.mp4")), NetworkFailed);
}

TEST_F(PlayerAddressTest, NobodyIsSentToALocalFile)
{
    const QString film = QStringLiteral("file://" TAQ_CLIPS "/frag.mp4");
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/to?") + film), NotAllowed);
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/list?") + film), NotAVideo);
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/list?concat:") + film), NotAVideo);
}

TEST_F(PlayerAddressTest, BeingSentRoundAndRoundEnds)
{
    EXPECT_EQ(Refusal(plain_ + QStringLiteral("/round")), NetworkFailed);
}

TEST_F(PlayerAddressTest, AServerThatIsSentOnToIsFollowed)
{
    EXPECT_TRUE(Opens(plain_ + QStringLiteral("/to?") + plain_ + QStringLiteral("/good/frag.mp4")));
}

TEST_F(PlayerAddressTest, AListOfTheWebPlaysItsParts)
{
    ASSERT_TRUE(Opens(plain_ + QStringLiteral("/list?") + plain_ + QStringLiteral("/good/hls/seg00.ts&")
        + plain_ + QStringLiteral("/good/hls/seg01.ts")));
    EXPECT_EQ(Seen(), 0);
}
