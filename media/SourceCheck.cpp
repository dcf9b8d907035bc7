#include "media/SourceCheck.h"

#include "base/Descriptor.h"
#include "media/Failure.h"
#include "media/Libav.h"

extern "C" {
#include <libavutil/avstring.h>
}

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace media {

namespace {

constexpr char Containers[] = "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,mpeg,mpegts,mpegvideo,asf,flv,live_"
                              "flv,ogg,h264,hevc,m4v,mjpeg,"
                              "mjpeg_2000,jpeg_pipe,dv,mxf,gif,rm,yuv4mpegpipe,ivf,obu,vc1,h263,wtv,nut";
constexpr char ListsOfTheWeb[] = ",hls,aac,mp3";
constexpr qsizetype LongestAddress = 8192;
constexpr int ProbeBytes = 64 * 1024;

int OpenToRead(const QByteArray& path)
{
    return open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
}

/// A pipe or a device may do something when it is opened, so the kind is looked at first.
void CheckFile(const QByteArray& path)
{
    if (path.contains('\0'))
        throw MediaError(Failure::NotFound, "a name with a NUL");
    struct stat facts { };
    if (stat(path.constData(), &facts) != 0)
        throw ErrorOf(AVERROR(errno), Source::Kind::File);
    if (!S_ISREG(facts.st_mode))
        throw MediaError(Failure::NotAFile, S_ISDIR(facts.st_mode) ? "a folder" : "a pipe or a device");
    const Descriptor file(OpenToRead(path));
    if (!file.IsOpen() || fstat(file.Number(), &facts) != 0)
        throw ErrorOf(AVERROR(errno), Source::Kind::File);
    if (!S_ISREG(facts.st_mode))
        throw MediaError(Failure::NotAFile, "a pipe or a device");
    if (facts.st_size == 0)
        throw MediaError(Failure::Empty, "no bytes");
}

void CheckWebAddress(const QByteArray& address)
{
    const bool isPlain =
        std::all_of(address.begin(), address.end(), [](char c) { return uchar(c) > ' ' && c != 127; });
    if (!IsWebAddress(address) || !isPlain || address.size() > LongestAddress)
        throw MediaError(Failure::Refused, "not a web address");
}

QByteArray AbsolutePath(const QByteArray& path)
{
    return path.startsWith('/') ? path : QFile::encodeName(QDir::currentPath()) + '/' + path;
}

QByteArray FirstBytes(const Source& source)
{
    if (source.kind == Source::Kind::Memory)
        return source.data.left(ProbeBytes);
    const Descriptor file(OpenToRead(source.data));
    QByteArray bytes(ProbeBytes, '\0');
    const ssize_t count = file.IsOpen() ? pread(file.Number(), bytes.data(), size_t(bytes.size()), 0) : 0;
    return bytes.left(std::max<ssize_t>(count, 0));
}

/// Names of the protocols that may be used for a source, separated by commas.
const char* AllowedProtocols(Source::Kind kind)
{
    switch (kind) {
    case Source::Kind::File:
        return "file";
    case Source::Kind::Address:
        return "http,https,tls,tcp,crypto,httpproxy";
    case Source::Kind::Memory:
        return "data";
    }
    return "";
}

} // namespace

bool IsWebAddress(const QByteArray& address)
{
    const QByteArray start = address.left(8).toLower();
    return start.startsWith("http://") || start.startsWith("https://");
}

QByteArray CheckedAddress(const Source& source)
{
    switch (source.kind) {
    case Source::Kind::File:
        CheckFile(source.data);
        return "file:" + AbsolutePath(source.data);
    case Source::Kind::Address:
        CheckWebAddress(source.data);
        return source.data;
    case Source::Kind::Memory:
        if (source.data.isEmpty())
            throw MediaError(Failure::Empty, "no bytes");
        return {};
    }
    return {};
}

bool LooksLikeVideo(const Source& source)
{
    QByteArray bytes = FirstBytes(source);
    const int size = int(bytes.size());
    bytes.append(AVPROBE_PADDING_SIZE, '\0');
    AVProbeData data { "", reinterpret_cast<unsigned char*>(bytes.data()), size, nullptr };
    int score = AVPROBE_SCORE_RETRY;
    const AVInputFormat* format = av_probe_input_format2(&data, 1, &score);
    return format && av_match_list(format->name, AllowedFormats(source.kind).constData(), ',') > 0;
}

QByteArray AllowedFormats(Source::Kind kind)
{
    return kind == Source::Kind::Address ? QByteArray(Containers) + ListsOfTheWeb : QByteArray(Containers);
}

void KeepToProtocols(Options& options, Source::Kind kind)
{
    options.Set("protocol_whitelist", AllowedProtocols(kind));
    if (kind != Source::Kind::Address)
        return;
    options.Set("rw_timeout", "10000000"); // microseconds
    options.Set("tls_verify", "1");
    options.Set("ca_file", "/etc/ssl/certs/ca-certificates.crt");
}

} // namespace media
