#include "media/CaptionFeed.h"

namespace media {

namespace {

/// Both tracks round their stamps to their own ticks, of which one is often a millisecond.
constexpr double Rounding = 0.001;

} // namespace

std::unique_ptr<CaptionFeed> CaptionFeed::Of(const Source& source, const MediaSource& pictures)
{
    if (source.kind == Source::Kind::Address || !pictures.HasCaptions())
        return nullptr;
    try {
        return std::unique_ptr<CaptionFeed>(new CaptionFeed(source));
    } catch (const MediaError&) {
        return nullptr;
    }
}

CaptionFeed::CaptionFeed(const Source& source)
    : media_(source, interrupt_, MediaSource::Track::Captions)
    , next_(media_.Read())
{
}

double CaptionFeed::Begin() const
{
    const int64_t stamp = next_->pts == AV_NOPTS_VALUE ? 0 : next_->pts;
    return double(stamp) * av_q2d(media_.Stream().time_base) - double(media_.Start()) / AV_TIME_BASE;
}

QByteArray CaptionFeed::UpTo(double seconds)
{
    QByteArray triplets;
    while (next_ && Begin() <= seconds + Rounding) {
        triplets.append(reinterpret_cast<const char*>(next_->data), next_->size);
        next_ = media_.Read();
    }
    return triplets;
}

} // namespace media
