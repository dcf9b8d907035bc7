#include "toolkit/FormFade.h"

#include "toolkit/LayeredWindow.h"
#include "toolkit/ScreenCopy.h"
#include "toolkit/WindowMessage.h"

#include <utility>

namespace {

// A form can be used while it still fades in.
constexpr quint32 FadeStyle =
    WindowStyle::Layered | WindowStyle::TopMost | WindowStyle::ToolWindow | WindowStyle::TransparentForInput;

} // namespace

FormFade::FormFade(FadeOrder order, std::function<void()> ended)
    : order_(std::move(order))
    , ended_(std::move(ended))
    , steps_(order_.milliseconds)
{
    windows_.SetOwner(*this);
    windows_.WindowClassRegister(order_.className, Qt::white);
    windows_.AddMsg(Message::Created);
    windows_.AddMsg(Message::Timer);
    const quint32 style = order_.host ? WindowStyle::Child : WindowStyle::Popup;
    window_ = windows_.WindowCreate(FadeStyle, style, 0, 0, 0, 0, 0, {}, order_.host);
}

void FormFade::Raise()
{
    if (order_.host && window_)
        window_->raise();
}

void FormFade::iWindow_Proc(bool&, qint32&, QWidget*& hWnd, qint32& uMsg, qintptr&, qintptr&)
{
    auto& window = static_cast<LayeredWindow&>(*hWnd);
    if (uMsg == Message::Created)
        Begin(window);
    else
        Tick(window);
}

void FormFade::Begin(LayeredWindow& window)
{
    const QRect& place = order_.place;
    const QImage copy =
        order_.host ? CopyInside(*order_.host, place, order_.leftOut) : CopyOfScreen(order_.form, place);
    window.UpdateLayered(place, copy, steps_.Alpha());
    window.show();
    window.raise();
    clock_.start();
    window.startTimer(FadeSteps::Interval, Qt::PreciseTimer);
}

void FormFade::Tick(LayeredWindow& window)
{
    if (steps_.Tick(clock_.elapsed()))
        return window.SetConstantAlpha(steps_.Alpha());
    const auto ended = ended_; // lives on when the fade goes
    ended();
}
