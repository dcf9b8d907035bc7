#pragma once

#include <QString>

/// Hours, minutes and seconds with two digits each. The seconds are rounded after the minutes were cut,
/// so 59.6 seconds read "00:00:60".
QString FormatPosition(double seconds);

/// The seconds added to midnight, as "HH:mm:ss"; wraps after a day.
QString SecondsToTime(double seconds);
