#pragma once

#include "toolkit/Face.h"
#include "toolkit/StripControl.h"

#include <QVector>

/// A small picture button. `Value` picks the face out of the family's own strip, or, with `Toggle`, says
/// whether the button is up (0) or down (any other value in range; shown latched). A click changes neither:
/// that is the form's.
class StripButton : public StripControl {
    Q_OBJECT

public:
    /// faces is the family's strip; `Value` ranges over it from 0.
    StripButton(QVector<Face> faces, QWidget* parent);

    /// As last set, inside the range or not.
    int Value() const { return value_; }
    /// A value outside the family's range is kept but leaves the face as it stood.
    void SetValue(int value);
    /// The face number, which follows Value within the range.
    int FaceNumber() const { return faceNumber_; }

    /// Whether Value says up or down instead of picking the face.
    bool Toggle() const { return toggle_; }
    void SetToggle(bool toggle);
    /// Whether a Toggle button is shown down.
    bool IsLatched() const { return toggle_ && faceNumber_ != 0; }

    /// Gives this one button a picture of its own, whatever its Value.
    void SetFace(Face face) { SetFace(face, face); }
    /// The same with another picture for a latched button.
    void SetFace(Face up, Face down);
    /// What is seen of it now.
    Face ShownFace() const;
    ButtonLook ShownLook() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVector<Face> strip_;
    Face up_ = Face::None;
    Face down_ = Face::None;
    int value_ = 0;
    int faceNumber_ = 0;
    bool toggle_ = false;
};

/// What the `Value` of a window's button shows, in the strips of both families below.
namespace WindowButton {
enum Value { Close = 0, Maximize = 1, Minimize = 2, Restore = 3 };
}

/// Buttons of the frame's title strip: 0 close, 1 maximize, 2 minimize, 3 restore.
class xptopbuttons : public StripButton {
    Q_OBJECT
public:
    explicit xptopbuttons(QWidget* parent = nullptr);
};

/// Buttons of the child windows' title strips: 0 close, 1 maximize, 2 minimize, 3 restore, 4 open, 5 edit
/// tools, 6 program wallpaper, 7 system wallpaper, 8 save, 9 save all, 10 open a capture.
class smallXPbuttons : public StripButton {
    Q_OBJECT
public:
    explicit smallXPbuttons(QWidget* parent = nullptr);
};

/// 0 play, 1 pause, 2 frame back, 3 frame forward.
class Videobuttons : public StripButton {
    Q_OBJECT
public:
    explicit Videobuttons(QWidget* parent = nullptr);
};

/// 0 seek start, 1 seek end, 2 mark start, 3 mark end, 4 auto rewind, 5 loop.
class VideoEditButtons : public StripButton {
    Q_OBJECT
public:
    explicit VideoEditButtons(QWidget* parent = nullptr);
};

/// 0 resize, 1 flip, 2 rotate, 3 reverse, 4 grayscale, 5 undo.
class ToolButtons : public StripButton {
    Q_OBJECT
public:
    explicit ToolButtons(QWidget* parent = nullptr);
};

/// Brings a window to the front; one face, no value.
class Front : public StripButton {
    Q_OBJECT
public:
    explicit Front(QWidget* parent = nullptr);
};

/// Opens the help; one face, no value.
class xphelp : public StripButton {
    Q_OBJECT
public:
    explicit xphelp(QWidget* parent = nullptr);
};
