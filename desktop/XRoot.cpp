#include "desktop/XRoot.h"

#include <QtGlobal>

#include <cstring>

namespace {

constexpr uint32_t MostWords = 4096; // of a property that is read
constexpr int WordBits = 32;

/// The number of the screen that the session names, 0 when it names none.
int SessionScreen()
{
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    if (!xcb_parse_display(nullptr, &host, &display, &screen))
        return 0;
    std::free(host);
    return screen;
}

const xcb_screen_t* ScreenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < number && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    return screens.data;
}

const xcb_visualtype_t* VisualOf(const xcb_screen_t& screen)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths))
        for (auto all = xcb_depth_visuals_iterator(depths.data); all.rem > 0; xcb_visualtype_next(&all))
            if (all.data->visual_id == screen.root_visual)
                return all.data;
    return nullptr;
}

/// Bits that a pixel of this depth takes in a picture sent to the server, 0 for an unknown depth.
int SentBits(const xcb_setup_t& setup, uint8_t depth)
{
    for (auto all = xcb_setup_pixmap_formats_iterator(&setup); all.rem > 0; xcb_format_next(&all))
        if (all.data->depth == depth)
            return all.data->bits_per_pixel;
    return 0;
}

} // namespace

XRoot::XRoot(xcb_connection_t* connection)
    : connection_(connection)
    , screen_(ScreenOf(connection, SessionScreen()))
{
}

xcb_atom_t XRoot::Atom(const char* name) const
{
    const auto answer = Taken(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, uint16_t(std::strlen(name)), name), nullptr));
    return answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<uint32_t> XRoot::Property(xcb_window_t window, const char* name, xcb_atom_t type) const
{
    const auto answer = Taken(xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 0, window, Atom(name), type, 0, MostWords), nullptr));
    if (!answer || answer->type != type || answer->format != WordBits)
        return {};
    const auto* words = static_cast<const uint32_t*>(xcb_get_property_value(answer.get()));
    return { words, words + answer->value_len };
}

bool XRoot::TakesRgb32() const
{
    constexpr int order =
        Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
    const xcb_setup_t& setup = *xcb_get_setup(connection_);
    const xcb_visualtype_t* const visual = VisualOf(Screen());
    return visual && visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR && visual->red_mask == 0xFF0000
        && visual->green_mask == 0x00FF00 && visual->blue_mask == 0x0000FF && setup.image_byte_order == order
        && SentBits(setup, Screen().root_depth) == WordBits;
}

bool XRoot::TookAll() const
{
    // An answer comes only when all before it was looked at; what was refused waits among the events by then.
    const auto end = Taken(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    bool isRefused = false;
    while (const auto event = Taken(xcb_poll_for_event(connection_)))
        isRefused = isRefused || event->response_type == 0;
    return end && !isRefused;
}
