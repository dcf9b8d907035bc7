#pragma once

#include "app/SettingsKeys.h"
#include "settingsui/Field.h"

#include <array>
#include <bitset>
#include <span>

class ApplicationState;

/// The fields of the options by key, and the ways between the store, the run-time copies of the keys and the
/// controls.
class OptionFields {
public:
    explicit OptionFields(ApplicationState& state)
        : state_(state)
    {
    }

    /// Tells the controls that edit a key.
    void Add(Key key, Field field) { fields_[size_t(key)] = std::move(field); }

    /// Puts on the controls what the store has. What the run has meanwhile made of the copy stays in force.
    void Show(Key key);
    /// Puts on the controls what is in force.
    void ShowCopy(Key key);
    /// Controls and copy take what the store has; a copy that it refused stays.
    void Restore(Key key);
    /// Copies and store take what the controls stand for, in this order and all at once. With none of a group
    /// set its copy and its text in the store stay.
    void Save(std::span<const Key> keys);
    /// Copy and store take this at once. False when it does not stand on the disk.
    bool Write(Key key, const QString& text);

    /// Whether the store has taken all that was given to it of a key.
    bool IsStored(Key key) const { return !unstored_[size_t(key)]; }
    /// Whether all that was given to the store stands on the disk by now.
    bool IsAllStored() const { return unstored_.none(); }

private:
    QString TextToSave(Key key);
    /// What the store has, or the copy while the store refuses it.
    QString Kept(Key key);
    void Note(std::span<const Key> keys, bool areStored);

    ApplicationState& state_;
    std::array<Field, size_t(Key::Count)> fields_;
    std::bitset<size_t(Key::Count)> unstored_;
};
