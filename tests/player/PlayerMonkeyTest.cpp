// A hand that presses anything in any order. TAQ_MONKEY_ACTIONS sets how often, for a longer run.
#include "tests/player/PictureWalk.h"
#include "tests/player/PlayerFixture.h"

#include <array>
#include <random>

namespace {

int ActionCount()
{
    bool isSet = false;
    const int count = qEnvironmentVariableIntValue("TAQ_MONKEY_ACTIONS", &isSet);
    return isSet ? count : 1500;
}

class PlayerMonkeyTest : public PlayerFixture, public testing::WithParamInterface<const char*> {
protected:
    std::mt19937 random_ { 20261121 };

    int Number(int below) { return int(random_() % unsigned(std::max(1, below))); }
    double Part() { return Number(1001) / 1000.0; }

    /// One thing that a user can do; what a control refuses it says by ControlError.
    void Act()
    {
        using Action = void (*)(PlayerMonkeyTest&);
        static constexpr Action Actions[] {
            [](PlayerMonkeyTest& hand) { hand.player_->Run(); },
            [](PlayerMonkeyTest& hand) { hand.player_->Pause(); },
            [](PlayerMonkeyTest& hand) { hand.player_->Stop(); },
            [](PlayerMonkeyTest& hand) { hand.player_->NextFrame(); },
            [](PlayerMonkeyTest& hand) { hand.player_->PreviousFrame(); },
            [](PlayerMonkeyTest& hand) {
                hand.player_->SetCurrentFrame(hand.Number(hand.player_->FrameCount()));
            },
            [](PlayerMonkeyTest& hand) {
                hand.player_->SetCurrentPosition(hand.Part() * hand.player_->Duration());
            },
            [](PlayerMonkeyTest& hand) { hand.player_->SetTrackingPosition(hand.Number(10001)); },
            [](PlayerMonkeyTest& hand) { hand.player_->SeekStart(); },
            [](PlayerMonkeyTest& hand) { hand.player_->SeekEnd(); },
            [](PlayerMonkeyTest& hand) { hand.player_->SetRate(0.1 + hand.Part() * 4.9); },
            [](PlayerMonkeyTest& hand) { hand.player_->MarkSelectionStart(); },
            [](PlayerMonkeyTest& hand) { hand.player_->MarkSelectionEnd(); },
            [](PlayerMonkeyTest& hand) { hand.player_->SetSelectionStart(0); },
            [](PlayerMonkeyTest& hand) { hand.player_->SetSelectionEnd(hand.player_->Duration()); },
            [](PlayerMonkeyTest& hand) { hand.player_->SetAutoRewind(hand.Number(2) == 1); },
            [](PlayerMonkeyTest& hand) { hand.player_->SetPlayCount(hand.Number(2)); },
            [](PlayerMonkeyTest& hand) { hand.player_->SetMute(hand.Number(2) == 1); },
            [](PlayerMonkeyTest& hand) {
                hand.player_->SetDisplaySize(ltmmPlay::DisplayMode(hand.Number(6)));
            },
            [](PlayerMonkeyTest& hand) { hand.player_->ToggleFullScreen(); },
            [](PlayerMonkeyTest& hand) { hand.player_->GetStillPicture(5000); },
            [](PlayerMonkeyTest&) { QCoreApplication::processEvents(); },
        };
        try {
            Actions[Number(int(std::size(Actions)))](*this);
        } catch (const ControlError&) {
            ++refusals_;
        }
    }

    /// The number of the still, by the walk or else in its pixels, and the number that the player names,
    /// while nothing plays.
    std::pair<int, int> NumbersAtRest(const std::vector<size_t>& walk)
    {
        player_->Pause();
        player_->SetCurrentFrame(Number(player_->FrameCount()));
        const QImage still = player_->GetStillPicture(5000);
        const int named = player_->CurrentFrame();
        return { walk.empty() ? NumberIn(still) : NumberInWalk(walk, still, named), named };
    }

    int refusals_ = 0;
};

TEST_P(PlayerMonkeyTest, NothingThatIsPressedInAnyOrderBreaksItOrItsNumbers)
{
    const bool isSample = QByteArray(GetParam()).startsWith("samples/");
    const QString sample = QStringLiteral(SOURCE_DIR "/resources/") + QLatin1String(GetParam());
    const auto walk = isSample ? PicturesInOrder(sample) : std::vector<size_t>();
    if (isSample)
        player_->SetSourceFile(sample);
    else
        Load(QLatin1String(GetParam()));
    ASSERT_EQ(player_->SourceKind(), ltmmPlay::FileSource);
    const int frames = player_->FrameCount();
    for (int action = 0; action < ActionCount(); ++action) {
        Act();
        if (action % 50 != 49)
            continue;
        const auto [seen, named] = NumbersAtRest(walk);
        ASSERT_EQ(seen, named) << "after " << action << " actions";
    }
    EXPECT_EQ(player_->FrameCount(), frames);
    EXPECT_TRUE(errors_.empty());
    EXPECT_LT(refusals_, ActionCount() / 4);
}

INSTANTIATE_TEST_SUITE_P(Clips, PlayerMonkeyTest,
    testing::Values("samples/Aurora.avi", "samples/Sunset.mpg", "samples/Balloons.wmv", "mpeg4_bf.avi",
        "h264_opengop.mp4", "mpeg2_interlaced.mpg"),
    [](const auto& clip) {
        return QString::fromLatin1(clip.param).section(u'/', -1).section(u'.', 0, 0).toStdString();
    });

} // namespace
