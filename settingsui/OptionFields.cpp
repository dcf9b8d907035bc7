#include "settingsui/OptionFields.h"

#include "app/ApplicationState.h"

#include <vector>

void OptionFields::Show(Key key)
{
    fields_[size_t(key)].show(state_.TextOf(key, Reader::Options));
}

void OptionFields::ShowCopy(Key key)
{
    fields_[size_t(key)].show(state_.CopyOf(key));
}

void OptionFields::Restore(Key key)
{
    state_.Reload(key, Reader::Options);
    Show(key);
}

void OptionFields::Save(std::span<const Key> keys)
{
    std::vector<KeyText> texts;
    for (const Key key : keys)
        texts.push_back({ key, TextToSave(key) });
    Note(keys, state_.Keep(texts));
}

bool OptionFields::Write(Key key, const QString& text)
{
    state_.SetText(key, text);
    const bool isStored = state_.Keep(std::span(&key, 1));
    Note({ &key, 1 }, isStored);
    return isStored;
}

QString OptionFields::TextToSave(Key key)
{
    const std::optional<QString> chosen = fields_[size_t(key)].text();
    if (!chosen)
        return state_.TextOf(key, Reader::Options);
    state_.SetText(key, *chosen);
    return state_.CopyOf(key);
}

void OptionFields::Note(std::span<const Key> keys, bool areStored)
{
    for (const Key key : keys)
        unstored_.set(size_t(key), !areStored);
}
