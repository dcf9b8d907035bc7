#include "edit/NewSize.h"

#include "text/FieldCheck.h"

#include <algorithm>
#include <cmath>

namespace {

/// The length on one side that belongs to a length on the other.
int Scaled(int length, int from, int to)
{
    return int(std::min(std::lround(double(length) * to / from), long(NewSize::LargestNumber)));
}

} // namespace

NewSize::NewSize(QSize source)
    : source_(source)
{
    bars_[Width].maximum = WidestPicture;
    bars_[Height].maximum = std::max(1, Scaled(WidestPicture, source.width(), source.height()));
    SetBar(Width, source.width());
    SetBar(Height, source.height());
}

void NewSize::SetBar(Side side, int value)
{
    Bar& bar = bars_[side];
    bar.value = std::clamp(value, bar.minimum, bar.maximum);
    boxes_[side] = QString::number(bar.value);
}

void NewSize::MoveBar(Side side, int value)
{
    SetBar(side, value);
    if (keepsAspect_)
        Couple(side);
}

void NewSize::Type(Side side, const QString& text)
{
    boxes_[side] = text;
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || !bars_[side].Holds(number))
        return;
    bars_[side].value = number;
    if (keepsAspect_)
        Couple(side);
}

void NewSize::Recouple()
{
    SetBar(Height, Scaled(bars_[Width].value, source_.width(), source_.height()));
}

void NewSize::Couple(Side leading)
{
    const Side other = leading == Width ? Height : Width;
    const QSize source = leading == Width ? source_ : source_.transposed();
    const int length = Scaled(bars_[leading].value, source.width(), source.height());
    if (bars_[other].value != length && bars_[other].Holds(length))
        SetBar(other, length);
}

bool NewSize::HoldBoxes()
{
    bool wasTooLarge = false;
    for (const Side side : Sides) {
        if (FieldCheck::NumberIn(boxes_[side]) < LargestNumber)
            continue;
        SetBar(side, bars_[side].maximum);
        boxes_[side] = QString::number(LargestNumber);
        wasTooLarge = true;
    }
    return wasTooLarge;
}

bool NewSize::IsAcceptable() const
{
    return std::ranges::all_of(Sides, [this](Side side) {
        bool isNumber = false;
        const int number = boxes_[side].toInt(&isNumber);
        return isNumber && bars_[side].Holds(number);
    });
}
