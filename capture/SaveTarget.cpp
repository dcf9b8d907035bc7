#include "capture/SaveTarget.h"

#include <QStringList>

#include <algorithm>
#include <optional>

namespace {

using Naming = SaveTarget::Naming;
using Folder = SaveTarget::Folder;

struct Rule {
    bool specialFolder;
    bool autoSave;
    std::optional<bool> autoDir; // nothing: any
    SaveTarget target;
};

constexpr Rule Rules[] = {
    { true, true, std::nullopt, { Naming::Automatic, Folder::Chosen } },
    { true, false, std::nullopt, { Naming::Asked, Folder::Chosen } },
    { false, true, true, { Naming::Automatic, Folder::AutoSave } },
    { false, true, false, { Naming::Automatic, Folder::Current } },
    { false, false, std::nullopt, { Naming::Asked, Folder::Current } },
};

struct FilterRow {
    const char* name;
    const char* pattern;
};

constexpr FilterRow Filters[] = {
    { "Graphic Files", "*.bmp;*.jpg;*.tga;*.gif;*.tif;*.png;*.psd" },
    { "BMP Files", "*.bmp" },
    { "JPEG Files", "*.jpg" },
    { "TGA Files", "*.tga" },
    { "GIF Files", "*.gif" },
    { "TIF Files", "*.tif" },
    { "PNG Files", "*.png" },
    { "PSD Files", "*.psd" },
};

} // namespace

SaveTarget TargetOf(bool specialFolder, bool autoSave, bool autoDir)
{
    const auto holds = [&](const Rule& rule) {
        return rule.specialFolder == specialFolder && rule.autoSave == autoSave
            && rule.autoDir.value_or(autoDir) == autoDir;
    };
    return std::ranges::find_if(Rules, holds)->target;
}

QString WithExtension(const QString& name, const QString& extension)
{
    return name.right(4).toLower() == extension ? name : name + extension;
}

QString SaveFilter()
{
    QStringList parts;
    for (const FilterRow& row : Filters) {
        const QString pattern = QLatin1String(row.pattern);
        parts << QLatin1String(row.name) + QStringLiteral(" (") + pattern + u')' << pattern;
    }
    return parts.join(u'|');
}
