#pragma once

#include "toolkit/MessageOwner.h"
#include "toolkit/MessageTable.h"

#include <QIcon>
#include <QPointer>

#include <memory>
#include <vector>

class LayeredWindow;
class MessageHook;
struct MessageCall;

/// The styles of windows that cWindow knows; others are ignored.
namespace WindowStyle {
enum Style : quint32 {
    Popup = 0x80000000, ///< a frameless window
    Child = 0x40000000, ///< stands inside its parent
};
enum Extended : quint32 {
    NoParentNotify = 0x4,
    TopMost = 0x8, ///< above all windows; a child above its siblings
    TransparentForInput = 0x20,
    ToolWindow = 0x80,
    Layered = 0x80000, ///< shows nothing but its picture, with the picture's alpha
};
} // namespace WindowStyle

/// Makes windows of a class of its own and gives some of their messages to its owner. Order of use: Owner,
/// WindowClassRegister, one AddMsg per message, WindowCreate. Its windows go with it.
class cWindow {
public:
    cWindow();
    ~cWindow();
    cWindow(const cWindow&) = delete;
    cWindow& operator=(const cWindow&) = delete;

    void SetOwner(iWindow& owner);
    /// The registered class name; every window's object name.
    QString Class() const { return class_; }

    /// False without a name, and when a class is registered already. The two styles and the numbers of extra
    /// bytes mean nothing here; of the icons the small one counts, when there is one.
    bool WindowClassRegister(const QString& name, const QColor& background, quint32 classStyle = 0,
        Qt::CursorShape cursor = Qt::ArrowCursor, const QIcon& icon = {}, const QIcon& smallIcon = {},
        int classExtra = 0, int windowExtra = 0);
    /// Null without a registered class, or when the window went during its Created message. The window is
    /// hidden. Its parent owns it too. menu and parameter mean nothing here.
    LayeredWindow* WindowCreate(quint32 extendedStyle, quint32 style, int x, int y, int width, int height,
        int unused = 0, const QString& name = {}, QWidget* parent = nullptr, quintptr menu = 0,
        quintptr parameter = 0);
    /// False for a window that is not, or no longer, one of these.
    bool WindowDestroy(QWidget* hWnd);
    void AddMsg(qint32 uMsg) { messages_.Add(uMsg); }
    void DelMsg(qint32 uMsg) { messages_.Delete(uMsg); }
    /// The default handling of a message, past the owner; 0 for a window that is not one of these.
    qint32 CallDefWndProc(QWidget* hWnd, qint32 uMsg, qintptr wParam, qintptr lParam);
    static bool InIDE() { return false; }

private:
    struct Entry {
        QPointer<LayeredWindow> window;
        std::unique_ptr<MessageHook> hook;
    };

    std::vector<Entry>::iterator Find(const QWidget* hWnd);
    static void Destroy(Entry entry);

    QString class_;
    QColor background_;
    Qt::CursorShape cursor_ = Qt::ArrowCursor;
    QIcon icon_;
    iWindow* owner_ = nullptr;
    std::weak_ptr<const void> ownersLife_;
    MessageTable messages_;
    const MessageTable noMessages_ {};
    std::vector<Entry> windows_;
};
