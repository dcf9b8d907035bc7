#pragma once

#include "bench/Cost.h"
#include "bench/Reader.h"

/// What a visit of pictures came to.
struct Visited {
    Cost cost;
    std::vector<double> walls; ///< seconds of each picture
    int wrong = 0; ///< pictures that were not the one asked for
};

/// Goes to all pictures in the order given and looks at each.
Visited Visit(Reader& reader, const std::vector<int>& numbers);
