#include "media/player/Session.h"

#include "media/PlayList.h"
#include "media/player/Deadline.h"
#include "media/player/WithinMemory.h"

namespace player {

namespace {

using namespace std::chrono_literals;

// Longer than what the engine gives itself: it answers first, unless the system holds it.
constexpr auto OpenPatience = 16s;
constexpr auto ListPatience = 5s; // for a play list
constexpr auto AnswerPatience = 11s;

media::MediaError NoAnswer()
{
    return { media::Failure::TimedOut, "the engine does not answer" };
}

} // namespace

std::shared_ptr<Session> Session::Start(const media::Source& source, const View& view,
    std::shared_ptr<Mailbox> mail, const std::shared_ptr<std::atomic<int>>& running,
    SoundDeviceMaker makeSound)
{
    std::shared_ptr<Session> session(new Session(source, view, std::move(mail), std::move(makeSound)));
    session->thread_ = std::thread([session, running] {
        ++*running;
        session->Run();
        --*running;
        session->ended_.set_value();
    });
    return session;
}

Session::Session(
    const media::Source& source, const View& view, std::shared_ptr<Mailbox> mail, SoundDeviceMaker makeSound)
    : source_(source)
    , openedBy_(std::chrono::steady_clock::now() + OpenPatience)
{
    wires_.mail = std::move(mail);
    wires_.makeSound = std::move(makeSound);
    wires_.LookAt(view);
}

void Session::Run()
{
    std::unique_ptr<Engine> engine;
    try {
        opened_.set_value(WithinMemory([&] {
            {
                const Deadline deadline(wires_.interrupt, ListPatience);
                source_ = media::Followed(source_, wires_.interrupt);
            }
            engine = std::make_unique<Engine>(source_, wires_);
            return engine->Seek(0, media::Purpose::Step);
        }));
    } catch (...) {
        opened_.set_exception(std::current_exception());
        return;
    }
    Loop(*engine);
}

void Session::Loop(Engine& engine)
{
    while (!commands_.IsClosed()) {
        const Engine::Time next = engine.Work();
        if (const CommandQueue::Command command = commands_.Pop(next))
            command(engine);
    }
}

void Session::Close()
{
    wires_.mail->Close();
    commands_.Close();
    wires_.interrupt.Raise();
    wires_.soundInterrupt.Raise();
    wires_.DropShelf();
    if (ended_.get_future().wait_for(JoinLimit) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach();
}

bool Session::HasOpened() const
{
    return std::chrono::steady_clock::now() >= openedBy_ || first_.wait_for(0s) == std::future_status::ready;
}

Shot Session::First()
{
    if (first_.wait_until(openedBy_) != std::future_status::ready)
        throw NoAnswer();
    return first_.get();
}

/// Gives an order and waits for its result, or its failure.
template <typename Work> auto Session::Ask(Work work)
{
    using Result = std::invoke_result_t<Work, Engine&>;
    const auto task = std::make_shared<std::packaged_task<Result(Engine&)>>(
        [work](Engine& engine) { return WithinMemory([&] { return work(engine); }); });
    std::future<Result> answer = task->get_future();
    Order([task](Engine& engine) { (*task)(engine); });
    if (answer.wait_for(AnswerPatience) != std::future_status::ready)
        throw NoAnswer();
    return answer.get();
}

/// What changes the picture that is shown: pictures of before are stale, and for it is cut short what the
/// engine does on its own account.
void Session::Order(CommandQueue::Command command)
{
    wires_.DropShelf();
    ++turn_;
    wires_.Hurry();
    Push(std::move(command));
}

void Session::Push(CommandQueue::Command command)
{
    const auto obey = [turn = turn_, command = std::move(command)](
                          Engine& engine) { engine.Obey(turn, command); };
    if (!commands_.Push(obey))
        throw NoAnswer();
}

Shot Session::Seek(int number, media::Purpose purpose)
{
    return Ask([=](Engine& engine) { return engine.Seek(number, purpose); });
}

Shot Session::SeekTime(double seconds)
{
    return Ask([=](Engine& engine) { return engine.SeekTime(seconds); });
}

Shot Session::SeekEnd()
{
    return Ask([](Engine& engine) { return engine.SeekEnd(); });
}

void Session::Play(const Shot& shown, const PlayOptions& options)
{
    Order([=](Engine& engine) { engine.Play(shown, options); });
    playTurn_ = turn_;
}

void Session::Change(const PlayOptions& options)
{
    Push([=](Engine& engine) { engine.Change(options); });
}

Shot Session::Pause()
{
    return Ask([](Engine& engine) { return engine.Pause(); });
}

void Session::Redraw(const Shot& shown)
{
    wires_.OrderRedraw(shown);
    // The engine lets go of a walk, whose pictures were drawn for the view of before, and goes on with it
    // afterwards: who expects them goes on expecting. When the queue is full it is awake, and the walk ends.
    const bool isWalking = wires_.shelf.Hold();
    const bool isHeard = commands_.Push([this, isWalking](Engine& engine) {
        wires_.shelf.Release(); // first: held again, the walk waits for a redraw that is ordered from here on
        engine.Work();
        if (isWalking)
            engine.WalkAhead();
    });
    if (!isHeard)
        wires_.DropShelf();
}

void Session::WalkAhead(int first, int stride)
{
    if (wires_.shelf.Expects(first))
        return;
    wires_.shelf.Plan(first, stride, Known().frames - 1);
    if (!commands_.Push([](Engine& engine) { engine.WalkAhead(); }))
        wires_.DropShelf();
}

std::optional<Shot> Session::FromShelf(int number)
{
    return wires_.shelf.Take(number, AnswerPatience);
}

Facts Session::AwaitWhole(Millis limit)
{
    const Facts facts = Known();
    if (facts.isComplete)
        return facts;
    wires_.DropShelf(); // the engine does not wait for room on it
    commands_.Push([](Engine& engine) { engine.WantWholeIndex(); });
    return wires_.facts.Await(limit);
}

} // namespace player
