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

    /// Puts on the controls what is stored. What the run has meanwhile made of the copy stays in force.
    void Show(Key key);
    /// Puts on the controls what is in force.
    void ShowCopy(Key key);
    /// Puts on the controls what is stored, and the copy takes it as well.
    void Restore(Key key);
    /// Copies and store take what the controls stand for, in this order and all at once. With none of a group
    /// set its copy and its text in the store stay.
    void Save(std::span<const Key> keys);
    /// Copy and store take this at once. False when it does not stand on the disk.
    bool Write(Key key, const QString& text);

    /// Whether all that was given to the store stands on the disk by now.
    bool IsAllStored() const { return unstored_.none(); }

private:
    QString TextToSave(Key key);
    void Note(std::span<const Key> keys, bool areStored);

    ApplicationState& state_;
    std::array<Field, size_t(Key::Count)> fields_;
    std::bitset<size_t(Key::Count)> unstored_;
};
