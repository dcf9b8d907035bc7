#pragma once

#include <QtGlobal>

#include <functional>

class ApplicationState;

/// The table of open capture windows, Kids and KidCount of the application state. It is never compacted: a
/// removed kid leaves the value 0 in its slot, and a new one takes the slot at KidCount - 1 whatever stands
/// there; callers rely on the places of the others.
class KidTable {
public:
    explicit KidTable(ApplicationState& state)
        : state_(state)
    {
    }

    /// Gives Kids an upper bound of KidCount, keeping its contents.
    void RedimKids();
    /// Stores the handle in slot KidCount - 1. The caller raises KidCount and calls RedimKids first. Always
    /// 0.
    int AddKid(quintptr handle);
    /// Empties every slot below KidCount that holds the handle, and calls found for each. The caller lowers
    /// KidCount. Always 0.
    int RemoveKid(quintptr handle, const std::function<void()>& found);
    /// The last slot below KidCount that holds the handle; 0 also when none does.
    int FindKid(quintptr handle) const;
    /// Brings a kid to the top by pushing the active child back, at most KidCount times.
    /// active tells the handle of the active child, pushBack sends that child behind all others.
    void MakeKidActive(
        int index, const std::function<quintptr()>& active, const std::function<void()>& pushBack) const;

private:
    ApplicationState& state_;
};
