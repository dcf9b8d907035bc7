#pragma once

#include "toolkit/Face.h"

#include <array>

/// One button of the transport bar: its pictures up and down, its tool tip at start and its name for those
/// who cannot see it.
struct TransportButton {
    Face face;
    Face latchedFace;
    const char* tip;
    const char* name;
};

/// Cmd2(0..3)
enum RunButton { PlayButton, PauseButton, FrameBackButton, FrameForwardButton, RunButtonCount };
inline constexpr std::array<TransportButton, RunButtonCount> RunButtons { {
    { Face::Play, Face::Play, " Play ", "Play" },
    { Face::Pause, Face::Pause, " Pause ", "Pause" },
    { Face::FrameBack, Face::FrameBack, " Back 1 Frame ", "Back one frame" },
    { Face::FrameForward, Face::FrameForward, " Forward 1 Frame ", "Forward one frame" },
} };

/// Cmd3(0..6); all latch
enum SeekButton {
    SeekStartButton,
    SeekEndButton,
    MarkStartButton,
    MarkEndButton,
    AutoRewindButton,
    LoopButton,
    SoundButton,
    SeekButtonCount
};
inline constexpr std::array<TransportButton, SeekButtonCount> SeekButtons { {
    { Face::SeekStart, Face::SeekStart, " Seek Start ", "Seek start" },
    { Face::SeekEnd, Face::SeekEnd, " Seek End ", "Seek end" },
    { Face::MarkStart, Face::MarkStart, " Use SLIDER to set start mark. ", "Mark start" },
    { Face::MarkEnd, Face::MarkEnd, " Use SLIDER to set end mark. ", "Mark end" },
    { Face::AutoRewind, Face::AutoRewind, " Auto Rewind ", "Auto rewind" },
    { Face::Loop, Face::Loop, " Loop ", "Loop" },
    { Face::SoundOff, Face::SoundOn, " Sound On ", "Sound" },
} };

/// speedbtn(0..1)
enum RateButton { IncreaseRateButton, DecreaseRateButton, RateButtonCount };
inline constexpr std::array<TransportButton, RateButtonCount> RateButtons { {
    { Face::RateUp, Face::RateUp, " Increase Rate ", "Increase rate" },
    { Face::RateDown, Face::RateDown, " Decrease Rate ", "Decrease rate" },
} };

/// CmdList(0..1)
enum ListButton { PreviousVideoButton, NextVideoButton, ListButtonCount };
inline constexpr std::array<TransportButton, ListButtonCount> ListButtons { {
    { Face::PreviousVideo, Face::PreviousVideo, " Back 1 video on list  ", "Previous video" },
    { Face::NextVideo, Face::NextVideo, " Forward 1 video on list ", "Next video" },
} };
