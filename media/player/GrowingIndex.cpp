#include "media/player/GrowingIndex.h"

#include "media/player/Deadline.h"
#include "media/player/WithinMemory.h"
#include <algorithm>
#include <limits>

namespace player {

namespace {

using namespace std::chrono_literals;

constexpr auto Limit = 5s; // to reach the place that a call asks for
constexpr double LongestLastPicture = 10; // seconds; durations in files are no promise

media::MediaError NotInTime()
{
    return { media::Failure::TimedOut, "the rest of the media does not come" };
}

} // namespace

GrowingIndex::GrowingIndex(
    media::FrameServer& server, media::Interrupt& interrupt, FactSheet& facts, bool isAddress)
    : server_(server)
    , interrupt_(interrupt)
    , facts_(facts)
    , isAddress_(isAddress)
{
}

int GrowingIndex::Reach(int number)
{
    if (number >= server_.KnownFrames() && !server_.IsComplete()) {
        const Deadline deadline(interrupt_, Limit);
        Extend(std::min(number, std::numeric_limits<int>::max() - 1) + 1 - server_.KnownFrames());
    }
    if (number >= server_.KnownFrames() && !IsWhole())
        throw NotInTime();
    return std::clamp(number, 0, std::max(server_.KnownFrames() - 1, 0));
}

bool GrowingIndex::Knows(double seconds) const
{
    const int known = server_.KnownFrames();
    return IsWhole() || (known > 0 && (seconds <= server_.TimeOf(0) || server_.TimeOf(known - 1) > seconds));
}

int GrowingIndex::Near(double seconds)
{
    const Deadline deadline(interrupt_, Limit);
    while (!Knows(seconds) && Extend(Slice)) { }
    return server_.NumberAt(seconds);
}

int GrowingIndex::ReachTime(double seconds)
{
    const int number = Near(seconds);
    if (!Knows(seconds))
        throw NotInTime();
    return number;
}

int GrowingIndex::ReachLast()
{
    const Deadline deadline(interrupt_, Limit);
    while (!server_.IsComplete() && Extend(Slice)) { }
    if (!IsWhole() && !IsLive())
        throw NotInTime();
    return std::max(server_.KnownFrames() - 1, 0);
}

bool GrowingIndex::Reaches(int number)
{
    if (number >= server_.KnownFrames() && !server_.IsComplete()) {
        const Deadline deadline(interrupt_, Limit);
        Extend(number + PlayingSlice - server_.KnownFrames());
    }
    if (number >= server_.KnownFrames() && !IsWhole())
        throw NotInTime();
    return number < server_.KnownFrames();
}

double GrowingIndex::EndOf(int number)
{
    const double start = TimeOf(number);
    if (Reaches(number + 1))
        return TimeOf(number + 1);
    return std::clamp(server_.Duration(), start, start + LongestLastPicture);
}

std::optional<int> GrowingIndex::Last()
{
    return server_.IsComplete() ? std::optional(server_.KnownFrames() - 1) : std::nullopt;
}

bool GrowingIndex::Extend(int pictures)
{
    if (IsWhole())
        return false;
    const int known = server_.KnownFrames();
    try {
        WithinMemory([&] { server_.ExtendIndex(known + pictures); });
    } catch (const media::MediaError& error) {
        // What is known can still be played; whoever needs the rest will be told by the decoder.
        if (error.failure != media::Failure::TimedOut)
            failure_ = error.failure;
        Tell();
        return false;
    }
    Tell();
    return server_.IsComplete() || server_.KnownFrames() > known;
}

void GrowingIndex::Tell()
{
    facts_.Write({ server_.KnownFrames(), IsWhole(), server_.Duration(), server_.Size(), IsLive() });
}

} // namespace player
