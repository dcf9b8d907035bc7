#include "media/Failure.h"

#include "base/Rows.h"

extern "C" {
#include <libavutil/error.h>
}
#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cerrno>

namespace media {

namespace {

struct FailureRow {
    Failure failure;
    const char* text;
};
constexpr std::array FailureTexts = {
    FailureRow { Failure::NotFound, "The file or address was not found." },
    FailureRow { Failure::NoPermission, "There is no permission to read the file." },
    FailureRow { Failure::NotAFile, "This is not a regular file." },
    FailureRow { Failure::Empty, "The file is empty." },
    FailureRow { Failure::NotAVideo, "This is not a video of a known kind." },
    FailureRow { Failure::Damaged, "The video is damaged or incomplete." },
    FailureRow { Failure::TooLarge, "The video's pictures are too large." },
    FailureRow { Failure::TimedOut, "There was no answer in time." },
    FailureRow { Failure::Refused, "This address is not allowed." },
    FailureRow { Failure::Network, "The network or the server failed." },
    FailureRow { Failure::Vanished, "The file is no longer there." },
    FailureRow { Failure::NoResources, "The system has not enough resources for this." },
};
static_assert(IsOneRowEach(FailureTexts, &FailureRow::failure, size_t(Failure::NoResources), 1));

struct CodeRow {
    int code;
    Failure failure;
};
constexpr std::array Codes = {
    CodeRow { AVERROR(ENOENT), Failure::NotFound },
    CodeRow { AVERROR(ENOTDIR), Failure::NotFound },
    CodeRow { AVERROR(ELOOP), Failure::NotFound },
    CodeRow { AVERROR(ENAMETOOLONG), Failure::NotFound },
    CodeRow { AVERROR_HTTP_NOT_FOUND, Failure::NotFound },
    CodeRow { AVERROR(EACCES), Failure::NoPermission },
    CodeRow { AVERROR(EPERM), Failure::NoPermission },
    CodeRow { AVERROR_HTTP_FORBIDDEN, Failure::NoPermission },
    CodeRow { AVERROR_HTTP_UNAUTHORIZED, Failure::NoPermission },
    CodeRow { AVERROR_HTTP_BAD_REQUEST, Failure::Network },
    CodeRow { AVERROR_HTTP_OTHER_4XX, Failure::Network },
    CodeRow { AVERROR_HTTP_SERVER_ERROR, Failure::Network },
    CodeRow { AVERROR(EISDIR), Failure::NotAFile },
    CodeRow { AVERROR(ENXIO), Failure::NotAFile },
    CodeRow { AVERROR(ENOMEM), Failure::TooLarge },
    CodeRow { AVERROR_EXIT, Failure::TimedOut },
    CodeRow { AVERROR(ETIMEDOUT), Failure::TimedOut },
    CodeRow { AVERROR_PROTOCOL_NOT_FOUND, Failure::Refused },
    CodeRow { AVERROR(EINVAL), Failure::NotAVideo },
    CodeRow { AVERROR_INVALIDDATA, Failure::NotAVideo },
    CodeRow { AVERROR(ECONNREFUSED), Failure::Network },
    CodeRow { AVERROR(ECONNRESET), Failure::Network },
    CodeRow { AVERROR(EHOSTUNREACH), Failure::Network },
    CodeRow { AVERROR(ENETUNREACH), Failure::Network },
    CodeRow { AVERROR(EIO), Failure::Network },
};

} // namespace

QString FailureText(Failure failure)
{
    return QCoreApplication::translate("media", FailureTexts[size_t(failure) - 1].text);
}

/// What fails like a line where there is none is a disk that cannot be read.
Failure FailureOf(int error, Source::Kind kind)
{
    const auto row =
        std::find_if(Codes.begin(), Codes.end(), [=](const CodeRow& r) { return r.code == error; });
    const bool hasLine = kind == Source::Kind::Address;
    if (row == Codes.end() || (row->failure == Failure::Network && !hasLine))
        return Failure::Damaged;
    return row->failure;
}

std::string DetailOf(int error)
{
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text {};
    av_strerror(error, text.data(), text.size());
    return text.data();
}

MediaError ErrorOf(int error, Source::Kind kind)
{
    return { FailureOf(error, kind), DetailOf(error) };
}

} // namespace media
