#pragma once

#include "imaging/FormatTable.h"

class ApplicationState;

/// The row of the format that captures are saved in: "Ext", read anew. An extension that fits no row keeps
/// the row of the save before.
const imaging::FormatRow& FormatInForce(ApplicationState& state);
