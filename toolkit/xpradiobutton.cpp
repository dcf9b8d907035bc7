#include "toolkit/xpradiobutton.h"

#include "toolkit/Form.h"

xpradiobutton::xpradiobutton(QWidget* parent)
    : CaptionControl(parent)
{
}

void xpradiobutton::SetValue(bool value)
{
    value_ = value;
    ShowCheck();
}

void xpradiobutton::AfterClick()
{
    QWidget* form = FormOf(this);
    const auto others = form->findChildren<xpradiobutton*>();
    for (xpradiobutton* other : others) {
        if (other != this && FormOf(other) == form)
            other->SetValue(false);
    }
    SetValue(true);
}

void xpradiobutton::paintEvent(QPaintEvent*)
{
    PaintWith(Face::DiscGround, Face::Ring, value_ ? Face::Dot : Face::None);
}
