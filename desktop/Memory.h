#pragma once

/// Hands memory that is free, but scattered between what is in use, back to the system. Takes milliseconds.
void GiveBackFreeMemory();
