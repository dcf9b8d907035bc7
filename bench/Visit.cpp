#include "bench/Visit.h"

Visited Visit(Reader& reader, const std::vector<int>& numbers)
{
    Visited visited;
    Stopwatch watch;
    for (const int number : numbers) {
        const double before = watch.Elapsed().wall;
        reader.GoTo(number);
        visited.walls.push_back(watch.Elapsed().wall - before);
        watch.Rest();
        visited.wrong += reader.Seen() != number;
        watch.GoOn();
    }
    visited.cost = watch.Elapsed();
    return visited;
}
