#include "desktop/XfceWallpaper.h"

#include "desktop/Tool.h"

#include <QGuiApplication>
#include <QScreen>
#include <QString>
#include <QStringList>

namespace {

constexpr auto Program = "xfconf-query";
constexpr auto PictureKey = "/last-image";
constexpr auto StyleKey = "/image-style";
constexpr auto Zoomed = "5";
constexpr auto NoPicture = "0";

QStringList Reading(const QString& property)
{
    return { QStringLiteral("-c"), QStringLiteral("xfce4-desktop"), QStringLiteral("-p"), property };
}

QStringList Writing(const QString& property, const QString& kind, const QString& value)
{
    return Reading(property)
        + QStringList { QStringLiteral("-n"), QStringLiteral("-t"), kind, QStringLiteral("-s"), value };
}

struct Work {
    QList<QStringList> commands;
    QStringList pictures; ///< the properties that hold the picture then
};

/// The places of a fresh desktop, which has stored none yet.
QStringList FirstPlaces()
{
    QStringList places;
    for (const QScreen* screen : QGuiApplication::screens())
        places << QStringLiteral("/backdrop/screen0/monitor%1/workspace0").arg(screen->name());
    return places;
}

/// Another spelling of the same file.
QString Respelled(const QString& path)
{
    return path.section(u'/', 0, -2) + QStringLiteral("/./") + path.section(u'/', -1);
}

/// What has to be written, from the list of properties with their values, a line each. A value that does not
/// change is passed over by the desktop, and with it the new content of the same file: so its spelling does
/// change, and at every moment the desktop has a picture to show.
Work WorkFor(const QString& path, const QString& properties)
{
    Work work;
    const auto write = [&](const QString& place, const QString& before) {
        const QString property = place + QLatin1String(PictureKey);
        if (before == path)
            work.commands << Writing(property, QStringLiteral("string"), Respelled(path));
        work.commands << Writing(property, QStringLiteral("string"), path);
        work.pictures << property;
    };
    const auto zoom = [&](const QString& place) {
        work.commands << Writing(
            place + QLatin1String(StyleKey), QStringLiteral("int"), QLatin1String(Zoomed));
    };
    for (const QString& line : properties.split(u'\n')) {
        const QString property = line.section(u' ', 0, 0, QString::SectionSkipEmpty);
        const QString value = line.section(u' ', 1, -1, QString::SectionSkipEmpty).trimmed();
        const QString place = property.section(u'/', 0, -2);
        if (property.endsWith(QLatin1String(PictureKey)))
            write(place, value);
        else if (property.endsWith(QLatin1String(StyleKey)) && value == QLatin1String(NoPicture))
            zoom(place);
    }
    if (work.pictures.isEmpty())
        for (const QString& place : FirstPlaces()) {
            write(place, {});
            zoom(place);
        }
    return work;
}

} // namespace

bool XfceWallpaper::CanSet() const
{
    return HasTool(QLatin1String(Program));
}

void XfceWallpaper::Set(const QString& path, Done done)
{
    const QStringList list { QStringLiteral("-c"), QStringLiteral("xfce4-desktop"), QStringLiteral("-l"),
        QStringLiteral("-v") };
    // The list of a channel that is not there yet is a failure; what counts is the writing.
    RunTool(owner_, QLatin1String(Program), list, [=, this](const ToolAnswer& answer) {
        const Work work = WorkFor(path, answer.output);
        RunAll(work.commands, done, [=, this] { Verify(work.pictures, path, done); });
    });
}

void XfceWallpaper::RunAll(QList<QStringList> commands, const Done& done, const std::function<void()>& next)
{
    if (commands.isEmpty())
        return next();
    const QStringList first = commands.takeFirst();
    RunTool(owner_, QLatin1String(Program), first, [=, this](const ToolAnswer& answer) {
        answer.IsGood() ? RunAll(commands, done, next) : done({ Result::NotSet, answer.fault });
    });
}

void XfceWallpaper::Verify(QStringList properties, const QString& path, const Done& done)
{
    if (properties.isEmpty())
        return done({});
    const QString first = properties.takeFirst();
    RunTool(owner_, QLatin1String(Program), Reading(first), [=, this](const ToolAnswer& answer) {
        if (!answer.IsGood())
            done({ Result::NotSet, answer.fault });
        else if (answer.output != path)
            done({ Result::NotSet, QStringLiteral("The desktop did not keep the new wallpaper.") });
        else
            Verify(properties, path, done);
    });
}
