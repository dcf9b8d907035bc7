#pragma once

#include <QKeyCombination>

/// What a key beside the buttons does.
enum class KeyAction {
    PlayOrPause,
    FrameBack,
    FrameForward,
    FirstFrame,
    LastFrame,
    Capture,
    Save,
    Copy,
    Print,
    Open,
    Download,
    FullScreen,
    CloseForm,
    Help
};

/// One key for those who keep their hands on the keyboard.
struct KeyRow {
    enum Repeat { Once, WhileHeld };

    QKeyCombination key;
    KeyAction action;
    const char* guide; ///< how the guide calls it, alone or together with its neighbour
    Repeat repeat = Once;
};

inline constexpr KeyRow KeyTable[] {
    { Qt::Key_Space, KeyAction::PlayOrPause, "Space" },
    { Qt::Key_Comma, KeyAction::FrameBack, ", and .", KeyRow::WhileHeld },
    { Qt::Key_Period, KeyAction::FrameForward, ", and .", KeyRow::WhileHeld },
    { Qt::Key_Home, KeyAction::FirstFrame, "Home, End" },
    { Qt::Key_End, KeyAction::LastFrame, "Home, End" },
    { Qt::Key_S, KeyAction::Capture, "S" },
    { Qt::CTRL | Qt::Key_S, KeyAction::Save, "Ctrl+S" },
    { Qt::CTRL | Qt::Key_C, KeyAction::Copy, "Ctrl+C" },
    { Qt::CTRL | Qt::Key_P, KeyAction::Print, "Ctrl+P" },
    { Qt::CTRL | Qt::Key_O, KeyAction::Open, "Ctrl+O" },
    { Qt::CTRL | Qt::Key_U, KeyAction::Download, "Ctrl+U" },
    { Qt::Key_F, KeyAction::FullScreen, "F or F11" },
    { Qt::Key_F11, KeyAction::FullScreen, "F or F11" },
    { Qt::CTRL | Qt::Key_W, KeyAction::CloseForm, "Ctrl+W" },
    { Qt::Key_F1, KeyAction::Help, "F1" },
};
