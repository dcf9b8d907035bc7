#include "frame/CommandLine.h"

#include "app/ControlError.h"
#include "app/CurrentFolder.h"
#include "desktop/FileName.h"
#include "frame/DroppedFile.h"
#include "imaging/FormatTable.h"
#include "video/VideoNames.h"

#include <QUrl>

#include <algorithm>
#include <iterator>

namespace {

constexpr struct {
    const char* name;
    CommandLine::Wish wish;
    const char* help;
} Options[] {
    { "--help", CommandLine::Wish::Help, "tells this and ends" },
    { "--version", CommandLine::Wish::Version, "tells the version and ends" },
};

constexpr auto Usage = R"(Usage: taq [OPTION] [FILE or ADDRESS]...

Opens the window of TAQ Video Capture Pro and in it what is given: videos as one list whose first is shown, pictures
in windows of their own, or the address of a video on the web.

)";

bool IsAddress(const QString& text)
{
    return text.contains(QLatin1String("://"));
}

bool IsPictureName(const QString& text)
{
    return imaging::FormatIndex(text) >= 0;
}

/// What an argument is: the first row that it fits.
constexpr struct {
    bool (*fits)(const QString& text);
    QStringList CommandLine::*list;
} Kinds[] {
    { IsAddress, &CommandLine::addresses },
    { IsVideoName, &CommandLine::videos },
    { IsPictureName, &CommandLine::pictures },
    { [](const QString&) { return true; }, &CommandLine::others },
};

/// A file by its full path, an address as it stands.
QString FullText(const QByteArray& argument)
{
    if (QString file = FileOf(QUrl::fromEncoded(argument)); !file.isEmpty())
        return file;
    QString text = FileName::FromBytes(argument);
    if (!IsAddress(text) && !text.startsWith(u'/'))
        IgnoreErrors([&] { text = CurrentFolder() + u'/' + text; });
    return text;
}

CommandLine::Wish WishOf(const QByteArray& argument)
{
    const auto row =
        std::ranges::find_if(Options, [&](const auto& option) { return argument == option.name; });
    return row == std::end(Options) ? CommandLine::Wish::Unknown : row->wish;
}

} // namespace

CommandLine ReadCommandLine(const QByteArrayList& arguments)
{
    CommandLine line;
    bool hasOptions = true;
    for (const QByteArray& argument : arguments) {
        if (hasOptions && argument == "--") {
            hasOptions = false;
        } else if (hasOptions && argument.startsWith('-')) {
            line.wish = WishOf(argument);
            line.unknown = FileName::FromBytes(argument);
            return line;
        } else if (!argument.isEmpty()) {
            const QString text = FullText(argument);
            const auto kind = std::ranges::find_if(Kinds, [&](const auto& row) { return row.fits(text); });
            line.*kind->list << text;
        }
    }
    return line;
}

QString CommandLineHelp()
{
    QString help = QLatin1String(Usage);
    for (const auto& option : Options)
        help +=
            QStringLiteral("  %1 %2\n").arg(QLatin1String(option.name), -10).arg(QLatin1String(option.help));
    return help;
}
