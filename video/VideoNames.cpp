#include "video/VideoNames.h"

#include "app/ApplicationState.h"
#include "toolkit/PathText.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

QString VideoExtension(const QString& name)
{
    return name.right(4).toLower().trimmed();
}

bool IsVideoName(const QString& name)
{
    static constexpr std::array Extensions { "mpeg", ".mpg", ".avi", ".swf", ".mpa", ".wmv", ".asx" };
    const QString extension = VideoExtension(name);
    return std::ranges::any_of(
        Extensions, [&](const char* known) { return extension == QLatin1String(known); });
}

void TestVideoExtension(ApplicationState& state, const QString& name)
{
    state.NotVideo = !IsVideoName(name);
}

VideoPathParts SplitVideoPath(const QString& path)
{
    const QString trimmed = path.trimmed();
    const qsizetype at = PathText::LastSeparator(trimmed);
    if (at < 0)
        return {};
    return { true, trimmed.mid(at + 1).section(QChar(u'\0'), 0, 0), trimmed.left(at) };
}

QString WithoutLogIn(const QString& address)
{
    static const QRegularExpression logIn(QStringLiteral("(?<=://)[^/?#]*@"));
    return QString(address).remove(logIn);
}
