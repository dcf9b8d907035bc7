#include "toolkit/ucShadow.h"

#include "toolkit/LayeredWindow.h"
#include "toolkit/ScreenCopy.h"
#include "toolkit/SystemColors.h"

#include <QApplication>
#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

constexpr int MostDepth = 99;
constexpr QRgb ClassBackground = qRgb(255, 255, 255);
constexpr quint32 StripStyle = WindowStyle::Layered | WindowStyle::TransparentForInput
    | WindowStyle::NoParentNotify
    | WindowStyle::ToolWindow; // a window of its own stands in no list of windows
// A form can be used while it still fades in.
constexpr quint32 FadeStyle =
    WindowStyle::Layered | WindowStyle::TopMost | WindowStyle::ToolWindow | WindowStyle::TransparentForInput;
constexpr ShadowStrip::Side Sides[] { ShadowStrip::Right, ShadowStrip::Bottom };

} // namespace

ucShadow::ucShadow(QWidget* form, CompositingTest test)
    : QObject(form)
    , form_(*form)
    , test_(std::move(test))
    , resolvedColor_(ColorOf(color_).rgb())
{
    setObjectName(QStringLiteral("Shadow"));
    TestCapability();
    Hook();
    if (isLayered_)
        MakeStrips();
}

ucShadow::~ucShadow() = default;

// The hook is set without a capable platform too: a form is made alone, and often comes to stand inside
// another one, where more is possible.
void ucShadow::Hook()
{
    subclass_.Subclass(form_, *this);
    for (const qint32 message : { Message::PositionChanged, Message::Size, Message::Sizing, Message::Moving,
             Message::EndOfSizeOrMove, Message::ShowHide, Message::DisplayChange })
        subclass_.AddMsg(message, cSubclass::Before);
    if (IsXP())
        subclass_.AddMsg(Message::ThemeChange, cSubclass::Before);
}

void ucShadow::TestCapability()
{
    platform_ = test_();
    isLayered_ = Host() ? platform_.children : platform_.windows;
}

QWidget* ucShadow::Host() const
{
    return form_.isWindow() ? nullptr : form_.parentWidget();
}

QString ucShadow::ClassName(const char* kind) const
{
    return QString::number(quintptr(&form_)) + QLatin1String(kind);
}

bool ucShadow::IsSysFadeEnabled()
{
    return QApplication::isEffectEnabled(Qt::UI_AnimateMenu);
}

void ucShadow::SetColor(quint32 color)
{
    if (color == std::exchange(color_, color))
        return;
    resolvedColor_ = ColorOf(color).rgb();
    Redraw();
}

void ucShadow::SetDepth(int depth)
{
    const int clamped = std::clamp(depth, 0, MostDepth);
    if (clamped != std::exchange(depth_, clamped))
        Redraw();
}

void ucShadow::SetSoftShadow(bool soft)
{
    if (soft != std::exchange(isSoft_, soft))
        Redraw();
}

void ucShadow::SetTransparency(int opacity)
{
    const int kept = opacity & 0xff;
    if (kept != std::exchange(transparency_, kept))
        Redraw();
}

void ucShadow::SetVisible(bool visible)
{
    if (visible != std::exchange(isVisible_, visible))
        ShowStrips(isShown_, Force::Yes);
}

void ucShadow::iSubclass_Proc(bool, bool&, qint32&, QWidget*&, qint32& uMsg, qintptr& wParam, qintptr& lParam)
{
    if (uMsg == Message::DisplayChange)
        return FollowDisplay();
    if (uMsg == Message::ThemeChange) {
        FollowDisplay();
        return Redraw();
    }
    if (!isLayered_)
        return;
    switch (uMsg) {
    case Message::PositionChanged:
        position_ = WindowPosition::At(lParam);
        if (!isInDrag_)
            Follow(position_);
        break;
    case Message::Size:
        if (SizeKind(wParam) == SizeKind::Restored && form_.isVisible() && !isInDrag_)
            ShowStrips(true);
        break;
    case Message::Sizing:
        if (hidesInSize_)
            HideInDrag();
        break;
    case Message::Moving:
        if (hidesInMove_)
            HideInDrag();
        break;
    case Message::EndOfSizeOrMove:
        EndDrag();
        break;
    case Message::ShowHide:
        if (fadesIn_ && wParam && lParam == 0)
            StartFade(fadeTime_, true);
        break;
    default:
        break;
    }
}

void ucShadow::FollowDisplay()
{
    TestCapability();
    const bool isElsewhere = host_ != Host();
    if (strips_ && (!isLayered_ || isElsewhere))
        DropStrips();
    if (!isLayered_ || strips_)
        return;
    MakeStrips();
    Redraw();
    if (isVisible_ && form_.isVisible())
        ShowStrips(true, Force::Yes);
}

void ucShadow::MakeStrips()
{
    host_ = Host();
    strips_ = std::make_unique<cWindow>();
    strips_->WindowClassRegister(ClassName("ShadowCls"), ClassBackground);
    const quint32 style = host_ ? WindowStyle::Child : WindowStyle::Popup;
    QWidget* const owner = host_ ? host_.data() : &form_;
    for (const ShadowStrip::Side side : Sides)
        strip_[side] = strips_->WindowCreate(StripStyle, style, 0, 0, 0, 0, 0, {}, owner);
    drawnWidth_ = 0;
    drawnHeight_ = 0;
    isShown_ = false;
}

void ucShadow::DropStrips()
{
    strips_.reset();
    isShown_ = false;
}

void ucShadow::Draw(ShadowStrip::Side side)
{
    if (side == ShadowStrip::Right)
        drawnHeight_ = form_.height();
    else
        drawnWidth_ = form_.width();
    if (!strip_[side])
        return;
    const qreal scale = form_.devicePixelRatioF();
    const QRect place = ShadowStrip::Place(side, form_.geometry(), depth_);
    QImage picture =
        ShadowStrip { side, (QSizeF(place.size()) * scale).toSize(), isSoft_ }.Picture(resolvedColor_);
    if (side == ShadowStrip::Right && IsLuna())
        ShadowStrip::RoundCorner(picture);
    picture.setDevicePixelRatio(scale);
    strip_[side]->UpdateLayered(place, picture, transparency_);
}

void ucShadow::Redraw()
{
    // What a hidden form has missed is drawn at its next position.
    drawnWidth_ = 0;
    drawnHeight_ = 0;
    if (!isLayered_ || !form_.isVisible())
        return;
    for (const ShadowStrip::Side side : Sides)
        Draw(side);
}

void ucShadow::Follow(const WindowPosition& position)
{
    if (position.flags >= WindowPosition::Hiding)
        return ShowStrips(false);
    if (position.width != drawnWidth_)
        Draw(ShadowStrip::Bottom);
    if (position.height != drawnHeight_)
        Draw(ShadowStrip::Right);
    MoveStrips();
    if (position.flags & WindowPosition::Showing)
        ShowStrips(true);
}

void ucShadow::MoveStrips()
{
    for (const ShadowStrip::Side side : Sides) {
        if (!strip_[side])
            continue;
        strip_[side]->setGeometry(ShadowStrip::Place(side, position_.Place(), depth_));
        // The form's own shadow falls on what lies below the form, and not on what lies above.
        if (host_ && !(position_.flags & WindowPosition::KeepsOrder))
            strip_[side]->stackUnder(&form_);
    }
    if (host_ && fadeWindow_ && !(position_.flags & WindowPosition::KeepsOrder))
        fadeWindow_->raise();
}

void ucShadow::HideInDrag()
{
    if (std::exchange(isInDrag_, true))
        return;
    ShowStrips(false);
}

void ucShadow::EndDrag()
{
    if (!std::exchange(isInDrag_, false))
        return;
    Follow(position_);
    ShowStrips(true);
}

void ucShadow::ShowStrips(bool shown, Force force)
{
    if (shown == std::exchange(isShown_, shown) && force == Force::No)
        return;
    for (const auto& strip : strip_)
        if (strip)
            strip->setVisible(shown && isVisible_);
}

bool ucShadow::FadeOut(int milliseconds, bool wait)
{
    if (!isLayered_ || !form_.isVisible() || form_.window()->isMinimized())
        return true;
    const QPointer<ucShadow> alive(this);
    StartFade(milliseconds, false);
    isAwaited_ = wait;
    form_.hide();
    while (alive && isAwaited_) {
        if (fadeWindow_)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        else
            EndFade(); // its window went with what it stood in
    }
    return alive && !form_.isVisible();
}

void ucShadow::StartFade(int milliseconds, bool isFadeIn)
{
    // A fade that is still there belongs to what is seen, and goes when it has been copied.
    const std::unique_ptr<cWindow> earlier = std::exchange(fade_, std::make_unique<cWindow>());
    isFadeIn_ = isFadeIn;
    isAwaited_ = false; // a form that is shown again while it fades is not waited for any more
    steps_ = FadeSteps(milliseconds);
    fade_->SetOwner(*this);
    fade_->WindowClassRegister(ClassName("FadeCls"), ClassBackground);
    fade_->AddMsg(Message::Created);
    fade_->AddMsg(Message::Timer);
    fadeWindow_ = fade_->WindowCreate(FadeStyle, Host() ? WindowStyle::Child : WindowStyle::Popup, 0, 0, 0, 0,
        0, {}, Host() ? Host() : nullptr);
}

void ucShadow::iWindow_Proc(bool&, qint32&, QWidget*& hWnd, qint32& uMsg, qintptr&, qintptr&)
{
    auto* window = qobject_cast<LayeredWindow*>(hWnd);
    if (uMsg == Message::Created)
        BeginFade(*window);
    else
        TickFade(*window);
}

void ucShadow::BeginFade(LayeredWindow& window)
{
    const int shadow = isVisible_ ? depth_ : 0;
    const QRect place = form_.geometry().adjusted(0, 0, shadow, shadow);
    window.UpdateLayered(place, CopyForFade(place), steps_.Alpha());
    window.show();
    window.raise();
    fadeClock_.start();
    window.startTimer(FadeSteps::Interval, Qt::PreciseTimer);
}

QImage ucShadow::CopyForFade(const QRect& place)
{
    QWidget* const host = Host();
    if (!host)
        return CopyOfScreen(form_, place);
    QList<QWidget*> leftOut;
    if (isFadeIn_)
        leftOut = { &form_, strip_[ShadowStrip::Right], strip_[ShadowStrip::Bottom] };
    return CopyInside(*host, place, leftOut);
}

void ucShadow::TickFade(LayeredWindow& window)
{
    if (steps_.Tick(fadeClock_.elapsed()))
        window.SetConstantAlpha(steps_.Alpha());
    else
        EndFade();
}

void ucShadow::EndFade()
{
    fade_.reset();
    fadeWindow_ = nullptr;
    if (isFadeIn_)
        return Q_EMIT FadedIn();
    isAwaited_ = false;
    Q_EMIT FadedOut();
}
