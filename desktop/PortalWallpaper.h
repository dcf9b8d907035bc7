#pragma once

#include "desktop/Wallpaper.h"

#include <QObject>

#include <chrono>

/// The desktop portal, which asks the user where the desktop wants that. The file goes there as an open one,
/// so that a program that sees no folders of the desktop can give it too.
class PortalWallpaper : public Wallpaper {
public:
    /// Waits no longer than limit for the answer: the user may be asked meanwhile.
    explicit PortalWallpaper(std::chrono::milliseconds limit = std::chrono::minutes(2))
        : limit_(limit)
    {
    }
    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

private:
    std::chrono::milliseconds limit_;
    QObject owner_;
};
