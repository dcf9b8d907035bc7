#pragma once

#include <string_view>

/// What a picture button shows. The order is that of the strips in resources/art, cell by cell.
enum class Face {
    None,
    // command.svg
    OpenVideos,
    Stretch,
    FitToWindow,
    NormalSize,
    Download,
    Cancel,
    Print,
    Options,
    Capture,
    Save,
    // transport.svg
    Play,
    Pause,
    FrameBack,
    FrameForward,
    SeekStart,
    SeekEnd,
    MarkStart,
    MarkEnd,
    AutoRewind,
    Loop,
    SoundOn,
    SoundOff,
    RateUp,
    RateDown,
    PreviousVideo,
    NextVideo,
    // window.svg
    Close,
    Maximize,
    Minimize,
    Restore,
    Open,
    Help,
    BringToFront,
    Menu,
    Grip,
    // viewer.svg
    EditTools,
    ProgramWallpaper,
    SystemWallpaper,
    SaveCapture,
    SaveAll,
    OpenCapture,
    // tools.svg
    Resize,
    Flip,
    Rotate,
    Reverse,
    Grayscale,
    Undo,
    VisualEditor,
    // check.svg
    BoxGround,
    Box,
    CheckGrey,
    CheckSet,
    DiscGround,
    Ring,
    Dot,
    Count
};

/// How a face is coloured beyond the ordinary: the capture button stands on the accent, close turns alarming
/// when the pointer is over it.
enum class FaceTone { Plain, Accent, Alarm };

/// What is known of a face: its strip's file name without folder and extension, and the accessible name that
/// a button bears until its caller gives another.
struct FaceFacts {
    Face face;
    std::string_view strip;
    std::string_view name;
    FaceTone tone = FaceTone::Plain;
};
/// The facts of a face.
const FaceFacts& FactsOf(Face face);
/// Place of a face in its strip, from 0.
int CellOf(Face face);
