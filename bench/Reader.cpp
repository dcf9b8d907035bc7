#include "bench/Reader.h"

#include "capture/SavePicture.h"
#include "media/player/PlayerControl.h"
#include "tests/clips/BarCode.h"

#include <climits>

namespace {

constexpr QSize EnoughToRead { 480, 270 };

class Engine : public Reader {
public:
    Engine(const QString& clip, media::Purpose purpose)
        : server_(media::FrameServer::Open({ media::Source::Kind::File, clip.toLocal8Bit() }, interrupt_))
        , purpose_(purpose)
    {
        server_->ExtendIndex(INT_MAX);
    }
    void GoTo(int number) override { picture_ = server_->Get(number, purpose_); }
    int Seen() override { return NumberIn(picture_.ToScreen(EnoughToRead)); }

private:
    media::Interrupt interrupt_;
    std::unique_ptr<media::FrameServer> server_;
    media::Purpose purpose_;
    media::Picture picture_;
};

class Player : public Reader {
public:
    explicit Player(const QString& clip)
    {
        player_.resize(960, 540);
        player_.show();
        player_.SetSourceFile(clip);
        player_.FrameCount(); // the index is whole
    }
    void GoTo(int number) override
    {
        const int step = number - player_.CurrentFrame();
        if (step == 1)
            player_.NextFrame();
        else if (step == -1)
            player_.PreviousFrame();
        else
            player_.SetCurrentFrame(number);
    }
    int Seen() override { return NumberIn(player_.GetStillPicture(StillTimeout)); }

private:
    PlayerControl player_;
};

} // namespace

std::unique_ptr<Reader> EngineReader(const QString& clip, media::Purpose purpose)
{
    return std::make_unique<Engine>(clip, purpose);
}

std::unique_ptr<Reader> PlayerReader(const QString& clip)
{
    return std::make_unique<Player>(clip);
}
