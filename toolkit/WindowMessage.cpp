#include "toolkit/WindowMessage.h"

#include <QCoreApplication>
#include <QTimerEvent>

namespace {

// Why a window came or went, other than by a direct call.
constexpr qintptr ParentCloses = 1;
constexpr qintptr ParentOpens = 3;

MessageParts SizeOf(const QWidget& window)
{
    const SizeKind kind = window.isMinimized() ? SizeKind::Minimized
        : window.isMaximized()                 ? SizeKind::Maximized
                                               : SizeKind::Restored;
    return { Message::Size, qintptr(kind), window.width() | qintptr(window.height()) << 16 };
}

} // namespace

QEvent::Type WindowMessage::Kind()
{
    static const auto kind = Type(registerEventType());
    return kind;
}

qint32 WindowMessage::Send(QWidget& window, qint32 message, qintptr wParam, qintptr lParam)
{
    WindowMessage event(message, wParam, lParam);
    QCoreApplication::sendEvent(&window, &event);
    return event.lReturn;
}

std::vector<MessageParts> MessageTranslator::MessagesOf(
    const QEvent& event, const QWidget& window, WindowPosition& position)
{
    using Flag = WindowPosition::Flag;
    const auto placed = [&](quint32 flags) {
        const QRect place = window.geometry();
        position = { const_cast<QWidget*>(&window), nullptr, place.x(), place.y(), place.width(),
            place.height(), flags };
        return MessageParts { Message::PositionChanged, 0, qintptr(&position) };
    };
    switch (event.type()) {
    case QEvent::Move:
        return { placed(Flag::KeepsSize | Flag::KeepsOrder) };
    case QEvent::Resize:
        return { placed(Flag::KeepsPlace | Flag::KeepsOrder), SizeOf(window) };
    case QEvent::ZOrderChange:
        return { placed(Flag::KeepsSize | Flag::KeepsPlace) };
    case QEvent::Show:
        return { Shown(event, window), placed(Flag::Showing) };
    case QEvent::Hide:
        return { Shown(event, window), placed(Flag::Hiding) };
    case QEvent::WindowStateChange:
        return { SizeOf(window) };
    case QEvent::Timer:
        return { { Message::Timer, static_cast<const QTimerEvent&>(event).timerId() } };
    case QEvent::ParentChange:
        return { { Message::DisplayChange } };
    case QEvent::StyleChange:
    case QEvent::PaletteChange:
        return { { Message::ThemeChange } };
    default:
        break;
    }
    if (event.type() != WindowMessage::Kind())
        return {};
    const auto& message = static_cast<const WindowMessage&>(event);
    return { { message.uMsg, message.wParam, message.lParam } };
}

// A window that went because its parent did is not hidden by itself, and comes again with the parent.
MessageParts MessageTranslator::Shown(const QEvent& event, const QWidget& window)
{
    const bool isShown = event.type() == QEvent::Show;
    const bool isDirect = !event.spontaneous() && (isShown ? !wentWithParent_ : window.isHidden());
    wentWithParent_ = !isShown && !isDirect;
    return { Message::ShowHide, isShown, isDirect ? 0 : isShown ? ParentOpens : ParentCloses };
}
