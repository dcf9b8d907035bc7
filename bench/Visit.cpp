#include "bench/Visit.h"

#include <chrono>
#include <thread>

Visited Visit(Reader& reader, const std::vector<int>& numbers, double pace)
{
    using Clock = std::chrono::steady_clock;
    const auto step = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(pace));
    Visited visited;
    Stopwatch watch;
    for (const int number : numbers) {
        const auto next = Clock::now() + step;
        const double before = watch.Elapsed().wall;
        reader.GoTo(number);
        visited.walls.push_back(watch.Elapsed().wall - before);
        watch.Rest();
        visited.wrong += reader.Seen() != number;
        std::this_thread::sleep_until(next);
        watch.GoOn();
    }
    visited.cost = watch.Elapsed();
    return visited;
}
