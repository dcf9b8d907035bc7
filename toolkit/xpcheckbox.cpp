#include "toolkit/xpcheckbox.h"

xpcheckbox::xpcheckbox(QWidget* parent)
    : CaptionControl(parent)
{
}

void xpcheckbox::SetValue(int value)
{
    if (value < Clear || value > Set)
        return;
    value_ = value;
    ShowCheck();
}

int xpcheckbox::Cell() const
{
    constexpr int StatesPerValue = 4;
    return value_ * StatesPerValue + static_cast<int>(ShownState());
}

void xpcheckbox::AfterClick()
{
    SetValue(value_ == Clear ? Set : Clear);
}

void xpcheckbox::paintEvent(QPaintEvent*)
{
    constexpr Face Marks[] { Face::None, Face::CheckGrey, Face::CheckSet };
    PaintWith(Face::BoxGround, Face::Box, Marks[value_]);
}
