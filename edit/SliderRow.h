#pragma once

#include "edit/EffectRows.h"

#include <QWidget>

class QLineEdit;
class QPushButton;
class QSlider;

/// The line of one effect: the button that applies it, its slider, and a box with the slider's number, which
/// can be typed as well.
class SliderRow : public QWidget {
    Q_OBJECT

public:
    /// index is that of EffectRows.
    SliderRow(int index, QWidget* parent);

    /// The width of the buttons at the left, the same for all rows.
    static int ButtonWidth(const QFontMetrics& metrics);

    /// The slider's place.
    int Value() const;
    /// Held to the range.
    void SetValue(int value);
    /// The box keeps a text whose number is in the range as it stands.
    void SetText(const QString& text);

    /// The box shows the slider's place, which the row goes back to from now on.
    void ShowAnswer();
    /// Back to that place.
    void ReAnswer();
    /// Selects the text of the box.
    void SelectAnswer();

Q_SIGNALS:
    /// The button was pressed, or Enter in the box.
    void Apply();

private:
    void Build(int index);
    void Bind();
    void ShowValue();
    void TakeText(const QString& text);

    const EffectRow& row_;
    int default_ = 0;
    QPushButton* button_;
    QSlider* TScrolls;
    QLineEdit* Answer;
};
