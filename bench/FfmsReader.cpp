#include "bench/Reader.h"
#include "tests/clips/BarCode.h"

#include <ffms.h>

#include <stdexcept>

namespace {

constexpr int Threads = 2;

template <auto destroy> struct By {
    template <typename Thing> void operator()(Thing* thing) const { destroy(thing); }
};
using IndexPtr = std::unique_ptr<FFMS_Index, By<FFMS_DestroyIndex>>;
using VideoPtr = std::unique_ptr<FFMS_VideoSource, By<FFMS_DestroyVideoSource>>;

template <typename Thing> Thing Checked(Thing thing)
{
    if (!thing)
        throw std::runtime_error("ffms2 cannot read the clip");
    return thing;
}

class Ffms : public Reader {
public:
    explicit Ffms(const char* path)
    {
        FFMS_Init(0, 0);
        const IndexPtr index(
            Checked(FFMS_DoIndexing2(Checked(FFMS_CreateIndexer(path, nullptr)), FFMS_IEH_IGNORE, nullptr)));
        const int track = FFMS_GetFirstTrackOfType(index.get(), FFMS_TYPE_VIDEO, nullptr);
        video_.reset(
            Checked(FFMS_CreateVideoSource(path, track, index.get(), Threads, FFMS_SEEK_NORMAL, nullptr)));
    }
    void GoTo(int number) override { frame_ = Checked(FFMS_GetFrame(video_.get(), number, nullptr)); }
    /// The plane of brightness is enough.
    int Seen() override
    {
        return NumberIn(QImage(frame_->Data[0], frame_->EncodedWidth, frame_->EncodedHeight,
            frame_->Linesize[0], QImage::Format_Grayscale8));
    }

private:
    VideoPtr video_;
    const FFMS_Frame* frame_ = nullptr;
};

} // namespace

std::unique_ptr<Reader> FfmsReader(const QString& clip)
{
    return std::make_unique<Ffms>(clip.toLocal8Bit().constData());
}
