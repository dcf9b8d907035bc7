#include "media/LibraryTalk.h"

#include "media/DamageWatch.h"
#include "media/Libav.h"
#include <cstdarg>
#include <string_view>

namespace media::LibraryTalk {

namespace {

thread_local bool toldOfHugePicture = false;

/// The codec that talks, null when another part of the library does.
const AVCodecContext* CodecOf(void* speaker)
{
    static const AVClass* const codecs = avcodec_get_class();
    return speaker && *static_cast<const AVClass**>(speaker) == codecs ? static_cast<AVCodecContext*>(speaker)
                                                                       : nullptr;
}

void Listen(void* speaker, int, const char* format, va_list)
{
    const std::string_view text = format;
    if (text.starts_with("Picture size"))
        toldOfHugePicture = true;
    if (text.starts_with("concealing")) {
        const AVCodecContext* codec = CodecOf(speaker);
        if (codec && codec->opaque)
            static_cast<DamageWatch*>(codec->opaque)->isPatched = true;
    }
}

} // namespace

void Silence()
{
    av_log_set_callback(&Listen);
}

bool ToldOfHugePicture()
{
    return toldOfHugePicture;
}

void Forget()
{
    toldOfHugePicture = false;
}

} // namespace media::LibraryTalk
