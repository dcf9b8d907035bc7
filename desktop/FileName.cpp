#include "desktop/FileName.h"

#include <QStringDecoder>

namespace {

constexpr char16_t EscapeBase = 0xDC00; // plus the byte, which is 0x80 or above

bool IsEscape(QChar c)
{
    return c.unicode() >= EscapeBase + 0x80 && c.unicode() <= EscapeBase + 0xFF;
}

/// Length of the well-formed UTF-8 sequence at the front of text, 0 when there is none.
qsizetype SequenceLength(QByteArrayView text)
{
    for (qsizetype length = 1; length <= qMin<qsizetype>(4, text.size()); ++length) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString decoded = decoder.decode(text.first(length));
        if (!decoder.hasError() && !decoded.contains(QChar::ReplacementCharacter))
            return length;
        if (text.first(length) == "\xEF\xBF\xBD") // the replacement sign itself
            return length;
    }
    return 0;
}

} // namespace

QString FileName::FromBytes(const QByteArray& name)
{
    QString text;
    for (qsizetype at = 0; at < name.size();) {
        if (const qsizetype length = SequenceLength(QByteArrayView(name).sliced(at))) {
            text += QString::fromUtf8(name.constData() + at, length);
            at += length;
        } else {
            text += QChar(char16_t(EscapeBase + uchar(name[at++])));
        }
    }
    return text;
}

QByteArray FileName::ToBytes(const QString& name)
{
    QByteArray bytes;
    qsizetype plain = 0;
    const auto flush = [&](qsizetype end) { bytes += QStringView(name).sliced(plain, end - plain).toUtf8(); };
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool isPair = i > 0 && name[i - 1].isHighSurrogate();
        if (!IsEscape(name[i]) || isPair)
            continue;
        flush(i);
        bytes += char(uchar(name[i].unicode() - EscapeBase));
        plain = i + 1;
    }
    flush(name.size());
    return bytes;
}

QString FileName::Shown(const QString& name)
{
    QString shown = name;
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const bool isLone = shown[i].isLowSurrogate() && (i == 0 || !shown[i - 1].isHighSurrogate());
        if (isLone || shown[i].category() == QChar::Other_Control)
            shown[i] = QChar::ReplacementCharacter;
    }
    return shown;
}
