#include "settingsui/OptionFields.h"

#include "app/ApplicationState.h"

void OptionFields::Show(Key key)
{
    fields_[size_t(key)].show(state_.TextOf(key, Reader::Options));
}

void OptionFields::Restore(Key key)
{
    state_.Reload(key, Reader::Options);
    Show(key);
}

void OptionFields::Save(Key key)
{
    if (const std::optional<QString> text = fields_[size_t(key)].text())
        state_.SetText(key, *text);
    Store(key);
}

bool OptionFields::Write(Key key, const QString& text)
{
    state_.SetText(key, text);
    return Store(key);
}

bool OptionFields::Store(Key key)
{
    const bool isStored = state_.Store(key);
    unstored_.set(size_t(key), !isStored);
    return isStored;
}
