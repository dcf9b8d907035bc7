#pragma once

#include "app/Talk.h"
#include "settingsui/OptionsPage.h"

class ElidedLabel;
class Frame;
class Lead;
class QLabel;
class QPlainTextEdit;
struct TextSettings;

/// The user's text on captures: its words, when it is drawn, where, and how it looks.
class WatermarkPage : public OptionsPage {
    Q_OBJECT

public:
    WatermarkPage(Frame& frame, OptionFields& fields, AskColor askColor);

    /// Shows the font that the store has.
    void ShowStoredFont();

private:
    void BuildWords();
    void BuildWays();
    void BuildPlace();
    void BuildFont();
    void BuildShadow(QBoxLayout& row);
    void ShowFont(const TextSettings& text);
    void ShowShadow(bool isOn);
    void SwitchShadow();
    void ChooseFont();
    void TakeFont(const Lead& sample);

    Frame& frame_;
    AskColor askColor_;
    QPlainTextEdit* Text1 = nullptr;
    QLabel* ColorBox = nullptr;
    ElidedLabel* FontLabel = nullptr;
    QLabel* Label14 = nullptr; ///< its weight
    QLabel* Label15 = nullptr; ///< its slant
    xpcheckbox* xpcheckbox5 = nullptr;
    QLabel* LabelShadow = nullptr;
};
