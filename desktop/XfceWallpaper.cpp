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

QStringList Writing(const QString& property, const QString& kind, const QString& value)
{
    return { QStringLiteral("-c"), QStringLiteral("xfce4-desktop"), QStringLiteral("-p"), property,
        QStringLiteral("-n"), QStringLiteral("-t"), kind, QStringLiteral("-s"), value };
}

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
QList<QStringList> CommandsFor(const QString& path, const QString& properties)
{
    QList<QStringList> commands;
    bool hasPlace = false;
    const auto write = [&](const QString& place, const QString& before) {
        if (before == path)
            commands << Writing(place + QLatin1String(PictureKey), QStringLiteral("string"), Respelled(path));
        commands << Writing(place + QLatin1String(PictureKey), QStringLiteral("string"), path);
    };
    const auto zoom = [&](const QString& place) {
        commands << Writing(place + QLatin1String(StyleKey), QStringLiteral("int"), QLatin1String(Zoomed));
    };
    for (const QString& line : properties.split(u'\n')) {
        const QString property = line.section(u' ', 0, 0, QString::SectionSkipEmpty);
        const QString value = line.section(u' ', 1, -1, QString::SectionSkipEmpty).trimmed();
        const QString place = property.section(u'/', 0, -2);
        if (property.endsWith(QLatin1String(PictureKey))) {
            hasPlace = true;
            write(place, value);
        } else if (property.endsWith(QLatin1String(StyleKey)) && value == QLatin1String(NoPicture))
            zoom(place);
    }
    if (!hasPlace)
        for (const QString& place : FirstPlaces()) {
            write(place, {});
            zoom(place);
        }
    return commands;
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
    RunTool(owner_, QLatin1String(Program), list,
        [=, this](const ToolAnswer& answer) { RunAll(CommandsFor(path, answer.output), done); });
}

void XfceWallpaper::RunAll(QList<QStringList> commands, const Done& done)
{
    if (commands.isEmpty())
        return done({});
    const QStringList first = commands.takeFirst();
    RunTool(owner_, QLatin1String(Program), first, [=, this](const ToolAnswer& answer) {
        answer.IsGood() ? RunAll(commands, done) : done({ Result::NotSet, answer.fault });
    });
}
