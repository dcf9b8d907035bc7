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
    const char16_t* name;
    const char16_t* pattern;
};

constexpr FilterRow Filters[] = {
    { u"Graphic Files", u"*.bmp;*.jpg;*.tga;*.gif;*.tif;*.png;*.psd" },
    { u"BMP Files", u"*.bmp" },
    { u"JPEG Files", u"*.jpg" },
    { u"TGA Files", u"*.tga" },
    { u"GIF Files", u"*.gif" },
    { u"TIF Files", u"*.tif" },
    { u"PNG Files", u"*.png" },
    { u"PSD Files", u"*.psd" },
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
        const QString pattern = QString::fromUtf16(row.pattern);
        parts << QString::fromUtf16(row.name) + QStringLiteral(" (") + pattern + u')' << pattern;
    }
    return parts.join(u'|');
}
