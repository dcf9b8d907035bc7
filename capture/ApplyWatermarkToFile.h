#pragma once

#include "app/TextSettings.h"
#include "imaging/FormatTable.h"

#include <optional>

class ApplicationState;

/// The user's text for files that go from the player straight to the disk, and the format they get.
struct FileText {
    TextSettings text;
    imaging::SaveValues format;
};

/// As the settings are now, for files with names like this one: the format of its extension counts before
/// that in force. Nothing with UseWatermark off.
std::optional<FileText> TextForFiles(ApplicationState& state, const QString& name);

/// Draws the text on the picture in a file that stands on the disk already, and writes it back in the true
/// format of its extension, whatever format it had. Takes its time with a large picture; to be called on any
/// thread. Throws ControlError, and the file stands as it was.
void ApplyWatermarkToFile(const QString& path, const FileText& text);
