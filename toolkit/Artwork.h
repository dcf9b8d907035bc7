#pragma once

/// Makes the artwork under ":/art" reachable; a static library's resources are not by themselves.
void LoadArtwork();
