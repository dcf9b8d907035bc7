#pragma once

#include "desktop/Wallpaper.h"

#include <QStringList>

#include <memory>
#include <vector>

/// The ways there are, one behind the other, up to the first that leads somewhere. Whoever says no there is
/// not asked by another way.
class SystemWallpaper : public Wallpaper {
public:
    using Ways = std::vector<std::unique_ptr<Wallpaper>>;

    /// The ways of the desktop that the program runs on, told by the session's names of it.
    SystemWallpaper();
    explicit SystemWallpaper(Ways ways);

    bool CanSet() const override;
    void Set(const QString& path, Done done) override;

    /// The ways of the desktops of these names.
    static Ways WaysOf(const QStringList& desktops);

private:
    void Try(size_t way, const QString& path, const Outcome& last, const Done& done);

    Ways ways_;
};
