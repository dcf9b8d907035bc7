#pragma once

#include "app/Frame.h"
#include "base/Rows.h"
#include "toolkit/Face.h"

#include <array>

/// One command button of the frame.
struct CommandRow {
    Command command;
    Face face;
    const char* caption;
    const char* tip;
    bool isUsableAtStart = false;
};

inline constexpr std::array<CommandRow, size_t(Command::Count)> CommandTable { {
    { Command::Open, Face::OpenVideos, "Open videos", " Open videos for capture  ", true },
    { Command::Stretch, Face::Stretch, "Stretch", " Stretch video to window " },
    { Command::FitToWindow, Face::FitToWindow, "Fit to Window", " Fit to window, maintain aspect ratio " },
    { Command::DefaultSize, Face::NormalSize, "Default Size", " View video at it's default (normal) size " },
    { Command::Download, Face::Download, "Download", " Download video from internet ", true },
    { Command::Cancel, Face::Cancel, "Cancel", " Cancel downloading " },
    { Command::Print, Face::Print, "Print Frame", " Print top picture " },
    { Command::Options, Face::Options, "Options", " Set TAQ Video Capture Pro options ", true },
    { Command::Capture, Face::Capture, "Capture", " Capture video frame  " },
    { Command::Save, Face::Save, "Save Capture", " Save captured frame " },
} };

static_assert(IsOneRowEach(CommandTable, &CommandRow::command, size_t(Command::Count)));
