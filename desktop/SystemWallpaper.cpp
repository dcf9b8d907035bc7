#include "desktop/SystemWallpaper.h"

#include "desktop/GnomeWallpaper.h"
#include "desktop/KdeWallpaper.h"
#include "desktop/PortalWallpaper.h"
#include "desktop/RootWallpaper.h"
#include "desktop/XfceWallpaper.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace {

/// Where a desktop has no portal of its own, another's answers in its place: it writes a setting that this
/// desktop never looks at, and says that all went well.
bool HasOwnPortal(const BackgroundKeys& keys)
{
    return std::string_view(keys.schema) == "org.gnome.desktop.background";
}

} // namespace

SystemWallpaper::SystemWallpaper()
    : SystemWallpaper(WaysOf(qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts)))
{
}

SystemWallpaper::SystemWallpaper(Ways ways)
    : ways_(std::move(ways))
{
}

SystemWallpaper::Ways SystemWallpaper::WaysOf(const QStringList& desktops)
{
    Ways ways;
    const BackgroundKeys* keys = nullptr;
    for (const QString& desktop : desktops)
        keys = keys ? keys : GnomeWallpaper::KeysOf(desktop);
    if (keys) {
        if (HasOwnPortal(*keys))
            ways.push_back(std::make_unique<PortalWallpaper>());
        ways.push_back(std::make_unique<GnomeWallpaper>(*keys));
    } else if (desktops.contains(QLatin1String("KDE"))) {
        ways.push_back(std::make_unique<PortalWallpaper>());
        ways.push_back(std::make_unique<KdeWallpaper>());
    } else if (desktops.contains(QLatin1String("XFCE"))) {
        ways.push_back(std::make_unique<XfceWallpaper>());
    } else {
        ways.push_back(std::make_unique<RootWallpaper>());
        ways.push_back(std::make_unique<PortalWallpaper>());
    }
    return ways;
}

bool SystemWallpaper::CanSet() const
{
    return std::ranges::any_of(ways_, &Wallpaper::CanSet);
}

void SystemWallpaper::Set(const QString& path, Done done)
{
    const Outcome noWay { Result::NotHere,
        QStringLiteral("This desktop does not let a program set its wallpaper.") };
    Try(0, path, noWay, done);
}

void SystemWallpaper::Try(size_t way, const QString& path, const Outcome& last, const Done& done)
{
    while (way < ways_.size() && !ways_[way]->CanSet())
        ++way;
    if (way == ways_.size())
        return done(last);
    ways_[way]->Set(path, [=, this](const Outcome& outcome) {
        if (outcome.result == Result::NotHere)
            Try(way + 1, path, outcome, done);
        else
            done(outcome);
    });
}
