#pragma once

#include "app/FormDialog.h"
#include "app/Talk.h"
#include "app/TextSettings.h"

class FontLists;
class Frame;
class Lead;
class QPushButton;
class TAQbutton;
class TextEffects;

/// Sets how the user's text looks, on a live sample. Modal; accepted when the look was saved in memory and in
/// the store, rejected when it was cancelled. Opening it brings the effects in memory back to what the store
/// has.
class GetFonts : public FormDialog {
    Q_OBJECT

public:
    GetFonts(Frame& frame, QWidget* owner, AskColor askColor);

    /// The control of the sample, whose Font and DrawFontColor are those chosen.
    Lead& Sample() { return *Lead1; }

private:
    void Build();
    QWidget* BuildChoice();
    QWidget* BuildFoot();
    void Bind();
    void Load();
    void TakeChoice();
    void SwitchBackground();
    void ShowSample();
    void Save();

    Frame& frame_;
    TextSettings chosen_;
    bool isBlack_ = false; ///< the ground of the sample
    FontLists* font_;
    TextEffects* effects_;
    Lead* Lead1;
    QPushButton* Command1;
    TAQbutton* CmdOK;
};
