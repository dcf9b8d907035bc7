#include "app/SettingsText.h"

#include "desktop/FileName.h"

#include <QList>
#include <QStringDecoder>

#include <algorithm>

namespace {

constexpr QStringView SpecialInNames = u"=[]#;";

bool IsControl(QChar c)
{
    return c < u' ' || c == QChar(0x7F);
}

QString Escaped(const QString& text, QStringView special = {})
{
    QString escaped;
    for (const QChar c : text) {
        if (c == u'\\')
            escaped += QStringLiteral("\\\\");
        else if (c == u'\n')
            escaped += QStringLiteral("\\n");
        else if (IsControl(c) || special.contains(c))
            escaped += QStringLiteral("\\x%1").arg(uint(c.unicode()), 2, 16, QLatin1Char('0'));
        else
            escaped += c;
    }
    return escaped;
}

/// Reads one escape sequence at the front of rest and takes it off; null when it is none of ours.
QChar TakeEscape(QStringView& rest)
{
    const QStringView sequence = rest;
    rest = rest.sliced(qMin<qsizetype>(2, rest.size()));
    if (sequence.startsWith(u"\\\\"))
        return u'\\';
    if (sequence.startsWith(u"\\n"))
        return u'\n';
    bool isNumber = false;
    const ushort code = sequence.size() < 4 ? ushort(0) : sequence.sliced(2, 2).toUShort(&isNumber, 16);
    if (!sequence.startsWith(u"\\x") || !isNumber)
        return QChar::ReplacementCharacter;
    rest = sequence.sliced(4);
    return QChar(code);
}

std::optional<QString> Unescaped(QStringView text)
{
    QString plain;
    while (!text.isEmpty()) {
        const bool isEscape = text.front() == u'\\';
        const QChar c = isEscape ? TakeEscape(text) : text.front();
        if (isEscape ? c == QChar::ReplacementCharacter : IsControl(c))
            return std::nullopt;
        plain += c;
        if (!isEscape)
            text = text.sliced(1);
    }
    return plain;
}

QString Decoded(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? FileName::FromBytes(bytes) : text;
}

} // namespace

SettingsText SettingsText::Parse(const QByteArray& bytes)
{
    SettingsText text;
    const QString decoded = Decoded(bytes);
    QString section;
    for (QStringView line : QStringView(decoded).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const bool isBlank = line.trimmed().isEmpty() || line.startsWith(u'#') || line.startsWith(u';');
        if (!isBlank && !text.ReadLine(line, section))
            text.damaged_ = true;
    }
    return text;
}

SettingsText SettingsText::Damaged()
{
    SettingsText text;
    text.damaged_ = true;
    return text;
}

bool SettingsText::ReadLine(QStringView line, QString& section)
{
    if (line.startsWith(u'[')) {
        const auto name = line.endsWith(u']') ? Unescaped(line.sliced(1, line.size() - 2)) : std::nullopt;
        section = name.value_or(section);
        return name.has_value();
    }
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return false;
    const auto key = Unescaped(line.first(equals));
    const auto value = Unescaped(line.sliced(equals + 1));
    if (!key || !value)
        return false;
    Set(section, *key, *value);
    return true;
}

QByteArray SettingsText::ToBytes() const
{
    QString text;
    for (const Section& section : sections_) {
        if (!section.name.isEmpty())
            text += u'[' + Escaped(section.name, SpecialInNames) + QStringLiteral("]\n");
        for (const Entry& entry : section.entries)
            text += Escaped(entry.key, SpecialInNames) + u'=' + Escaped(entry.value) + u'\n';
    }
    return FileName::ToBytes(text);
}

std::optional<QString> SettingsText::Find(const QString& section, const QString& key) const
{
    for (const Section& candidate : sections_)
        for (const Entry& entry : candidate.entries)
            if (candidate.name == section && entry.key == key)
                return entry.value;
    return std::nullopt;
}

void SettingsText::Set(const QString& section, const QString& key, const QString& value)
{
    std::vector<Entry>& entries = SectionNamed(section).entries;
    const auto found = std::ranges::find(entries, key, &Entry::key);
    if (found == entries.end())
        entries.push_back({ key, value });
    else
        found->value = value;
}

SettingsText::Section& SettingsText::SectionNamed(const QString& name)
{
    const auto found = std::ranges::find(sections_, name, &Section::name);
    if (found != sections_.end())
        return *found;
    // The nameless section has no heading, so it can only stand first.
    return *sections_.insert(name.isEmpty() ? sections_.begin() : sections_.end(), { name, {} });
}
