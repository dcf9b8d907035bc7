#pragma once

#include "edit/EffectRows.h"

#include <QString>

#include <array>
#include <optional>

/// The file that keeps the places of the visual editor's sliders: a whole number a line, in the order of
/// EffectRows.
namespace SliderFile {

using Values = std::array<int, EffectRowCount>;
using Texts = std::array<QString, EffectRowCount>;

/// Writes the values. A file that cannot be written, or is protected from writing, stays as it is, without a
/// word.
void Save(const QString& path, const Values& values);
/// The lines of the file, trimmed and without the blank ones; what is missing is empty. Nothing when there is
/// no such file; ControlError for one that cannot be read or has more lines than there are sliders.
std::optional<Texts> Load(const QString& path);

} // namespace SliderFile
