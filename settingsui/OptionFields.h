#pragma once

#include "app/SettingsKeys.h"
#include "settingsui/Field.h"

#include <array>
#include <bitset>

class ApplicationState;

/// The fields of the options by key, and the ways between the store, the run-time copies of the keys and the
/// controls.
class OptionFields {
public:
    explicit OptionFields(ApplicationState& state)
        : state_(state)
    {
    }

    ApplicationState& State() { return state_; }
    void Add(Key key, Field field) { fields_[size_t(key)] = std::move(field); }

    /// Puts on the controls what the store has. What the run has meanwhile made of the copy stays in force.
    void Show(Key key);
    /// The same, and the copy takes it as well.
    void Restore(Key key);
    /// Copy and store take what the controls stand for; with none of a group set the copy stays and is
    /// stored.
    void Save(Key key);
    /// Copy and store take this at once. False when it does not stand on the disk.
    bool Write(Key key, const QString& text);
    /// Stores the copy as it is. False when it does not stand on the disk.
    bool Store(Key key);

    /// Whether all that was given to the store stands on the disk by now.
    bool IsAllStored() const { return unstored_.none(); }

private:
    ApplicationState& state_;
    std::array<Field, size_t(Key::Count)> fields_;
    std::bitset<size_t(Key::Count)> unstored_;
};
