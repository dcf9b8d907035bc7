#include "desktop/GnomeWallpaper.h"

#include "desktop/Tool.h"

#include <QUrl>

#include <algorithm>
#include <iterator>

namespace {

constexpr auto Program = "gsettings";
constexpr auto Options = "picture-options";

constexpr BackgroundKeys Families[] {
    { "GNOME", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true },
    { "Unity", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true },
    { "Budgie", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true },
    { "X-Cinnamon", "org.cinnamon.desktop.background", "picture-uri", nullptr, true },
    { "MATE", "org.mate.background", "picture-filename", nullptr, false },
};

/// As the store writes and prints a text.
QString Quoted(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"));
    const bool hasQuote = text.contains(u'\'');
    if (hasQuote)
        text.replace(u'"', QStringLiteral("\\\""));
    const QChar quote = hasQuote ? u'"' : u'\'';
    return quote + text + quote;
}

} // namespace

const BackgroundKeys* GnomeWallpaper::KeysOf(const QString& desktop)
{
    const auto row = std::ranges::find_if(
        Families, [&](const BackgroundKeys& keys) { return desktop == QLatin1String(keys.desktop); });
    return row == std::end(Families) ? nullptr : row;
}

bool GnomeWallpaper::CanSet() const
{
    return HasTool(QLatin1String(Program));
}

void GnomeWallpaper::Set(const QString& path, Done done)
{
    const QString value =
        Quoted(keys_.isAddress ? QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded) : path);
    // Older desktops have no key for the dark face.
    Run({ QStringLiteral("list-keys"), QLatin1String(keys_.schema) }, done, [=, this](const QString& output) {
        QStringList keys { QLatin1String(keys_.picture) };
        if (keys_.darkPicture && output.split(u'\n').contains(QLatin1String(keys_.darkPicture)))
            keys << QLatin1String(keys_.darkPicture);
        const auto verify = [=, this] { Verify(keys, value, done); };
        WriteAll(keys, value, done, [=, this] { MakeVisible(done, verify); });
    });
}

void GnomeWallpaper::Write(const QString& key, const QString& value, const Done& done, const Next& next)
{
    Run({ QStringLiteral("set"), QLatin1String(keys_.schema), key, value }, done, next);
}

void GnomeWallpaper::Read(const QString& key, const Done& done, const Next& next)
{
    Run({ QStringLiteral("get"), QLatin1String(keys_.schema), key }, done, next);
}

void GnomeWallpaper::Run(const QStringList& arguments, const Done& done, const Next& next)
{
    RunTool(owner_, QLatin1String(Program), arguments, [=](const ToolAnswer& answer) {
        answer.IsGood() ? next(answer.output) : done({ Result::NotSet, answer.fault });
    });
}

void GnomeWallpaper::WriteAll(
    QStringList keys, const QString& value, const Done& done, const std::function<void()>& next)
{
    if (keys.isEmpty())
        return next();
    const QString first = keys.takeFirst();
    Write(first, value, done, [=, this](const QString&) { WriteAll(keys, value, done, next); });
}

/// A user who has no picture behind his windows has that said by a key of its own.
void GnomeWallpaper::MakeVisible(const Done& done, const std::function<void()>& next)
{
    Read(QLatin1String(Options), done, [=, this](const QString& options) {
        if (options != QLatin1String("'none'"))
            return next();
        Write(QLatin1String(Options), QStringLiteral("'zoom'"), done, [=](const QString&) { next(); });
    });
}

/// Where the store cannot be written, the program that writes it says that all went well.
void GnomeWallpaper::Verify(QStringList keys, const QString& value, const Done& done)
{
    if (keys.isEmpty())
        return done({});
    const QString first = keys.takeFirst();
    Read(first, done, [=, this](const QString& output) {
        if (output == value)
            Verify(keys, value, done);
        else
            done({ Result::NotSet, QStringLiteral("The desktop did not keep the new wallpaper.") });
    });
}
