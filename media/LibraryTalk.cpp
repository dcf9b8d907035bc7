#include "media/LibraryTalk.h"

#include "media/Libav.h"
#include <cstdarg>
#include <cstring>

namespace media::LibraryTalk {

namespace {

thread_local bool toldOfHugePicture = false;

void Listen(void*, int, const char* format, va_list)
{
    if (std::strncmp(format, "Picture size", 12) == 0)
        toldOfHugePicture = true;
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
