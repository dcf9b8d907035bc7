#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/bsf.h>
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavformat/avformat.h>
#include <libavutil/adler32.h>
#include <libavutil/display.h>
#include <libavutil/imgutils.h>
#include <libavutil/mem.h>
#include <libavutil/pixdesc.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}
#include <memory>
#include <new>

/// Owners of the library's objects.
namespace media {

template <auto Free> struct FreeByAddress {
    template <typename T> void operator()(T* object) const { Free(&object); }
};
template <auto Free> struct FreeByValue {
    template <typename T> void operator()(T* object) const { Free(object); }
};

using PacketPtr = std::unique_ptr<AVPacket, FreeByAddress<av_packet_free>>;
using FramePtr = std::unique_ptr<AVFrame, FreeByAddress<av_frame_free>>;
using FormatPtr = std::unique_ptr<AVFormatContext, FreeByAddress<avformat_close_input>>;
using CodecPtr = std::unique_ptr<AVCodecContext, FreeByAddress<avcodec_free_context>>;
using FilterPtr = std::unique_ptr<AVBSFContext, FreeByAddress<av_bsf_free>>;
using ParserPtr = std::unique_ptr<AVCodecParserContext, FreeByValue<av_parser_close>>;
using GraphPtr = std::unique_ptr<AVFilterGraph, FreeByAddress<avfilter_graph_free>>;
using ResamplerPtr = std::unique_ptr<SwrContext, FreeByAddress<swr_free>>;
using ScalerPtr = std::unique_ptr<SwsContext, FreeByValue<sws_freeContext>>;

/// Another owner of a packet's bytes.
inline PacketPtr CloneOf(const AVPacket& packet)
{
    PacketPtr clone(av_packet_clone(&packet));
    if (!clone)
        throw std::bad_alloc();
    return clone;
}

/// A set of options for the library.
class Options {
public:
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;
    ~Options() { av_dict_free(&entries_); }
    void Set(const char* key, const char* value) { av_dict_set(&entries_, key, value, 0); }
    AVDictionary** Address() { return &entries_; }

private:
    AVDictionary* entries_ = nullptr;
};

/// Lets the library ask, while it waits, whether to give up: it does when due.IsDue().
template <typename Due> AVIOInterruptCB EndedBy(const Due& due)
{
    return { [](void* asked) { return int(static_cast<const Due*>(asked)->IsDue()); },
        const_cast<Due*>(&due) };
}

} // namespace media
