#include "desktop/RootWallpaper.h"

#include "desktop/XRoot.h"

#include <QGuiApplication>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QRect>
#include <QScreen>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr std::array CommonMarks { "_XROOTPMAP_ID", "ESETROOT_PMAP_ID" };
constexpr auto OwnMark = "_TAQ_ROOT_PIXMAP"; // the picture on the root is this program's

using Own = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

/// A connection of its own: what was made on it outlives it once that is said, and nothing else should.
Own OwnConnection()
{
    return Own(xcb_connect(nullptr, nullptr), &xcb_disconnect);
}

/// Whether some program has laid its own window over the root.
bool HasDesktopWindow(const XRoot& root)
{
    const xcb_atom_t kind = root.Atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    const auto windows = root.Property(root.Window(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    return std::ranges::any_of(windows, [&](xcb_window_t window) {
        const auto kinds = root.Property(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
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

/// The middle of the picture in the shape of a monitor, at its size. Cut before it is scaled: what is far
/// from that shape would grow beyond all memory.
QImage Fitted(const QImage& picture, QSize monitor)
{
    QRect part(QPoint(), monitor.scaled(picture.size(), Qt::KeepAspectRatio).expandedTo({ 1, 1 }));
    part.moveCenter(picture.rect().center());
    return picture.copy(part).scaled(monitor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The whole root, every monitor filled. Null when there is no memory for it.
QImage Composed(const QImage& picture, QSize root)
{
    QImage all(root, QImage::Format_RGB32);
    if (all.isNull())
        return {};
    all.fill(Qt::black);
    QPainter painter(&all);
    for (const QRect& monitor : Monitors()) {
        const QImage part = Fitted(picture, monitor.size());
        if (part.isNull())
            return {};
        painter.drawImage(monitor.topLeft(), part);
    }
    return all;
}

/// In pieces that a request can hold.
void Send(const XRoot& root, xcb_pixmap_t pixmap, const QImage& picture)
{
    xcb_connection_t* const connection = root.Connection();
    const xcb_gcontext_t context = xcb_generate_id(connection);
    xcb_create_gc(connection, context, pixmap, 0, nullptr);
    constexpr qsizetype head = 64;
    const qsizetype room = qsizetype(xcb_get_maximum_request_length(connection)) * 4 - head;
    const int rows = int(std::max<qsizetype>(1, room / picture.bytesPerLine()));
    for (int y = 0; y < picture.height(); y += rows) {
        const int count = std::min(rows, picture.height() - y);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, uint16_t(picture.width()),
            uint16_t(count), 0, int16_t(y), 0, root.Screen().root_depth,
            uint32_t(picture.bytesPerLine() * count), picture.constScanLine(y));
    }
    xcb_free_gc(connection, context);
}

/// The picture that this program set before, XCB_NONE when there is none or another program set one since.
xcb_pixmap_t OwnPicture(const XRoot& root)
{
    const auto own = root.Property(root.Window(), OwnMark, XCB_ATOM_PIXMAP);
    const bool isShown = std::ranges::all_of(CommonMarks,
        [&](const char* mark) { return root.Property(root.Window(), mark, XCB_ATOM_PIXMAP) == own; });
    return own.size() == 1 && isShown ? own.front() : xcb_pixmap_t(XCB_NONE);
}

/// Tells programs that look through themselves at the background which one it is.
void Announce(const XRoot& root, xcb_pixmap_t pixmap)
{
    for (const char* mark : { CommonMarks[0], CommonMarks[1], OwnMark })
        xcb_change_property(root.Connection(), XCB_PROP_MODE_REPLACE, root.Window(), root.Atom(mark),
            XCB_ATOM_PIXMAP, 32, 1, &pixmap);
}

/// False when the server refused it; what stood there before stays then.
bool Show(const XRoot& root, const QImage& picture)
{
    xcb_connection_t* const connection = root.Connection();
    const xcb_pixmap_t pixmap = xcb_generate_id(connection);
    xcb_create_pixmap(connection, root.Screen().root_depth, pixmap, root.Window(), uint16_t(picture.width()),
        uint16_t(picture.height()));
    Send(root, pixmap, picture);
    if (!root.TookAll())
        return false;
    xcb_change_window_attributes(connection, root.Window(), XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(connection, 0, root.Window(), 0, 0, 0, 0);
    const xcb_pixmap_t before = OwnPicture(root);
    Announce(root, pixmap);
    xcb_set_close_down_mode(connection, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    if (!root.TookAll())
        return false;
    // Only what is surely ours: whoever set another picture may be running, and XCB_NONE names many.
    if (before != XCB_NONE)
        Taken(xcb_request_check(connection, xcb_kill_client_checked(connection, before)));
    return true;
}

} // namespace

bool RootWallpaper::CanSet() const
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 && !HasDesktopWindow(XRoot(x11->connection()));
}

void RootWallpaper::Set(const QString& path, Done done)
{
    const Own connection = OwnConnection();
    const bool isThere = xcb_connection_has_error(connection.get()) == 0;
    if (!isThere || !XRoot(connection.get()).TakesRgb32())
        return done({ Result::NotHere, QStringLiteral("The screen cannot show a wallpaper.") });
    const XRoot root(connection.get());
    const QImage picture(path);
    if (picture.isNull())
        return done({ Result::NotSet, QStringLiteral("The picture could not be read.") });
    const QImage all = Composed(picture, { root.Screen().width_in_pixels, root.Screen().height_in_pixels });
    if (all.isNull())
        return done({ Result::NotSet, QStringLiteral("There is not enough memory for the wallpaper.") });
    if (!Show(root, all))
        return done({ Result::NotSet, QStringLiteral("The screen refused the picture.") });
    done({});
}
