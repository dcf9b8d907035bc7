#pragma once

#include "desktop/Wallpaper.h"

#include <QObject>

/// KDE's desktop, by a script that it runs over all its screens.
class KdeWallpaper : public Wallpaper {
public:
    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

private:
    QObject owner_;
};
