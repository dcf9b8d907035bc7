#include "video/VideoNames.h"

#include "toolkit/PathText.h"

#include <algorithm>
#include <array>

QString VideoExtension(const QString& name)
{
    return name.right(4).toLower().trimmed();
}

bool IsVideoName(const QString& name)
{
    static constexpr std::array Extensions { u"mpeg", u".mpg", u".avi", u".swf", u".mpa", u".wmv", u".asx" };
    const QString extension = VideoExtension(name);
    return std::any_of(Extensions.begin(), Extensions.end(),
        [&](const char16_t* known) { return extension == QStringView(known); });
}

VideoPathParts SplitVideoPath(const QString& path)
{
    const QString trimmed = path.trimmed();
    const qsizetype at = PathText::LastSeparator(trimmed);
    if (at < 0)
        return {};
    return { true, trimmed.mid(at + 1).section(QChar(u'\0'), 0, 0), trimmed.left(at) };
}
