#include "toolkit/Face.h"

#include <array>

namespace {

constexpr std::array Facts {
    FaceFacts { "", "" },
    FaceFacts { "command", "Open videos" },
    FaceFacts { "command", "Stretch" },
    FaceFacts { "command", "Fit to window" },
    FaceFacts { "command", "Default size" },
    FaceFacts { "command", "Download" },
    FaceFacts { "command", "Cancel" },
    FaceFacts { "command", "Print" },
    FaceFacts { "command", "Options" },
    FaceFacts { "command", "Capture", FaceTone::Accent },
    FaceFacts { "command", "Save capture" },
    FaceFacts { "transport", "Play" },
    FaceFacts { "transport", "Pause" },
    FaceFacts { "transport", "Back 1 frame" },
    FaceFacts { "transport", "Forward 1 frame" },
    FaceFacts { "transport", "Seek start" },
    FaceFacts { "transport", "Seek end" },
    FaceFacts { "transport", "Mark start" },
    FaceFacts { "transport", "Mark end" },
    FaceFacts { "transport", "Auto rewind" },
    FaceFacts { "transport", "Loop" },
    FaceFacts { "transport", "Sound on" },
    FaceFacts { "transport", "Sound off" },
    FaceFacts { "transport", "Increase rate" },
    FaceFacts { "transport", "Decrease rate" },
    FaceFacts { "transport", "Previous video" },
    FaceFacts { "transport", "Next video" },
    FaceFacts { "window", "Close", FaceTone::Alarm },
    FaceFacts { "window", "Maximize" },
    FaceFacts { "window", "Minimize" },
    FaceFacts { "window", "Restore" },
    FaceFacts { "window", "Open" },
    FaceFacts { "window", "Help" },
    FaceFacts { "window", "Bring to front" },
    FaceFacts { "window", "Menu" },
    FaceFacts { "window", "Size" },
    FaceFacts { "viewer", "Edit tools" },
    FaceFacts { "viewer", "Program wallpaper" },
    FaceFacts { "viewer", "System wallpaper" },
    FaceFacts { "viewer", "Save capture" },
    FaceFacts { "viewer", "Save all" },
    FaceFacts { "viewer", "Open capture" },
    FaceFacts { "tools", "Resize" },
    FaceFacts { "tools", "Flip" },
    FaceFacts { "tools", "Rotate" },
    FaceFacts { "tools", "Reverse" },
    FaceFacts { "tools", "Grayscale" },
    FaceFacts { "tools", "Undo" },
    FaceFacts { "tools", "Visual editor" },
    FaceFacts { "check", "" },
    FaceFacts { "check", "" },
    FaceFacts { "check", "" },
    FaceFacts { "check", "" },
    FaceFacts { "check", "" },
    FaceFacts { "check", "" },
    FaceFacts { "check", "" },
};
static_assert(Facts.size() == static_cast<size_t>(Face::Count));

constexpr std::string_view StripOf(size_t face)
{
    return Facts[face].strip;
}

} // namespace

const FaceFacts& FactsOf(Face face)
{
    return Facts[static_cast<size_t>(face)];
}

int CellOf(Face face)
{
    const auto place = static_cast<size_t>(face);
    auto first = place;
    while (first > 0 && StripOf(first - 1) == StripOf(place))
        --first;
    return static_cast<int>(place - first);
}
