#pragma once

#include "toolkit/ChildForm.h"
#include "toolkit/Face.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"

/// One of a form's own buttons, Cmds(index): its picture, its tool tip, its name for those who cannot see it,
/// and what a click does.
template <typename Form> struct FormButton {
    int index;
    Face face;
    const char* tip;
    const char* name;
    void (*act)(Form&);
};

/// A button of this family for a row of a form's table.
template <typename Button, typename Form>
StripButton* MakeFormButton(const FormButton<Form>& row, Form& form, QWidget* parent)
{
    auto* button = new Button(parent);
    button->setObjectName(QStringLiteral("Cmds(%1)").arg(row.index));
    button->SetFace(row.face);
    button->setAccessibleName(QLatin1String(row.name));
    button->setProperty("Tag", QLatin1String(row.tip));
    QObject::connect(button, &StripButton::Click, &form, [&form, act = row.act] { act(form); });
    return button;
}

/// The face of the button that maximizes or restores, which follows the form's shape.
inline constexpr Face ShapeFace = Face::None;

/// Fills the head of a form with the buttons of its table, from left to right.
template <typename Form, size_t N> void AddHeadButtons(Form& form, const FormButton<Form> (&rows)[N])
{
    for (const FormButton<Form>& row : rows) {
        StripButton* const button = MakeFormButton<smallXPbuttons>(row, form, &form);
        form.Head().AddButton(button);
        if (row.face == ShapeFace)
            form.ShowShapeOn(*button);
    }
}

/// The button at the left of a form's head that opens its popup, Image1.
inline StripButton* AddMenuButton(ChildForm& form, const QString& name)
{
    auto* button = new smallXPbuttons(&form);
    button->setObjectName(QStringLiteral("Image1"));
    button->SetFace(Face::Menu);
    button->setAccessibleName(name);
    form.Head().AddLeading(button);
    return button;
}
