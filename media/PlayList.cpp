#include "media/PlayList.h"

#include "media/Failure.h"
#include "media/SourceCheck.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace media {

namespace {

constexpr int LongestList = 64 * 1024; // bytes

struct CloseStream {
    void operator()(AVIOContext* stream) const { avio_closep(&stream); }
};

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

/// The list's bytes, through the library, whose lists of protocols and time-outs hold for it as for a video.
QByteArray ListBytes(const Source& source, Interrupt& interrupt)
{
    const AVIOInterruptCB callback = EndedBy(interrupt);
    Options options;
    KeepToProtocols(options, source.kind);
    AVIOContext* opened = nullptr;
    const QByteArray address = CheckedAddress(source);
    if (const int error =
            avio_open2(&opened, address.constData(), AVIO_FLAG_READ, &callback, options.Address());
        error < 0)
        throw ErrorOf(error, source.kind);
    const std::unique_ptr<AVIOContext, CloseStream> stream(opened);
    QByteArray bytes(LongestList, '\0');
    const int count = avio_read(stream.get(), reinterpret_cast<unsigned char*>(bytes.data()), LongestList);
    if (count < 0 && count != AVERROR_EOF)
        throw ErrorOf(count, source.kind);
    return bytes.left(std::max(count, 0));
}

/// The character that an entity names, in UTF-8: "amp", "#38", "#x26". Empty for an unknown one.
QByteArray CharacterOf(const QString& entity)
{
    constexpr std::pair<const char*, const char*> named[] { { "quot", "\"" }, { "lt", "<" }, { "gt", ">" },
        { "apos", "'" }, { "amp", "&" } };
    for (const auto& [name, character] : named)
        if (entity == QLatin1String(name))
            return character;
    const bool isHex = entity.startsWith(QLatin1String("#x"), Qt::CaseInsensitive);
    const char32_t code =
        entity.startsWith(u'#') ? entity.mid(isHex ? 2 : 1).toUInt(nullptr, isHex ? 16 : 10) : 0;
    return code < U' ' || code > QChar::LastValidCodePoint ? QByteArray()
                                                           : QString::fromUcs4(&code, 1).toUtf8();
}

/// In one pass, or what an entity stands for could be taken for the begin of another.
QByteArray WithoutEntities(const QString& text)
{
    static const QRegularExpression entity(QStringLiteral("&(#?[0-9A-Za-z]+);"));
    QByteArray plain;
    qsizetype done = 0;
    for (auto found = entity.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QByteArray character = CharacterOf(match.captured(1));
        const qsizetype end = character.isEmpty() ? match.capturedEnd() : match.capturedStart();
        plain += QStringView(text).sliced(done, end - done).toLatin1() + character;
        done = match.capturedEnd();
    }
    return plain + QStringView(text).sliced(done).toLatin1();
}

/// Lists were written where folders part at backslashes; an address that is whole stands as it was written.
QByteArray Resolved(const Source& list, QByteArray reference)
{
    if (IsWebAddress(reference))
        return reference;
    reference.replace('\\', '/');
    if (list.kind == Source::Kind::Address)
        return QUrl::fromEncoded(list.data).resolved(QUrl::fromEncoded(reference)).toEncoded();
    return reference.startsWith('/') ? reference : list.data.left(list.data.lastIndexOf('/') + 1) + reference;
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
        return WithoutEntities(found.captured(found.lastCapturedIndex()).trimmed());
    return line.match(text).captured(1).toLatin1();
}

Source Followed(const Source& source, Interrupt& interrupt)
{
    if (!IsList(source))
        return source;
    const QByteArray reference = FirstReference(ListBytes(source, interrupt));
    if (reference.isEmpty())
        throw MediaError(Failure::NotAVideo, "a play list without a reference");
    return ReferredTo(source, reference);
}

Source ReferredTo(const Source& list, const QByteArray& reference)
{
    Source first { list.kind, Resolved(list, reference) };
    const bool isOfTheWeb = list.kind == Source::Kind::Address;
    if (isOfTheWeb ? !IsWebAddress(first.data) : reference.contains("://"))
        throw MediaError(Failure::Refused, "the play list leads elsewhere");
    if (IsList(first))
        throw MediaError(Failure::Refused, "a play list of play lists");
    return first;
}

} // namespace media
