#pragma once

#include <string>
#include <vector>

/// What some work took, in seconds. On a busy machine the wall says little and the processor much.
struct Cost {
    double wall = 0;
    double cpu = 0;

    Cost operator-(const Cost& other) const { return { wall - other.wall, cpu - other.cpu }; }
    Cost operator/(const Cost& other) const { return { wall / other.wall, cpu / other.cpu }; }
};

/// Measures this process with all its threads from its making on. While it rests, as for a check of what came
/// out, the calling thread's time does not count; what other threads do meanwhile does.
class Stopwatch {
public:
    Stopwatch();
    void Rest();
    void GoOn();
    Cost Elapsed() const;

private:
    Cost begin_;
    Cost restBegin_;
    Cost rested_;
};

/// Bytes of this process that stand in memory now.
double ResidentBytes();

/// Runs a program found along the path to its end and tells what it took with all it started itself. What it
/// says goes nowhere. Throws when it fails.
Cost CostOf(const std::vector<std::string>& command);

/// This very program, for a measurement in a process of its own.
std::string ThisProgram();
