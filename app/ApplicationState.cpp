#include "app/ApplicationState.h"

#include "app/SettingValue.h"
#include "toolkit/PathText.h"

#include <QMdiSubWindow>
#include <QStandardPaths>

#include <algorithm>
#include <variant>

namespace {

using State = ApplicationState;

/// A member, by the order of Kind.
using Variable =
    std::variant<bool State::*, qint16 State::*, float State::*, qint32 State::*, QString State::*>;

struct Binding {
    Key key;
    Variable variable;
};

/// Every key's variable, in the order in which the start reads them.
constexpr Binding Bindings[] = {
    { Key::FadeOuts, &State::FadeOuts },
    { Key::VidWinOnly, &State::VidWinOnly },
    { Key::SpecialFolder, &State::SpecialFolder },
    { Key::AutoSave, &State::AutoSave },
    { Key::OldFolder, &State::OldFolder },
    { Key::AutoFrame, &State::AutoFrame },
    { Key::CaptureTime, &State::CaptureTime },
    { Key::AutoCapture, &State::AutoCapture },
    { Key::Ext, &State::CurrentExt },
    { Key::SetFocusYES, &State::SetFocusYES },
    { Key::NoCap, &State::NoCap },
    { Key::VidSave, &State::VidSave },
    { Key::AutoDir, &State::AutoDir },
    { Key::NoWin, &State::NoWin },
    { Key::LoadVid, &State::LoadVid },
    { Key::HighQ, &State::HighQ },
    { Key::BW, &State::BW },
    { Key::NameFull, &State::NameFull },
    { Key::AutoNumber, &State::AutoNumber },
    { Key::PPosition, &State::PPosition },
    { Key::OpThumb, &State::OpThumb },
    { Key::OpPic, &State::OpPic },
    { Key::OpenVidList, &State::OpenVidList },
    { Key::PositionX, &State::PositionX },
    { Key::PositionY, &State::PositionY },
    { Key::SFontSize, &State::SFontSize },
    { Key::SFontBold, &State::SFontBold },
    { Key::SFontName, &State::SFontName },
    { Key::SFontItalic, &State::SFontItalic },
    { Key::sFontColor, &State::sFontColor },
    { Key::sFontText, &State::sFontText },
    { Key::UseWatermark, &State::UseWatermark },
    { Key::WatermarkBATCH, &State::WatermarkBATCH },
    { Key::TextShadowPosX, &State::TextShadowPosX },
    { Key::TextShadowPosY, &State::TextShadowPosY },
    { Key::WatermarkTextStyle, &State::WatermarkTextStyle },
    { Key::sFontWatermarkTextAngle, &State::sFontWatermarkTextAngle },
    { Key::sFontShadowColor, &State::sFontShadowColor },
    { Key::sFontBorderColor, &State::sFontBorderColor },
    { Key::UseShadows, &State::UseShadows },
    { Key::WordWrap, &State::WordWrap },
    { Key::ToolTip, &State::ToolTip },
    // These are read where they are needed, not at the start.
    { Key::UsersCaptureTime, &State::UsersCaptureTime },
    { Key::PicFolder, &State::BackgroundFile },
    { Key::OldDir, &State::OldDir },
    { Key::OldFolder2, &State::OldFolder2 },
};
constexpr auto LastReadAtStart = Key::ToolTip;

constexpr bool IsEveryKeyBoundOnceAsItsKind()
{
    for (const SettingsKey& row : SettingsKeys) {
        const auto isBound = [&row](const Binding& binding) {
            return binding.key == row.key && Kind(binding.variable.index()) == row.kind;
        };
        if (std::ranges::count_if(Bindings, isBound) != 1)
            return false;
    }
    return std::size(Bindings) == SettingsKeys.size();
}
static_assert(IsEveryKeyBoundOnceAsItsKind());

const Variable& VariableOf(Key key)
{
    return std::ranges::find(Bindings, key, &Binding::key)->variable;
}

QString NameOf(Key key)
{
    return QLatin1String(Row(key).name);
}

bool IsForm(const QWidget* widget)
{
    return widget->isWindow() || qobject_cast<const QMdiSubWindow*>(widget);
}

} // namespace

ApplicationState::ApplicationState(
    const QString& applicationFolder, const QString& settingsFolder, const QString& dataFolder)
    : Settings(settingsFolder)
    , folders_(applicationFolder,
          dataFolder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                               : dataFolder)
{
}

void ApplicationState::LoadApplicationState(QWidget& frame)
{
    Settings.SetCompany(QStringLiteral("Marlowfern Software"));
    Settings.SetAppName(QStringLiteral("TAQ Video Capture Pro v2.1"));
    SettingsSection = QStringLiteral("Options");
    KidCount = 0;
    HelpPath = folders_.Guide();
    MarksSet = false;
    ListIndex = 1;
    for (const Binding& binding : Bindings) {
        Reload(binding.key);
        if (binding.key == LastReadAtStart)
            break;
    }
    ApplyToolTips(frame);
    IsHomeNew = folders_.Make();
}

void ApplicationState::ApplyToolTips(QWidget& form) const
{
    for (QObject* child : form.children()) {
        auto* control = qobject_cast<QWidget*>(child);
        if (!control || IsForm(control))
            continue;
        control->setToolTip(ToolTip ? control->property("Tag").toString() : QString());
        ApplyToolTips(*control);
    }
}

QString ApplicationState::TextOf(Key key, Reader reader)
{
    const QString otherwise = DefaultText(key, reader, folders_.Home());
    if (const auto held = held_.find(key); held != held_.end())
        return held->second.isEmpty() ? otherwise : held->second;
    return Settings.GetSetting(SettingsSection, NameOf(key), otherwise);
}

void ApplicationState::SetText(Key key, const QString& text)
{
    const auto take = [&]<typename Value>(Value State::*variable) {
        if (const auto value = SettingValue::Parse<Value>(text))
            this->*variable = *value;
    };
    std::visit(take, VariableOf(key));
}

void ApplicationState::Reload(Key key, Reader reader)
{
    SetText(key, TextOf(key, reader));
}

QString ApplicationState::CopyOf(Key key) const
{
    const auto text = [this](auto variable) { return SettingValue::Text(this->*variable); };
    return std::visit(text, VariableOf(key));
}

std::vector<KeyText> ApplicationState::Copies(std::span<const Key> keys) const
{
    std::vector<KeyText> texts;
    for (const Key key : keys)
        texts.push_back({ key, CopyOf(key) });
    return texts;
}

bool ApplicationState::Store(std::span<const KeyText> texts)
{
    std::vector<Setting> settings;
    for (const KeyText& row : texts)
        settings.push_back({ NameOf(row.key), row.text });
    if (!Settings.SaveSettings(SettingsSection, settings))
        return false;
    for (const KeyText& row : texts)
        held_.erase(row.key);
    return true;
}

bool ApplicationState::Keep(std::span<const KeyText> texts)
{
    if (Store(texts))
        return true;
    for (const KeyText& row : texts)
        held_.insert_or_assign(row.key, row.text);
    return false;
}

QString ApplicationState::Beside(const QString& name) const
{
    return folders_.Home() + PathText::Separator() + name;
}
