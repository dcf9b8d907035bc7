#pragma once

class Frame;
class QString;
class QWidget;
class ltmmPlay;

/// Takes the player's source away and gives it a file that is held in memory as a whole. Without such a file,
/// or without memory for it, the player stays empty and nothing is said; one that cannot be read as a
/// whole is told by the system's number of the error.
void LoadIntoMemory(ltmmPlay& player, const QString& path, Frame& frame, QWidget* owner);
