#include "toolkit/Compositing.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace {

constexpr int LeastBits = 16; // a pixel
// A compositing manager owns this for as long as it runs.
constexpr QByteArrayView ManagersSelection("_NET_WM_CM_S0");

template <typename Reply> using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply> Answer<Reply> Taken(Reply* reply)
{
    return Answer<Reply>(reply, &std::free);
}

xcb_connection_t* ServerOfThis()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

bool HasManager(xcb_connection_t* server)
{
    if (!server)
        return false;
    const auto atom = Taken(xcb_intern_atom_reply(server,
        xcb_intern_atom(server, 1, uint16_t(ManagersSelection.size()), ManagersSelection.data()), nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const auto owner =
        Taken(xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

Compositing CompositingOf(const PlatformFacts& platform)
{
    const bool isX11 = platform.name == QLatin1String("xcb");
    const bool isSeen = isX11 || platform.name.startsWith(QLatin1String("wayland"));
    if (!isSeen || platform.bits < LeastBits)
        return {};
    return { .windows = isX11 && platform.hasManager, .children = true, .themes = true };
}

Compositing SystemCompositing()
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return CompositingOf(
        { QGuiApplication::platformName(), screen ? screen->depth() : 0, HasManager(ServerOfThis()) });
}
