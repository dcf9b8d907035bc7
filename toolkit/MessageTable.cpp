#include "toolkit/MessageTable.h"

#include <algorithm>
#include <span>

void MessageTable::Add(qint32 message)
{
    if (message == AllMessages) {
        count_ = AllMessages;
        return;
    }
    // A count of nothing or of everything has no slots to look at; what stands in the array then stays, and
    // counts again once it has grown.
    const std::span listed(slots_.data(), size_t(std::max(count_, 0)));
    const auto place = std::find_if(
        listed.begin(), listed.end(), [message](qint32 slot) { return slot == Free || slot == message; });
    if (place != listed.end()) {
        *place = message;
        return;
    }
    slots_.push_back(message);
    count_ = int(slots_.size());
}

void MessageTable::Delete(qint32 message)
{
    if (message == AllMessages) {
        count_ = 0;
        return;
    }
    const std::span listed(slots_.data(), size_t(std::max(count_, 0)));
    const auto place = std::find(listed.begin(), listed.end(), message);
    if (place != listed.end())
        *place = Free;
}

void MessageTable::Clear()
{
    slots_.clear();
    count_ = 0;
}

bool MessageTable::Lets(qint32 message) const
{
    if (count_ < 0)
        return true;
    const auto end = slots_.begin() + count_;
    return std::find(slots_.begin(), end, message) != end;
}
