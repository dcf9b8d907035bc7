#include "bench/Comparison.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int UsualRounds = 5;

Cost MedianOf(const std::vector<Cost>& costs)
{
    std::vector<double> walls;
    std::vector<double> cpus;
    for (const Cost& cost : costs) {
        walls.push_back(cost.wall);
        cpus.push_back(cost.cpu);
    }
    return { Quantile(walls, 0.5), Quantile(cpus, 0.5) };
}

void PrintRow(const std::string& question, const Side& peer, const Side& side,
    const std::vector<Cost>& theirs, const std::vector<Cost>& ours)
{
    std::vector<Cost> ratios;
    for (size_t i = 0; i < ours.size(); ++i)
        ratios.push_back(ours[i] / theirs[i]);
    const Cost us = MedianOf(ours);
    const Cost them = MedianOf(theirs);
    const Cost ratio = MedianOf(ratios);
    std::printf("| %s | %s | %.2f / %.2f | %s | %.2f / %.2f | %.2f | **%.2f** |", question.c_str(),
        side.name.c_str(), us.wall, us.cpu, peer.name.c_str(), them.wall, them.cpu, ratio.wall, ratio.cpu);
    if (side.goal > 0)
        std::printf(" %.2f |\n", side.goal);
    else
        std::printf(" |\n");
    std::fflush(stdout);
}

} // namespace

double Quantile(std::vector<double> values, double part)
{
    if (values.empty())
        return NAN;
    std::ranges::sort(values);
    const auto place = size_t(std::ceil(part * double(values.size())));
    return values[std::clamp<size_t>(place, 1, values.size()) - 1];
}

int Rounds()
{
    const char* asked = std::getenv("TAQ_BENCH_ROUNDS");
    return asked ? std::max(std::atoi(asked), 1) : UsualRounds;
}

void PrintHead()
{
    std::printf("| what | ours | wall / CPU s | peer | wall / CPU s | ratio wall | ratio CPU | goal |\n"
                "|---|---|---|---|---|---|---|---|\n");
}

void Compare(const std::string& question, const Side& peer, const std::vector<Side>& ours)
{
    std::vector<Cost> theirs;
    std::vector<std::vector<Cost>> costs(ours.size());
    for (int round = 0; round < Rounds(); ++round) {
        theirs.push_back(peer.run());
        for (size_t i = 0; i < ours.size(); ++i)
            costs[i].push_back(ours[i].run());
    }
    for (size_t i = 0; i < ours.size(); ++i)
        PrintRow(question, peer, ours[i], theirs, costs[i]);
}
