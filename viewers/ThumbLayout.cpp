#include "viewers/ThumbLayout.h"

QPoint ThumbLayout::Next(int panelWidth)
{
    if (isEmpty_) {
        isEmpty_ = false;
        rowCount_ = 1;
        return last_ = { Left, Top };
    }
    const int left = last_.x() + cell_.width() + Gap;
    if (left + cell_.width() <= panelWidth - RightMargin)
        return last_ = { left, last_.y() };
    ++rowCount_;
    last_ = { Left, last_.y() + cell_.height() + Gap };
    if (last_.y() + cell_.height() > panelHeight_)
        panelHeight_ += cell_.height() + GrowthBelow;
    return last_;
}
