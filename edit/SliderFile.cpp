#include "edit/SliderFile.h"

#include "app/AsControl.h"
#include "app/ControlError.h"
#include "desktop/WholeFile.h"

#include <QFileInfo>

namespace {

constexpr qsizetype LongestFile = 1 << 16; // bytes

QByteArray Content(const QString& path)
{
    if (QFileInfo(path).size() == 0)
        return {};
    return AsControl([&] { return WholeFile::Read(path, LongestFile); });
}

} // namespace

void SliderFile::Save(const QString& path, const Values& values)
{
    QByteArray text;
    for (const int value : values)
        text += QByteArray::number(value) + "\r\n";
    IgnoreErrors([&] { AsControl([&] { WholeFile::Replace(path, text); }); });
}

std::optional<SliderFile::Texts> SliderFile::Load(const QString& path)
{
    if (!QFileInfo::exists(path))
        return std::nullopt;
    Texts texts;
    size_t slot = 0;
    const QString content = QString::fromUtf8(Content(path));
    for (const QString& line : content.split(QLatin1Char('\n'))) {
        const QString text = line.trimmed();
        if (text.isEmpty())
            continue;
        if (slot == texts.size())
            throw ControlError(
                QStringLiteral("The settings file has more than %1 numbers.").arg(EffectRowCount));
        texts[slot++] = text;
    }
    return texts;
}
