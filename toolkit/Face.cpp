#include "toolkit/Face.h"

#include "base/Rows.h"

#include <array>

namespace {

constexpr std::array Facts {
    FaceFacts { Face::None, "", "" },
    FaceFacts { Face::OpenVideos, "command", "Open videos" },
    FaceFacts { Face::Stretch, "command", "Stretch" },
    FaceFacts { Face::FitToWindow, "command", "Fit to window" },
    FaceFacts { Face::NormalSize, "command", "Default size" },
    FaceFacts { Face::Download, "command", "Download" },
    FaceFacts { Face::Cancel, "command", "Cancel" },
    FaceFacts { Face::Print, "command", "Print" },
    FaceFacts { Face::Options, "command", "Options" },
    FaceFacts { Face::Capture, "command", "Capture", FaceTone::Accent },
    FaceFacts { Face::Save, "command", "Save capture" },
    FaceFacts { Face::Play, "transport", "Play" },
    FaceFacts { Face::Pause, "transport", "Pause" },
    FaceFacts { Face::FrameBack, "transport", "Back 1 frame" },
    FaceFacts { Face::FrameForward, "transport", "Forward 1 frame" },
    FaceFacts { Face::SeekStart, "transport", "Seek start" },
    FaceFacts { Face::SeekEnd, "transport", "Seek end" },
    FaceFacts { Face::MarkStart, "transport", "Mark start" },
    FaceFacts { Face::MarkEnd, "transport", "Mark end" },
    FaceFacts { Face::AutoRewind, "transport", "Auto rewind" },
    FaceFacts { Face::Loop, "transport", "Loop" },
    FaceFacts { Face::SoundOn, "transport", "Sound on" },
    FaceFacts { Face::SoundOff, "transport", "Sound off" },
    FaceFacts { Face::RateUp, "transport", "Increase rate" },
    FaceFacts { Face::RateDown, "transport", "Decrease rate" },
    FaceFacts { Face::PreviousVideo, "transport", "Previous video" },
    FaceFacts { Face::NextVideo, "transport", "Next video" },
    FaceFacts { Face::Close, "window", "Close", FaceTone::Alarm },
    FaceFacts { Face::Maximize, "window", "Maximize" },
    FaceFacts { Face::Minimize, "window", "Minimize" },
    FaceFacts { Face::Restore, "window", "Restore" },
    FaceFacts { Face::Open, "window", "Open" },
    FaceFacts { Face::Help, "window", "Help" },
    FaceFacts { Face::BringToFront, "window", "Bring to front" },
    FaceFacts { Face::Menu, "window", "Menu" },
    FaceFacts { Face::Grip, "window", "Size" },
    FaceFacts { Face::EditTools, "viewer", "Edit tools" },
    FaceFacts { Face::ProgramWallpaper, "viewer", "Program wallpaper" },
    FaceFacts { Face::SystemWallpaper, "viewer", "System wallpaper" },
    FaceFacts { Face::SaveCapture, "viewer", "Save capture" },
    FaceFacts { Face::SaveAll, "viewer", "Save all" },
    FaceFacts { Face::OpenCapture, "viewer", "Open capture" },
    FaceFacts { Face::Resize, "tools", "Resize" },
    FaceFacts { Face::Flip, "tools", "Flip" },
    FaceFacts { Face::Rotate, "tools", "Rotate" },
    FaceFacts { Face::Reverse, "tools", "Reverse" },
    FaceFacts { Face::Grayscale, "tools", "Grayscale" },
    FaceFacts { Face::Undo, "tools", "Undo" },
    FaceFacts { Face::VisualEditor, "tools", "Visual editor" },
    FaceFacts { Face::BoxGround, "check", "" },
    FaceFacts { Face::Box, "check", "" },
    FaceFacts { Face::CheckGrey, "check", "" },
    FaceFacts { Face::CheckSet, "check", "" },
    FaceFacts { Face::DiscGround, "check", "" },
    FaceFacts { Face::Ring, "check", "" },
    FaceFacts { Face::Dot, "check", "" },
};
static_assert(IsOneRowEach(Facts, &FaceFacts::face, size_t(Face::Count)));

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
