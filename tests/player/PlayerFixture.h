#pragma once

#include "media/player/PlayerControl.h"
#include "tests/clips/BarCode.h"
#include "tests/clips/Clips.h"
#include "tests/testing/Await.h"

#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

/// A player in a window of its own, and what its user sees and hears of it.
class PlayerFixture : public testing::Test {
protected:
    static constexpr int Patience = 20000;

    PlayerFixture()
    {
        player_->SetDisplaySize(ltmmPlay::Normal);
        player_->show();
    }
    void Load(const QString& clip)
    {
        player_->SetSourceFile(ClipPath(clip));
        ASSERT_EQ(player_->SourceKind(), ltmmPlay::FileSource) << clip.toStdString();
    }
    /// The number in the pixels on the screen.
    int Seen() const { return NumberIn(OnScreen(player_->size())); }
    /// The same where the picture is size large and stands in the middle.
    int SeenAt(QSize size) const { return NumberIn(OnScreen(size)); }
    int SeenTag() const
    {
        const auto code = ReadBarCode(OnScreen(player_->size()));
        return code ? code->Tag : -1;
    }
    QImage OnScreen(QSize size) const
    {
        QRect place({}, size);
        place.moveCenter(player_->rect().center());
        return player_->grab(place).toImage();
    }
    template <typename Condition> static bool Wait(Condition condition)
    {
        return Await(condition, std::chrono::milliseconds(Patience));
    }
    bool WaitForEnd() const
    {
        return Wait([this] { return player_->State() == ltmmPlay::Stopped; });
    }
    /// Lets time pass: another player plays up to a frame.
    static void LetAnotherPlayTo(int frame)
    {
        PlayerControl other;
        other.SetSourceFile(ClipPath(QStringLiteral("h264_closed.mp4")));
        other.Run();
        ASSERT_TRUE(Wait([&] { return other.CurrentFrame() >= frame; }));
    }
    std::vector<int> Reported() const
    {
        std::vector<int> places;
        for (const QList<QVariant>& report : progress_)
            places.push_back(report[0].toInt());
        return places;
    }

    std::unique_ptr<PlayerControl> player_ = std::make_unique<PlayerControl>(nullptr, player::AwaitWithBox);
    QSignalSpy progress_ { player_.get(), &ltmmPlay::PlaybackProgress };
    QSignalSpy moves_ { player_.get(), &ltmmPlay::PositionChanged };
    QSignalSpy selections_ { player_.get(), &ltmmPlay::SelectionChanged };
    QSignalSpy errors_ { player_.get(), &ltmmPlay::PlayerError };
};
