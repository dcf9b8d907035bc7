#include "capture/FormatInForce.h"

#include "app/ApplicationState.h"

namespace {

imaging::SaveValues ValuesOf(int index)
{
    imaging::SaveValues values;
    imaging::WhatTypeFiles(index, values.format, values.quality, values.bits);
    return values;
}

} // namespace

imaging::SaveValues FormatInForce(ApplicationState& state)
{
    state.Reload(Key::Ext);
    if (const int index = imaging::FormatIndex(state.CurrentExt); index >= 0)
        state.FormatIndex = index;
    return ValuesOf(state.FormatIndex);
}

imaging::SaveValues FormatOf(const QString& path, ApplicationState& state)
{
    const int index = imaging::FormatIndex(path);
    return index >= 0 ? ValuesOf(index) : FormatInForce(state);
}
