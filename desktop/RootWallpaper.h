#pragma once

#include "desktop/Wallpaper.h"

/// The root window of an X server on which no desktop stands, each screen filled with the picture. It stays
/// until the session ends.
class RootWallpaper : public Wallpaper {
public:
    bool CanSet() const override;
    void Set(const QString& path, Done done) override;
};
