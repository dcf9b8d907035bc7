#pragma once

#include "media/player/GrowingIndex.h"
#include "media/player/Playback.h"
#include "media/player/SoundPath.h"
#include "media/player/StepAhead.h"
#include "media/player/Wires.h"

namespace player {

/// Decodes and plays one source. Everything here runs on the engine thread; failures are media::MediaError.
class Engine {
public:
    using Time = Playback::Time;

    /// Opens the source.
    Engine(const media::Source& source, Wires& wires);

    /// Exactly picture number, or the nearest there is. Playing goes on from there.
    Shot Seek(int number, media::Purpose purpose);
    /// The picture that stands at a time.
    Shot SeekTime(double seconds);
    Shot SeekEnd();

    /// Plays on behind the picture shown, or from the selection's start when it stands outside or at the end
    /// of it.
    void Play(const Shot& shown, const PlayOptions& options);
    /// New options for what is playing, if anything is.
    void Change(const PlayOptions& options);
    /// The picture that was shown last; null when nothing was playing.
    Shot Pause();

    /// Fills the shelf until its plan is dropped or done.
    void WalkAhead();
    /// Reads the whole index in the background, also that of an address, which else grows with what is
    /// played.
    void WantWholeIndex() { wantsWholeIndex_ = true; }

    /// Does what the user ordered; its failure is told like one of playing.
    void Obey(int turn, const std::function<void(Engine&)>& order);
    /// One piece of what is to be done without a command; the time of the next one.
    Time Work();

private:
    Shot Show(int number, media::Purpose purpose);
    Shot Render(const media::Picture& picture) const;
    Shot ShotOf(const media::Picture& picture) const;
    /// Makes the shot ready for the screen; also on the thread that makes the stills.
    void Draw(Shot& shot) const;

    void PlayFrom(int shown, int next);
    int Following(int shown, const PlaySpan& span);
    PlaySpan Span();
    std::unique_ptr<MediaClock> MakeClock(double from);
    void Guard(const std::function<void()>& work);
    void Finish();
    void Fail(media::Failure failure);

    void FillShelf();
    void Redraw();
    Time WorkIdle();
    Time WorkPlaying();
    bool PrepareSteps();

    Wires& wires_;
    media::Source source_;
    bool isAddress_;
    std::unique_ptr<media::FrameServer> server_;
    std::unique_ptr<GrowingIndex> index_;
    std::unique_ptr<SoundPath> sound_; ///< from the first playing on, where there is sound
    std::unique_ptr<Playback> playback_;
    PlayOptions options_;
    Shot shown_; ///< while playing
    int turn_ = 0;
    StepAhead steps_;
    bool wantsWholeIndex_ = false;
};

} // namespace player
