#include "desktop/RootWallpaper.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr int FewestBits = 24; // a pixel; servers with fewer are none that pictures are looked at on
constexpr uint32_t MostWords = 4096; // of a property that is read

template <typename Reply> using Answer = std::unique_ptr<Reply, decltype(&std::free)>;
template <typename Reply> Answer<Reply> Taken(Reply* reply)
{
    return Answer<Reply>(reply, &std::free);
}

/// A connection of its own: what was made on it outlives it once that is said, and nothing else should.
class Server {
public:
    Server()
        : connection_(xcb_connect(nullptr, &number_))
    {
    }
    ~Server() { xcb_disconnect(connection_); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    bool IsThere() const { return xcb_connection_has_error(connection_) == 0; }
    xcb_connection_t* Connection() const { return connection_; }
    xcb_screen_t* Screen() const
    {
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
        for (int i = 0; i < number_ && screens.rem > 1; ++i)
            xcb_screen_next(&screens);
        return screens.data;
    }
    xcb_atom_t Atom(const char* name) const
    {
        const auto answer = Taken(xcb_intern_atom_reply(
            connection_, xcb_intern_atom(connection_, 0, uint16_t(std::strlen(name)), name), nullptr));
        return answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
    /// The words of a property, none when it is not there.
    std::vector<uint32_t> Property(xcb_window_t window, const char* name) const
    {
        const auto answer = Taken(xcb_get_property_reply(connection_,
            xcb_get_property(connection_, 0, window, Atom(name), XCB_ATOM_ANY, 0, MostWords), nullptr));
        if (!answer || answer->format != 32)
            return {};
        const auto* words = static_cast<const uint32_t*>(xcb_get_property_value(answer.get()));
        return { words, words + answer->value_len };
    }

private:
    int number_ = 0;
    xcb_connection_t* connection_;
};

/// Whether some program has laid its own window over the root.
bool HasDesktopWindow(const Server& server)
{
    const xcb_atom_t kind = server.Atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    const auto windows = server.Property(server.Screen()->root, "_NET_CLIENT_LIST");
    return std::ranges::any_of(windows, [&](xcb_window_t window) {
        const auto kinds = server.Property(window, "_NET_WM_WINDOW_TYPE");
        return std::ranges::find(kinds, kind) != kinds.end();
    });
}

/// The screens of the user in the server's own pixels.
QList<QRect> Monitors()
{
    QList<QRect> monitors;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect place = screen->geometry();
        monitors << QRect(place.topLeft(), place.size() * screen->devicePixelRatio());
    }
    return monitors;
}

/// The whole root, every monitor filled with the middle of the picture.
QImage Composed(const QImage& picture, QSize root)
{
    QImage all(root, QImage::Format_RGB32);
    all.fill(Qt::black);
    QPainter painter(&all);
    for (const QRect& monitor : Monitors()) {
        const QImage part =
            picture.scaled(monitor.size(), Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        const QPoint cut((part.width() - monitor.width()) / 2, (part.height() - monitor.height()) / 2);
        painter.drawImage(monitor.topLeft(), part, QRect(cut, monitor.size()));
    }
    return all;
}

/// In pieces that a request can hold.
void Send(const Server& server, xcb_pixmap_t pixmap, const QImage& picture)
{
    xcb_connection_t* const connection = server.Connection();
    const xcb_gcontext_t context = xcb_generate_id(connection);
    xcb_create_gc(connection, context, pixmap, 0, nullptr);
    constexpr qsizetype head = 64;
    const qsizetype room = qsizetype(xcb_get_maximum_request_length(connection)) * 4 - head;
    const int rows = int(std::max<qsizetype>(1, room / picture.bytesPerLine()));
    for (int y = 0; y < picture.height(); y += rows) {
        const int count = std::min(rows, picture.height() - y);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, uint16_t(picture.width()),
            uint16_t(count), 0, int16_t(y), 0, server.Screen()->root_depth,
            uint32_t(picture.bytesPerLine() * count), picture.constScanLine(y));
    }
    xcb_free_gc(connection, context);
}

/// Tells programs that look through themselves at the background which one it is, and frees the one before,
/// which was kept by a program that is gone.
void Announce(const Server& server, xcb_pixmap_t pixmap)
{
    const xcb_window_t root = server.Screen()->root;
    const auto before = server.Property(root, "ESETROOT_PMAP_ID");
    if (!before.empty() && before == server.Property(root, "_XROOTPMAP_ID"))
        xcb_kill_client(server.Connection(), before.front());
    for (const char* name : { "_XROOTPMAP_ID", "ESETROOT_PMAP_ID" })
        xcb_change_property(server.Connection(), XCB_PROP_MODE_REPLACE, root, server.Atom(name),
            XCB_ATOM_PIXMAP, 32, 1, &pixmap);
}

bool Show(const Server& server, const QImage& picture)
{
    xcb_connection_t* const connection = server.Connection();
    const xcb_screen_t& screen = *server.Screen();
    const xcb_pixmap_t pixmap = xcb_generate_id(connection);
    xcb_create_pixmap(
        connection, screen.root_depth, pixmap, screen.root, screen.width_in_pixels, screen.height_in_pixels);
    Send(server, pixmap, Composed(picture, { screen.width_in_pixels, screen.height_in_pixels }));
    xcb_change_window_attributes(connection, screen.root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(connection, 0, screen.root, 0, 0, 0, 0);
    Announce(server, pixmap);
    xcb_set_close_down_mode(connection, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    // An answer comes only when all before it was taken.
    const auto end = Taken(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return end != nullptr && server.IsThere();
}

} // namespace

bool RootWallpaper::CanSet() const
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return false;
    const Server server;
    return server.IsThere() && !HasDesktopWindow(server);
}

void RootWallpaper::Set(const QString& path, Done done)
{
    const Server server;
    if (!server.IsThere() || server.Screen()->root_depth < FewestBits)
        return done({ Result::NotSet, QStringLiteral("The screen cannot show a wallpaper.") });
    const QImage picture(path);
    if (picture.isNull())
        return done({ Result::NotSet, QStringLiteral("The picture could not be read.") });
    if (!Show(server, picture))
        return done({ Result::NotSet, QStringLiteral("The screen did not take the wallpaper.") });
    done({});
}
