#pragma once

#include "imaging/FormatTable.h"

class ApplicationState;

/// The format that captures are saved in: "Ext", read anew. An extension that fits no row of the table keeps
/// the format of the save before.
imaging::SaveValues FormatInForce(ApplicationState& state);
/// The format that a path's own extension stands for, and the one in force when it stands for none.
imaging::SaveValues FormatOf(const QString& path, ApplicationState& state);
