#include "edit/UndoRing.h"

#include <algorithm>

void UndoRing::CopyLast(const QImage& picture)
{
    ++undoCount_;
    if (++undoSlot_ > Slots)
        undoSlot_ = 1;
    slots_[size_t(undoSlot_ - 1)] = picture;
}

QImage UndoRing::Undo()
{
    if (slots_.front().isNull())
        return {};
    undoCount_ = std::clamp(undoCount_, 1, Slots);
    return slots_[size_t(undoCount_ - 1)];
}

void UndoRing::CountUndone()
{
    if (--undoCount_ < 1)
        undoCount_ = undoSlot_ = 0;
}
