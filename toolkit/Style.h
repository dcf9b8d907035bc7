#pragma once

#include <QColor>

class QApplication;

/// Distances between and inside controls are multiples of it, in pixels.
inline constexpr int Grid = 4;

/// The program's colours by role. Their values stand in resources/art/face.qss and nowhere else.
enum class Token {
    Ground, ///< the area behind child windows
    Strip, ///< title strips, the transport pane
    Panel, ///< dialogs, pages, behind a picture
    Control,
    ControlHover,
    ControlPressed,
    LineOutside,
    LineInside,
    LineLight, ///< an edge under the pointer
    Text,
    TextSecondary,
    TextDisabled,
    Accent,
    AccentHover,
    AccentPressed,
    AccentGround, ///< a filled bar under text
    OnAccent, ///< text and marks that stand on the accent
    Alarm,
    AlarmPressed,
    OnAlarm, ///< marks that stand on the alarm colour
    Count
};

/// The colour of a role.
QColor StyleColor(Token token);
/// Dresses the application: Fusion as the base, the dark neutral palette and the style sheet.
/// The desktop's own font stays.
void ApplyStyle(QApplication& application);
