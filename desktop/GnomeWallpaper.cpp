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
    Write(keys_.picture, value, done, [=, this](const QString&) { WriteForDark(value, done); });
}

void GnomeWallpaper::Write(const char* key, const QString& value, const Done& done, const Next& next)
{
    Run({ QStringLiteral("set"), QLatin1String(keys_.schema), QLatin1String(key), value }, done, next);
}

void GnomeWallpaper::Read(const char* key, const Done& done, const Next& next)
{
    Run({ QStringLiteral("get"), QLatin1String(keys_.schema), QLatin1String(key) }, done, next);
}

void GnomeWallpaper::Run(const QStringList& arguments, const Done& done, const Next& next)
{
    RunTool(owner_, QLatin1String(Program), arguments, [=](const ToolAnswer& answer) {
        answer.IsGood() ? next(answer.output) : done({ Result::NotSet, answer.fault });
    });
}

/// Older desktops have no such key.
void GnomeWallpaper::WriteForDark(const QString& value, const Done& done)
{
    const auto next = [=, this] { MakeVisible(value, done); };
    if (!keys_.darkPicture)
        return next();
    Write(
        keys_.darkPicture, value, [next](const Outcome&) { next(); }, [next](const QString&) { next(); });
}

/// A user who has no picture behind his windows has that said by a key of its own.
void GnomeWallpaper::MakeVisible(const QString& value, const Done& done)
{
    Read(Options, done, [=, this](const QString& options) {
        if (options != QLatin1String("'none'"))
            return Verify(value, done);
        Write(Options, QStringLiteral("'zoom'"), done, [=, this](const QString&) { Verify(value, done); });
    });
}

/// Where the store cannot be written, the program that writes it says that all went well.
void GnomeWallpaper::Verify(const QString& value, const Done& done)
{
    Read(keys_.picture, done, [=](const QString& output) {
        if (output == value)
            done({});
        else
            done({ Result::NotSet, QStringLiteral("The desktop did not keep the new wallpaper.") });
    });
}
