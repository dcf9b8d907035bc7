#pragma once

#include "desktop/Wallpaper.h"

#include <QObject>

/// The desktop portal, which asks the user where the desktop wants that. The file goes there as an open one,
/// so that a program that sees no folders of the desktop can give it too.
class PortalWallpaper : public Wallpaper {
public:
    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

private:
    QObject owner_;
};
