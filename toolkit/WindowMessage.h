#pragma once

#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <bit>
#include <vector>

/// The numbers of the messages that this toolkit knows.
namespace Message {
enum Number : qint32 {
    Created = 1,
    Size = 5, ///< wParam: SizeKind; lParam: width, and height times 65536
    ShowHide = 24, ///< wParam: shown; lParam: 0 for a direct call, else why the window came or went
    PositionChanged = 71, ///< lParam: the address of a WindowPosition
    DisplayChange = 126, ///< a screen came, went or changed, or the window stands in another one
    Timer = 275, ///< wParam: the timer's id
    Sizing = 532,
    Moving = 534,
    EndOfSizeOrMove = 562,
    ThemeChange = 794,
};
}

enum class SizeKind { Restored = 0, Minimized = 1, Maximized = 2 };

/// What happened to a window's place. The place is the one inside the parent, or on the screen.
struct WindowPosition {
    enum Flag : quint32 { KeepsSize = 1, KeepsPlace = 2, KeepsOrder = 4, Showing = 64, Hiding = 128 };

    QWidget* handle = nullptr;
    QWidget* order = nullptr; ///< the window that it follows in the order; not told here
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    quint32 flags = 0;

    QRect Place() const { return { x, y, width, height }; }
    /// The record whose address a message bears.
    static const WindowPosition& At(qintptr lParam) { return *std::bit_cast<const WindowPosition*>(lParam); }
};

/// A message by its numbers, sent to a window as an event of its own. Code that moves or sizes a window
/// announces so by it, because no event of the window system tells of a drag's start and end.
class WindowMessage : public QEvent {
public:
    explicit WindowMessage(qint32 message, qintptr firstParameter = 0, qintptr secondParameter = 0)
        : QEvent(Kind())
        , uMsg(message)
        , wParam(firstParameter)
        , lParam(secondParameter)
    {
    }
    static Type Kind();

    /// Sends the message and tells its result, 0 when nobody gave one.
    static qint32 Send(QWidget& window, qint32 message, qintptr wParam = 0, qintptr lParam = 0);

    qint32 uMsg;
    qintptr wParam;
    qintptr lParam;
    qint32 lReturn = 0;
};

/// One message by its numbers.
struct MessageParts {
    qint32 uMsg = 0;
    qintptr wParam = 0;
    qintptr lParam = 0;
};

/// Tells which messages an event of the window system stands for, in their order; most stand for none.
class MessageTranslator {
public:
    /// position is filled when a message bears its address.
    std::vector<MessageParts> MessagesOf(
        const QEvent& event, const QWidget& window, WindowPosition& position);

private:
    MessageParts Shown(const QEvent& event, const QWidget& window);

    bool wentWithParent_ = false;
};
