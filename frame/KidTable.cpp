#include "frame/KidTable.h"

#include "app/ApplicationState.h"

void KidTable::RedimKids()
{
    state_.Kids.resize(size_t(state_.KidCount) + 1);
}

int KidTable::AddKid(quintptr handle)
{
    state_.Kids.at(size_t(state_.KidCount) - 1) = handle;
    return 0;
}

int KidTable::RemoveKid(quintptr handle, const std::function<void()>& found)
{
    for (size_t slot = 0; slot < size_t(state_.KidCount); ++slot) {
        if (state_.Kids.at(slot) != handle)
            continue;
        state_.Kids[slot] = 0;
        found();
    }
    return 0;
}

int KidTable::FindKid(quintptr handle) const
{
    int found = 0;
    for (size_t slot = 0; slot < size_t(state_.KidCount); ++slot)
        if (state_.Kids.at(slot) == handle)
            found = int(slot);
    return found;
}

void KidTable::MakeKidActive(
    int index, const std::function<quintptr()>& active, const std::function<void()>& pushBack) const
{
    // A slot that the table does not have is a hole like any other.
    const quintptr kid = size_t(index) < state_.Kids.size() ? state_.Kids[size_t(index)] : 0;
    for (int rounds = state_.KidCount; rounds > 0 && active() != kid; --rounds)
        pushBack();
}
