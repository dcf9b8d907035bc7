#pragma once

#include "bench/Cost.h"
#include "bench/Reader.h"

/// What a visit of pictures came to.
struct Visited {
    Cost cost;
    std::vector<double> walls; ///< seconds of each picture
    int wrong = 0; ///< pictures that were not the one asked for
};

/// Goes to all pictures in the order given and looks at each; a step begins pace seconds after the one before
/// at the soonest, which does not count.
Visited Visit(Reader& reader, const std::vector<int>& numbers, double pace = 0);
