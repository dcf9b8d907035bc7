#include "settingsui/AutoNamePage.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/SettingValue.h"
#include "app/Talk.h"
#include "settingsui/OptionFields.h"
#include "toolkit/Button_XP.h"
#include "toolkit/PathText.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr BoxRow AutoSaveRow { Key::AutoSave, "Check1", " Automatically Name Captures and Save them. ",
    "Captures get the next free number; nobody asks for a name." };
constexpr BoxRow NoCapRow { Key::NoCap, "check3", " Automatically Save without using capture ",
    "The frame goes from the video to a file; Save Capture takes the place of Capture." };
constexpr BoxRow SpecialFolderRow { Key::SpecialFolder, "check6", " Select Folder for Captures",
    "All captures go to this folder." };
constexpr ChoiceRow Folders[] = {
    { "Option1", "Saves to the current folder you selected from.", "False",
        "The folder that videos were last opened from, or pictures saved in." },
    { "Option2", "Saves to the AutoSave folder.", "True", "The folder AutoSave beside the program." },
};

} // namespace

AutoNamePage::AutoNamePage(Frame& frame, OptionFields& fields)
    : OptionsPage(fields)
    , frame_(frame)
{
    BuildNames();
    BuildFolders();
    Column().addStretch();
}

void AutoNamePage::BuildNames()
{
    Check1 = AddBox(Column(), AutoSaveRow);
    check3 = AddBox(Column(), NoCapRow);
    check3->setEnabled(false);
    // A box turns over after its click.
    connect(
        Check1, &xpcheckbox::Click, this, [this] { check3->setEnabled(Check1->Value() != xpcheckbox::Set); });
}

void AutoNamePage::BuildFolders()
{
    QVBoxLayout& group = AddGroup(Column(), "Folder");
    check6 = AddBox(group, SpecialFolderRow);
    Field chosen = FieldOf(*check6);
    Fields().Add(Key::SpecialFolder,
        { [this, show = chosen.show](const QString& text) {
             show(text);
             EnableFolder(check6->Value() == xpcheckbox::Set);
         },
            chosen.text });
    connect(check6, &xpcheckbox::Click, this, &AutoNamePage::SwitchFolder);
    QBoxLayout& row = AddRow(group);
    LblFolder = new QLineEdit(this);
    Name(*LblFolder, "LblFolder", "Folder for captures", "The folder for captures.");
    row.addWidget(LblFolder, 1);
    browse_ = AddCommand(row, "Cmds(1)", "&Browse", "Choose the folder for captures.");
    connect(browse_, &Button_XP::Click, this, &AutoNamePage::Browse);
    const auto orDefault = [this](const QString& text) {
        return text.trimmed().isEmpty() ? AutoSaveFolder() : text.trimmed();
    };
    Fields().Add(Key::OldFolder,
        { [this, orDefault](const QString& text) { LblFolder->setText(orDefault(text)); },
            [this, orDefault] { return orDefault(LblFolder->text()); } });
    folders_ = AddChoices(group, Key::AutoDir, Kept::AtOnce, Folders);
}

/// What a blank box stands for: with the separator at its end that the key's own default does not have.
QString AutoNamePage::AutoSaveFolder() const
{
    return frame_.State().Beside(QStringLiteral("AutoSave")) + PathText::Separator();
}

void AutoNamePage::EnableImmediateSave()
{
    if (Check1->Value() == xpcheckbox::Set)
        check3->setEnabled(true);
}

void AutoNamePage::EnableFolder(bool isChosen)
{
    for (xpradiobutton* const folder : folders_)
        folder->setEnabled(!isChosen);
    LblFolder->setEnabled(isChosen);
    browse_->setEnabled(isChosen);
}

void AutoNamePage::SwitchFolder()
{
    const bool isChosen = check6->Value() == xpcheckbox::Clear; // the box turns over after its click
    EnableFolder(isChosen);
    Fields().Write(Key::SpecialFolder, SettingValue::Text(isChosen));
}

void AutoNamePage::Browse()
{
    const Hourglass waiting;
    const QString current = LblFolder->text().trimmed();
    const QPointer<AutoNamePage> alive(this);
    QString chosen;
    {
        const PointerPause pause;
        chosen =
            frame_.Dialogs().AskFolder(window(), QStringLiteral("Current: ") + current, current).trimmed();
    }
    if (!alive || chosen.isEmpty())
        return;
    LblFolder->setText(chosen);
    Fields().Write(Key::OldFolder, chosen);
}
