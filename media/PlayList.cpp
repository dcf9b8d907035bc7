#include "media/PlayList.h"

#include "media/Failure.h"
#include "media/SourceCheck.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace media {

namespace {

constexpr int LongestList = 64 * 1024; // bytes

struct CloseStream {
    void operator()(AVIOContext* stream) const { avio_closep(&stream); }
};

int IsDue(void* interrupt)
{
    return static_cast<const Interrupt*>(interrupt)->IsDue();
}

bool IsList(const Source& source)
{
    switch (source.kind) {
    case Source::Kind::File:
        return source.data.toLower().endsWith(".asx");
    case Source::Kind::Address:
        return source.data.split('?').first().toLower().endsWith(".asx");
    case Source::Kind::Memory:
        return false;
    }
    return false;
}

bool IsWeb(const QByteArray& reference)
{
    const QByteArray start = reference.left(8).toLower();
    return start.startsWith("http://") || start.startsWith("https://");
}

/// The list's bytes, through the library, whose lists of protocols and time-outs hold for it as for a video.
QByteArray ListBytes(const Source& source, Interrupt& interrupt)
{
    const AVIOInterruptCB callback { IsDue, &interrupt };
    Options options;
    SetNetworkOptions(options, source.kind);
    AVIOContext* opened = nullptr;
    const QByteArray address = CheckedAddress(source);
    if (const int error =
            avio_open2(&opened, address.constData(), AVIO_FLAG_READ, &callback, options.Address());
        error < 0)
        throw ErrorOf(error);
    const std::unique_ptr<AVIOContext, CloseStream> stream(opened);
    QByteArray bytes(LongestList, '\0');
    const int count = avio_read(stream.get(), reinterpret_cast<unsigned char*>(bytes.data()), LongestList);
    if (count < 0 && count != AVERROR_EOF)
        throw ErrorOf(count);
    return bytes.left(std::max(count, 0));
}

QByteArray WithoutEntities(QByteArray text)
{
    constexpr std::pair<const char*, const char*> entities[] { { "&quot;", "\"" }, { "&lt;", "<" },
        { "&gt;", ">" }, { "&apos;", "'" }, { "&amp;", "&" } };
    for (const auto& [entity, character] : entities)
        text.replace(entity, character);
    return text;
}

} // namespace

QByteArray FirstReference(const QByteArray& list)
{
    static const QRegularExpression mark(
        QStringLiteral(R"re(<\s*ref\b[^>]*?\bhref\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>"']+)))re"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression line(QStringLiteral(R"(^\s*ref1\s*=\s*(.+?)\s*$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::MultilineOption);
    const QString text = QString::fromLatin1(list);
    if (const auto found = mark.match(text); found.hasMatch())
        return WithoutEntities(found.captured(found.lastCapturedIndex()).toLatin1().trimmed());
    return line.match(text).captured(1).toLatin1();
}

Source Followed(const Source& source, Interrupt& interrupt)
{
    if (!IsList(source))
        return source;
    const QByteArray reference = FirstReference(ListBytes(source, interrupt));
    if (reference.isEmpty())
        throw MediaError(Failure::NotAVideo, "a play list without a reference");
    const bool isOfTheWeb = source.kind == Source::Kind::Address;
    if (IsWeb(reference) != isOfTheWeb || (!isOfTheWeb && reference.contains("://")))
        throw MediaError(Failure::Refused, "the play list leads elsewhere");
    Source first { source.kind,
        isOfTheWeb || reference.startsWith('/')
            ? reference
            : source.data.left(source.data.lastIndexOf('/') + 1) + reference };
    if (IsList(first))
        throw MediaError(Failure::Refused, "a play list of play lists");
    return first;
}

} // namespace media
