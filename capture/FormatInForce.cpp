#include "capture/FormatInForce.h"

#include "app/ApplicationState.h"

const imaging::FormatRow& FormatInForce(ApplicationState& state)
{
    state.Reload(Key::Ext);
    if (const int index = imaging::FormatIndex(state.CurrentExt); index >= 0)
        state.FormatIndex = index;
    return imaging::FormatTable.at(size_t(state.FormatIndex));
}
