#pragma once

#include "media/player/CommandQueue.h"
#include "media/player/Engine.h"
#include <atomic>
#include <future>
#include <memory>
#include <thread>

namespace player {

/// One source from its opening to its dropping: an engine, its thread, and the way to talk with it. The
/// thread owns the session with whoever started it, so that a thread that hangs in the system can be left
/// behind. Everything public is for the user-interface thread. What fails throws media::MediaError.
class Session {
public:
    using Millis = std::chrono::milliseconds;

    /// Starts the thread, which opens the source. running counts the threads that have not ended.
    static std::shared_ptr<Session> Start(const media::Source& source, const View& view,
        std::shared_ptr<Mailbox> mail, const std::shared_ptr<std::atomic<int>>& running,
        SoundDeviceMaker makeSound);
    /// Ends the thread, within JoinLimit or behind our back.
    void Close();

    /// Whether the source is open, or the attempt has failed: First does not wait then.
    bool HasOpened() const;
    /// The first picture, once the source is open. To be asked for once.
    Shot First();

    /// Exactly picture number, or the nearest there is, made ready for the view.
    Shot Seek(int number, media::Purpose purpose);
    /// The picture that stands at a time, in seconds from the start of the media.
    Shot SeekTime(double seconds);
    Shot SeekEnd();
    /// Plays on behind the picture shown; does not wait.
    void Play(const Shot& shown, const PlayOptions& options);
    /// Options for what is playing; what was shown so far, and an end that it came to, hold.
    void Change(const PlayOptions& options);
    /// The picture that playing showed last; null when nothing was playing any more.
    Shot Pause();

    /// From now on pictures are made for this view.
    void LookAt(const View& view) { wires_.LookAt(view); }
    /// Has the shown picture made ready for the view; mail brings it.
    void Redraw(const Shot& shown);
    /// Has the pictures first, first + stride, … made ahead together with their stills, unless they are
    /// already.
    void WalkAhead(int first, int stride);
    /// Whether FromShelf would not wait. Mail tells when that may have changed.
    bool IsOnShelf(int number) const { return wires_.shelf.IsSettled(number); }
    /// A picture made ahead, when it was or is about to be.
    std::optional<Shot> FromShelf(int number);

    Facts Known() const { return wires_.facts.Read(); }
    /// The facts once the index is whole, or as they stand after limit.
    Facts AwaitWhole(Millis limit);

    /// Counts the orders that change what is shown; pictures of an earlier one are stale.
    int Turn() const { return turn_; }
    /// Whether what was told in this turn is about the last playing, and not about one before.
    bool IsOfLastPlay(int turn) const { return turn >= playTurn_; }

    static constexpr Millis JoinLimit { 2000 };

private:
    Session(const media::Source& source, const View& view, std::shared_ptr<Mailbox> mail,
        SoundDeviceMaker makeSound);
    void Run();
    void Loop(Engine& engine);
    template <typename Work> auto Ask(Work work);
    void Order(CommandQueue::Command command);
    void Push(CommandQueue::Command command);

    media::Source source_;
    Wires wires_;
    CommandQueue commands_;
    std::chrono::steady_clock::time_point openedBy_; ///< or it has failed
    std::promise<Shot> opened_;
    std::future<Shot> first_ = opened_.get_future();
    std::promise<void> ended_;
    std::thread thread_;
    int turn_ = 0;
    int playTurn_ = 0;
};

} // namespace player
