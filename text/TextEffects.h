#pragma once

#include "app/Talk.h"

#include <QWidget>

#include <array>

class ColorWell;
class QComboBox;
class QGridLayout;
class QLineEdit;
class xpcheckbox;
struct TextSettings;

/// The controls of a text's colours and effects. Without shadows the effects count for nothing and cannot be
/// changed; the text's own colour can.
class TextEffects : public QWidget {
    Q_OBJECT

public:
    TextEffects(AskColor askColor, QWidget* parent);

    void Show(const TextSettings& text);
    /// Puts what the controls say into the settings.
    void Take(TextSettings& text) const;

Q_SIGNALS:
    /// The user has changed something.
    void Changed();

private:
    void Build();
    void AddNumbers(QGridLayout& grid);
    void AddWells(QGridLayout& grid);
    void CheckNumber(size_t number);
    void ChooseColor(size_t well);
    void SetShadows(bool on);

    AskColor askColor_;
    xpcheckbox* UseShadowYesNo;
    QComboBox* TextStyleCB;
    std::array<QLineEdit*, 3> numbers_ {};
    std::array<ColorWell*, 3> wells_ {};
    bool usesShadows_ = false;
};
