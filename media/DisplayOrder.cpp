#include "media/DisplayOrder.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace media {

void DisplayOrder::Add(int ordinal, const PacketFact& fact, std::vector<int>& shown)
{
    switch (ordering_) {
    case Ordering::Straight:
    case Ordering::Unknown:
        shown.push_back(ordinal);
        return;
    case Ordering::HoldReferences:
        AddHeld(ordinal, fact, shown);
        return;
    case Ordering::ByCount:
        AddCounted(ordinal, fact, shown);
        return;
    }
}

void DisplayOrder::AddHeld(int ordinal, const PacketFact& fact, std::vector<int>& shown)
{
    if (fact.type == 'B' || fact.Has(PacketFact::SecondField)) {
        shown.push_back(ordinal);
        return;
    }
    if (held_ >= 0)
        shown.push_back(held_);
    held_ = ordinal;
}

void DisplayOrder::AddCounted(int ordinal, const PacketFact& fact, std::vector<int>& shown)
{
    if (fact.Has(PacketFact::SecondField)) {
        shown.push_back(ordinal);
        return;
    }
    if (fact.Has(PacketFact::Restart))
        Finish(shown);
    counted_.emplace(fact.order, ordinal);
    if (counted_.size() > DeepestReorder) {
        shown.push_back(counted_.begin()->second);
        counted_.erase(counted_.begin());
    }
}

void DisplayOrder::Finish(std::vector<int>& shown)
{
    if (held_ >= 0)
        shown.push_back(held_);
    held_ = -1;
    for (const auto& [count, ordinal] : counted_)
        shown.push_back(ordinal);
    counted_.clear();
}

std::vector<int> OrderOf(Ordering ordering, const std::vector<PacketFact>& facts, int first, int end)
{
    DisplayOrder order(ordering);
    std::vector<int> shown;
    for (int i = first; i < end; ++i)
        order.Add(i, facts[size_t(i)], shown);
    order.Finish(shown);
    return shown;
}

bool HasHoles(const std::vector<PacketFact>& facts, const std::vector<int>& displayOrder)
{
    std::vector<int64_t> counts;
    for (const int ordinal : displayOrder)
        if (!facts[size_t(ordinal)].Has(PacketFact::SecondField))
            counts.push_back(facts[size_t(ordinal)].order);
    std::adjacent_difference(counts.begin(), counts.end(), counts.begin());
    return counts.size() > 2
        && std::adjacent_find(counts.begin() + 1, counts.end(), std::not_equal_to<>()) != counts.end();
}

bool StampsAgree(const std::vector<PacketFact>& facts, const std::vector<int>& displayOrder)
{
    std::vector<int64_t> stamps;
    for (const int ordinal : displayOrder) {
        const PacketFact& fact = facts[size_t(ordinal)];
        if (fact.Has(PacketFact::SecondField))
            continue;
        if (fact.pts == NoStamp)
            return true;
        stamps.push_back(fact.pts);
    }
    if (std::is_sorted(stamps.begin(), stamps.end()))
        return true;
    std::sort(stamps.begin(), stamps.end());
    return std::adjacent_find(stamps.begin(), stamps.end()) != stamps.end();
}

} // namespace media
