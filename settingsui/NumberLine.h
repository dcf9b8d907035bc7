#pragma once

#include <QObject>

class QLineEdit;
class QSlider;

/// A number in a text box that takes digits only, with a slider beside it: each follows the other. Belongs to
/// the box. What is typed beyond the slider's upper end becomes that end at once; an emptied box and a number
/// below the lower end stand while they are typed and give way to the slider's number afterwards.
class NumberLine : public QObject {
    Q_OBJECT

public:
    /// Joins the two; the slider has its ends already.
    NumberLine(QLineEdit& box, QSlider& slider);

    /// The box shows a number that the slider does not reach, too; it stays until it is changed.
    void Show(int number);
    /// The number of the box, held to 16 bits, that of the slider while the box is empty; one that was typed
    /// is at least the slider's lower end.
    qint16 Value() const;

Q_SIGNALS:
    /// The slider stands elsewhere now.
    void Moved(int value);

private:
    void TakeTyped(const QString& typed);
    void TakeText();
    void EndTyping();

    QLineEdit& box_;
    QSlider& slider_;
};
