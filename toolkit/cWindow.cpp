#include "toolkit/cWindow.h"

#include "toolkit/LayeredWindow.h"
#include "toolkit/MessageHook.h"

#include <algorithm>

namespace {

Qt::WindowFlags FlagsOf(quint32 extendedStyle, quint32 style)
{
    if (style & WindowStyle::Child)
        return Qt::Widget;
    Qt::WindowFlags flags = extendedStyle & WindowStyle::ToolWindow ? Qt::Tool : Qt::Window;
    flags |= Qt::WindowDoesNotAcceptFocus;
    flags.setFlag(Qt::FramelessWindowHint, style & WindowStyle::Popup);
    flags.setFlag(Qt::WindowStaysOnTopHint, extendedStyle & WindowStyle::TopMost);
    flags.setFlag(Qt::WindowTransparentForInput, extendedStyle & WindowStyle::TransparentForInput);
    return flags;
}

} // namespace

cWindow::cWindow() = default;

cWindow::~cWindow()
{
    messages_.Clear();
    while (!windows_.empty()) {
        Entry last = std::move(windows_.back());
        windows_.pop_back();
        Destroy(std::move(last));
    }
}

void cWindow::SetOwner(iWindow& owner)
{
    owner_ = &owner;
    ownersLife_ = owner.Life();
}

bool cWindow::WindowClassRegister(const QString& name, const QColor& background, quint32,
    Qt::CursorShape cursor, const QIcon& icon, const QIcon& smallIcon, int, int)
{
    if (name.isEmpty() || !class_.isEmpty())
        return false;
    class_ = name;
    background_ = background;
    cursor_ = cursor;
    icon_ = smallIcon.isNull() ? icon : smallIcon;
    return true;
}

LayeredWindow* cWindow::WindowCreate(quint32 extendedStyle, quint32 style, int x, int y, int width,
    int height, int, const QString& name, QWidget* parent, quintptr, quintptr)
{
    if (class_.isEmpty())
        return nullptr;
    auto* window = new LayeredWindow(parent, FlagsOf(extendedStyle, style));
    window->hide(); // by itself, so that it does not come up with its parent
    window->setObjectName(class_);
    window->setWindowTitle(name);
    window->setWindowIcon(icon_);
    window->setCursor(cursor_);
    window->setGeometry(x, y, width, height);
    window->setAttribute(Qt::WA_TransparentForMouseEvents, extendedStyle & WindowStyle::TransparentForInput);
    if (extendedStyle & WindowStyle::Layered)
        window->setAttribute(Qt::WA_TranslucentBackground);
    else
        window->SetBackground(background_);
    const auto tell = [this](bool, MessageCall& call) {
        if (owner_ && !ownersLife_.expired())
            owner_->iWindow_Proc(call.bHandled, call.lReturn, call.hWnd, call.uMsg, call.wParam, call.lParam);
    };
    windows_.push_back({ window, std::make_unique<MessageHook>(*window, messages_, noMessages_, tell) });
    const QPointer<LayeredWindow> alive(window);
    WindowMessage::Send(*window, Message::Created);
    return alive;
}

bool cWindow::WindowDestroy(QWidget* hWnd)
{
    const auto place = Find(hWnd);
    if (place == windows_.end())
        return false;
    Entry entry = std::move(*place);
    windows_.erase(place);
    Destroy(std::move(entry));
    return true;
}

// A window in the middle of one of its own messages is hidden now and deleted when it is through with it.
void cWindow::Destroy(Entry entry)
{
    const bool isInCall = entry.hook->IsCalling();
    entry.hook.reset();
    if (!entry.window)
        return;
    if (!isInCall)
        return delete entry.window.data();
    entry.window->hide();
    entry.window->deleteLater();
}

qint32 cWindow::CallDefWndProc(QWidget* hWnd, qint32 uMsg, qintptr wParam, qintptr lParam)
{
    const auto place = Find(hWnd);
    return place == windows_.end() ? 0 : place->hook->CallOriginal(uMsg, wParam, lParam);
}

std::vector<cWindow::Entry>::iterator cWindow::Find(const QWidget* hWnd)
{
    return std::find_if(windows_.begin(), windows_.end(),
        [hWnd](const Entry& entry) { return hWnd && entry.window == hWnd; });
}
