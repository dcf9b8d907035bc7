#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

/// What the X server answers is freed by whoever asked.
template <typename Reply> using XAnswer = std::unique_ptr<Reply, decltype(&std::free)>;
template <typename Reply> XAnswer<Reply> Taken(Reply* reply)
{
    return XAnswer<Reply>(reply, &std::free);
}

/// The root window of an X server over a connection that stands and outlives this object.
class XRoot {
public:
    explicit XRoot(xcb_connection_t* connection);

    xcb_connection_t* Connection() const { return connection_; }
    const xcb_screen_t& Screen() const { return *screen_; }
    xcb_window_t Window() const { return screen_->root; }
    xcb_atom_t Atom(const char* name) const;
    /// The words of a window's property, none when it is not there or of another type.
    std::vector<uint32_t> Property(xcb_window_t window, const char* name, xcb_atom_t type) const;
    /// Whether rows of QImage::Format_RGB32 are pixels of this window as they stand in memory.
    bool TakesRgb32() const;
    /// Whether all that was sent until now has arrived and nothing of it was refused.
    bool TookAll() const;

private:
    xcb_connection_t* connection_;
    const xcb_screen_t* screen_;
};
