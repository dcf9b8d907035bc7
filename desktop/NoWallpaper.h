#pragma once

#include "desktop/Wallpaper.h"

/// A desktop without a way.
class NoWallpaper : public Wallpaper {
public:
    bool CanSet() const override { return false; }
    void Set(const QString& path, Done done) override;
};
