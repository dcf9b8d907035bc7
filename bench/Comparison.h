#pragma once

#include "bench/Cost.h"

#include <functional>

/// One way to get the work done.
struct Side {
    std::string name;
    std::function<Cost()> run;
    double goal = 0; ///< the most of the peer's time that it should take; 0 for none
};

/// Runs peer and all of ours by turns, as often as TAQ_BENCH_ROUNDS says (5), and prints a line for each of
/// ours: the medians of what both took and of ours/peer of each round, so that a burden from outside falls on
/// both.
void Compare(const std::string& question, const Side& peer, const std::vector<Side>& ours);

/// The headings over the lines of Compare.
void PrintHead();

/// Rounds asked for.
int Rounds();

/// The value that a part of all, from 0 to 1, are not above; 0.5 is the median.
double Quantile(std::vector<double> values, double part);
