#include "media/CaptionTrack.h"

#include "media/CaptionText.h"

namespace media {

namespace {

qsizetype BytesOf(const Caption& caption)
{
    size_t bytes = 0;
    for (const CaptionRow& row : caption) {
        bytes += sizeof(row);
        for (const CaptionRun& run : row.runs)
            bytes += sizeof(run) + size_t(run.text.size()) * sizeof(QChar);
    }
    return qsizetype(bytes);
}

} // namespace

void CaptionTrack::Add(int number, const QByteArray& triplets)
{
    if (const auto text = line_.Take(number, triplets))
        lineSays_.Add(number, *text, text->size());
    if (!lineSays_.IsEmpty() || !digital_.Take(triplets))
        return;
    const Caption said = digital_.Shown();
    digitalSays_.Add(number, said, BytesOf(said));
}

void CaptionTrack::AddOfTrack(int number, const QByteArray& triplets)
{
    if (const auto text = ofTrack_.Take(number, triplets))
        trackSays_.Add(number, *text, text->size());
}

Caption CaptionTrack::At(int number) const
{
    if (lineSays_.IsEmpty() && !digitalSays_.IsEmpty())
        return digitalSays_.At(number);
    return CaptionFromAss((lineSays_.IsEmpty() ? trackSays_ : lineSays_).At(number));
}

} // namespace media
