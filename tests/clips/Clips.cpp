#include "tests/clips/Clips.h"

#include <QFile>
#include <QStringList>
#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace {

std::vector<int> ExpandPart(const QString& part)
{
    if (part.startsWith(u'?'))
        return std::vector<int>(part.size() > 1 ? part.mid(1).toUInt() : 1, -1);
    const QStringList ends = part.split(u'-');
    const int first = ends.first().toInt();
    std::vector<int> numbers(static_cast<std::size_t>(ends.last().toInt() - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

Clip ClipFrom(const QString& line)
{
    const QStringList cells = line.split(u'\t');
    return { cells.at(0), cells.at(1).toInt(), ExpandNumbers(cells.at(2)), ExpandNumbers(cells.at(3)),
        cells.at(4) };
}

} // namespace

std::vector<int> ExpandNumbers(const QString& ranges)
{
    std::vector<int> numbers;
    for (const QString& part : ranges.split(u',', Qt::SkipEmptyParts)) {
        const std::vector<int> more = ExpandPart(part);
        numbers.insert(numbers.end(), more.begin(), more.end());
    }
    return numbers;
}

QString ClipPath(const QString& name)
{
    return QStringLiteral(TAQ_CLIPS "/") + name;
}

std::vector<Clip> AllClips()
{
    QFile manifest(ClipPath(QStringLiteral("MANIFEST.tsv")));
    if (!manifest.open(QIODevice::ReadOnly))
        throw std::runtime_error("no clips in " TAQ_CLIPS ": run tests/clips/make_clips.sh " TAQ_CLIPS);
    const QStringList lines = QString::fromUtf8(manifest.readAll()).split(u'\n', Qt::SkipEmptyParts);
    std::vector<Clip> clips;
    std::transform(lines.begin() + 1, lines.end(), std::back_inserter(clips), ClipFrom);
    return clips;
}

Clip ClipNamed(const QString& name)
{
    const std::vector<Clip> clips = AllClips();
    const auto found = std::ranges::find(clips, name, &Clip::Name);
    if (found == clips.end())
        throw std::runtime_error("no clip " + name.toStdString());
    return *found;
}
