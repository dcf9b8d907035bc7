#include "toolkit/ucShadow.h"

#include "toolkit/FormFade.h"
#include "toolkit/SystemColors.h"

#include <QApplication>
#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

constexpr int MostDepth = 99;

} // namespace

ucShadow::ucShadow(QWidget* form, CompositingTest test)
    : QObject(form)
    , form_(*form)
    , test_(std::move(test))
{
    setObjectName(QStringLiteral("Shadow"));
    look_.color = ColorOf(color_).rgb();
    Hook();
    TestCapability();
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
}

void ucShadow::TestCapability()
{
    platform_ = test_();
    look_.hasRoundCorners = platform_.roundCorners;
    isLayered_ = Host() ? platform_.children : platform_.windows;
    if (IsXP())
        subclass_.AddMsg(Message::ThemeChange, cSubclass::Before);
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
    // A system colour may stand for another one than when it was set before.
    color_ = color;
    const QRgb resolved = ColorOf(color).rgb();
    if (resolved != std::exchange(look_.color, resolved))
        Redraw();
}

void ucShadow::SetDepth(int depth)
{
    const int clamped = std::clamp(depth, 0, MostDepth);
    if (clamped != std::exchange(look_.depth, clamped))
        Redraw();
}

void ucShadow::SetSoftShadow(bool soft)
{
    if (soft != std::exchange(look_.isSoft, soft))
        Redraw();
}

void ucShadow::SetTransparency(int opacity)
{
    const int kept = opacity & 0xff;
    if (kept != std::exchange(look_.transparency, kept))
        Redraw();
}

void ucShadow::SetVisible(bool visible)
{
    if (visible != std::exchange(look_.isVisible, visible) && strips_)
        strips_->ApplyVisible();
}

void ucShadow::iSubclass_Proc(bool, bool&, qint32&, QWidget*&, qint32& uMsg, qintptr& wParam, qintptr& lParam)
{
    switch (uMsg) {
    case Message::PositionChanged:
        position_ = WindowPosition::At(lParam);
        if (!isInDrag_)
            Follow();
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
        if (isLayered_ && fadesIn_ && wParam && lParam == 0)
            StartFade(fadeTime_, true);
        break;
    case Message::DisplayChange:
    case Message::ThemeChange:
        FollowDisplay();
        break;
    default:
        break;
    }
}

void ucShadow::FollowDisplay()
{
    TestCapability();
    if (strips_ && (!isLayered_ || strips_->Host() != Host()))
        DropStrips();
    const bool isNew = isLayered_ && !strips_;
    if (isNew)
        MakeStrips();
    Redraw();
    if (isNew && form_.isVisible())
        ShowStrips(true);
}

void ucShadow::MakeStrips()
{
    strips_ = std::make_unique<ShadowStrips>(form_, Host(), look_, ClassName("ShadowCls"));
}

void ucShadow::DropStrips()
{
    strips_.reset();
    isInDrag_ = false;
}

void ucShadow::Redraw()
{
    if (strips_)
        strips_->Redraw();
}

void ucShadow::ShowStrips(bool shown)
{
    if (strips_)
        strips_->Show(shown);
}

void ucShadow::Follow()
{
    if (strips_)
        strips_->Follow(position_);
    if (fade_ && !(position_.flags & WindowPosition::KeepsOrder))
        fade_->Raise();
}

void ucShadow::HideInDrag()
{
    if (!strips_ || std::exchange(isInDrag_, true))
        return;
    ShowStrips(false);
}

void ucShadow::EndDrag()
{
    if (!std::exchange(isInDrag_, false))
        return;
    Follow();
    ShowStrips(form_.isVisible());
}

bool ucShadow::FadeOut(int milliseconds, bool wait)
{
    if (!isLayered_)
        return true;
    const QPointer<ucShadow> alive(this);
    const bool isSeen = form_.isVisible() && !form_.window()->isMinimized();
    if (isSeen) {
        StartFade(milliseconds, false);
        isAwaited_ = wait;
    }
    form_.hide();
    if (!isSeen) {
        Q_EMIT FadedOut();
        return alive && !form_.isVisible();
    }
    while (alive && isAwaited_) {
        if (fade_ && fade_->IsThere())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        else
            EndFade(); // its window went with what it stood in
    }
    return alive && !form_.isVisible();
}

void ucShadow::StartFade(int milliseconds, bool isFadeIn)
{
    QWidget* const host = Host();
    const int shadow = look_.isVisible ? look_.depth : 0;
    FadeOrder order { form_, host, form_.geometry().adjusted(0, 0, shadow, shadow), {}, ClassName("FadeCls"),
        milliseconds };
    if (isFadeIn && strips_)
        order.leftOut = strips_->Windows() << &form_;
    isFadeIn_ = isFadeIn;
    isAwaited_ = false; // a form that is shown again while it fades is not waited for any more
    // A fade that is still there belongs to what is seen, and goes when it has been copied.
    fade_ = std::make_unique<FormFade>(std::move(order), [this] { EndFade(); });
}

void ucShadow::EndFade()
{
    fade_.reset();
    if (isFadeIn_)
        return Q_EMIT FadedIn();
    const QPointer<ucShadow> alive(this);
    Q_EMIT FadedOut();
    if (alive)
        isAwaited_ = false;
}
