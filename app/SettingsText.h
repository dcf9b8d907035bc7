#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// What a settings file says: texts by section and key, in their order, one "key=value" a line under
/// "[section]". Line breaks, control characters and signs that would be read otherwise are escaped, so any
/// text comes back as it was.
class SettingsText {
public:
    /// Reads what can be read; lines that mean nothing are left out and make the text damaged.
    static SettingsText Parse(const QByteArray& bytes);
    /// A text of which nothing could be read.
    static SettingsText Damaged();
    QByteArray ToBytes() const;

    bool IsDamaged() const { return damaged_; }
    /// The text of a key; section and key may be empty.
    std::optional<QString> Find(const QString& section, const QString& key) const;
    void Set(const QString& section, const QString& key, const QString& value);

private:
    struct Entry {
        QString key;
        QString value;
    };
    struct Section {
        QString name;
        std::vector<Entry> entries;
    };

    Section& SectionNamed(const QString& name);
    bool ReadLine(QStringView line, QString& section);

    std::vector<Section> sections_;
    bool damaged_ = false;
};
