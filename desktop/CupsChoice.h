#pragma once

#include <QByteArray>

/// The printer that this user chose as his default in the file of his print options, as "printer/set" where
/// he chose one of his sets of options for it; empty when he has none.
/// CUPS itself tells only which printer is the default in the end.
QByteArray CupsChoice();
