#include "settingsui/DisplayPage.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Talk.h"
#include "settingsui/OptionFields.h"
#include "toolkit/Button_XP.h"
#include "toolkit/ElidedLabel.h"

#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr BoxRow Boxes[] = {
    { Key::ToolTip, "check10", "Use Tooltips.", "Texts like this one." },
    { Key::FadeOuts, "check13", "Use Window Fade.", "Windows fade when they close, and have soft shadows." },
    { Key::VidWinOnly, "check15", "Only Open Videos From Video Window",
        "A click in the empty main window shows the video window, whose own button opens videos." },
};
constexpr ChoiceRow Placements[] = {
    { "OpPic(2)", "None", "2", "No picture behind the windows." },
    { "OpPic(1)", "Lower Right", "1", "Once, in the lower right corner." },
    { "OpPic(0)", "Center", "0", "All over the main window, as tiles." },
};
constexpr auto Filter = "Graphic Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif";

} // namespace

DisplayPage::DisplayPage(Frame& frame, OptionFields& fields)
    : OptionsPage(fields)
    , frame_(frame)
{
    AddBoxes(Boxes);
    AddChoices(
        AddRow(AddGroup(Column(), "Background Picture Placement")), Key::OpPic, Kept::BySave, Placements);
    BuildPicture();
    Column().addStretch();
}

void DisplayPage::BuildPicture()
{
    QBoxLayout& row = AddRow(AddGroup(Column(), "Background Picture"));
    lblPic = new ElidedLabel(this);
    Name(*lblPic, "lblPic", "Background picture", "The picture behind the windows.");
    row.addWidget(lblPic, 1);
    Button_XP* const browse = AddCommand(row, "Cmds(3)", "&Browse", "Choose the picture behind the windows.");
    connect(browse, &Button_XP::Click, this, &DisplayPage::Browse);
    Fields().Add(Key::PicFolder,
        { [this](const QString& text) { ShowPicture(text); }, [this] { return picFolder_; } });
}

void DisplayPage::ShowPicture(const QString& file)
{
    picFolder_ = file;
    lblPic->setText(file.trimmed());
}

void DisplayPage::Browse()
{
    const QPointer<DisplayPage> alive(this);
    QString chosen = frame_.Dialogs().AskOpenName(window(), QStringLiteral("Select Background Picture"),
        QLatin1String(Filter), picFolder_, QStringLiteral("jpg"));
    if (!alive || chosen.isEmpty())
        return;
    if (chosen.endsWith(QChar::Null))
        chosen.chop(1);
    ShowPicture(chosen);
    const bool isStored = Fields().Write(Key::PicFolder, chosen);
    const QString error = isStored ? QString() : QStringLiteral("The picture could not be stored.");
    frame_.Errors().Show(window(), QStringLiteral("Wallpaper"),
        error + QStringLiteral("    The new wallpaper will be used the next time TAQ is run, or resized."));
}
