#pragma once

#include "toolkit/ButtonLayout.h"
#include "toolkit/ButtonSteps.h"
#include "toolkit/LinkOpener.h"
#include "toolkit/SystemColors.h"

#include <QAbstractButton>
#include <QIcon>
#include <QTimer>

#include <type_traits>

/// The faces of a push button. Raised and RaisedWhenOver have an edge of two lines, the latter not at rest;
/// Default is the program's own; Shaped takes the outline of its picture; Frameless has no edge.
namespace ButtonStyle {
enum Value { Raised = 0, RaisedWhenOver = 1, Default = 2, Shaped = 3, Frameless = 4 };
}

/// What a form sets of a push button, with the values that a new one has. Numbers that only switch something
/// on are 0 for off.
struct ButtonProperties {
    ColorNumber BackColor = SystemColor::Face;
    ColorNumber ForeColor = SystemColor::ButtonText;
    int ShowFocusRect = 1;
    int PicturePosition = ::PicturePosition::Above;
    int ButtonStyle = ::ButtonStyle::Default;
    QIcon Picture;
    QIcon PictureHover; ///< shown instead of Picture under the pointer
    int PictureWidth = 32; ///< drawn size, in pixels
    int PictureHeight = 32;
    int PictureSize = 0; ///< 0 draws at PictureWidth and PictureHeight, any other at the original size
    int OriginalPicSizeW = 32; ///< size of the picture by itself, in pixels
    int OriginalPicSizeH = 32;
    QPixmap MouseIcon; ///< the pointer for MousePointer 99
    int MousePointer = 0; ///< 0 as around it, 1 arrow, 2 cross, 3 text, 11 busy, 99 MouseIcon
    QString URL; ///< opened by a click
    ColorNumber XPColor_Pressed = SystemColor::Highlight; ///< edge while pressed, unless XPDefaultColors
    ColorNumber XPColor_Hover = SystemColor::Light; ///< edge under the pointer, unless XPDefaultColors
    int XPDefaultColors = 1;
    QString SoundOver = QStringLiteral(".\\resources\\over.wav"); ///< kept; no sound is played
    QString SoundClick = QStringLiteral(".\\resources\\click.wav"); ///< kept; no sound is played
    int DefCurHand = 0; ///< a hand as pointer
    int XPShowBorderAlways = 0; ///< the edge of Default and Shaped is there at rest too
    ColorNumber MaskColor = 0; ///< what Shaped cuts out of its picture
    int TransparentBG = 0; ///< what lies behind shows through
    int BEVEL = 0; ///< a raised edge around the face
    int BEVELDEPTH = 8; ///< its width, in pixels
};

/// The program's push button. It follows the pointer by a timer, and opens its link by itself. `Caption` is
/// the button's text, with "&" before its access key; `Enabled` and `Font` are the widget's.
class Button_XP : public QAbstractButton {
    Q_OBJECT

public:
    explicit Button_XP(QWidget* parent = nullptr);

    /// What is set of it.
    const ButtonProperties& Properties() const { return properties_; }
    /// Gives one property a value and shows it: Set(&ButtonProperties::URL, address).
    template <typename Value>
    void Set(Value ButtonProperties::*property, const std::type_identity_t<Value>& value)
    {
        properties_.*property = value;
        Apply();
    }
    /// A new button takes its object name as caption until one is set.
    QString Caption() const { return text(); }
    void SetCaption(const QString& caption);
    /// Where links go; the desktop's own opener at first. opener outlives the button.
    void SetLinkOpener(LinkOpener& opener) { links_ = &opener; }

    /// What it is doing.
    const ButtonFlags& Flags() const { return press_.Flags(); }
    /// What is seen: the flags as they were at the last refresh.
    const ButtonFlags& ShownFlags() const { return shown_; }
    /// Shows the button as it is now.
    void Refresh();
    /// Opens URL: a mail's address by the system, any other as a page of the web. Nothing when it is empty.
    void GoToURL();
    /// Of the control.
    static QString version();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// Pressed and released over it, by the mouse, Space, its access key or an aid.
    void Click();
    /// The keys and the mouse as they come; places in pixels of the button.
    void KeyDown(int key);
    void KeyUp(int key);
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, QPoint place);
    void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, QPoint place);
    void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, QPoint place);
    /// The pointer came, with the buttons held at that moment.
    void MouseEnter(Qt::MouseButtons buttons);
    /// The pointer has gone, with the buttons held at that moment.
    void MouseLeave(Qt::MouseButtons buttons);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Press {
        Qt::MouseButton button = Qt::NoButton;
        Qt::KeyboardModifiers shift;
        QPoint place;
    };

    /// False when the form has deleted the button meanwhile.
    bool Run(const ButtonSteps& steps);
    void Take(ButtonStep step);
    void DownStep();
    /// A place on the far edges, as many pixels away as the button is wide or high, belongs to it.
    bool IsInside(QPoint place) const { return rect().adjusted(0, 0, 1, 1).contains(place); }
    void Apply();
    void ApplyPointer();
    void ApplyShape();
    QSize DrawnPictureSize() const;
    QSize CaptionSize() const;
    ButtonLayout::Places Places() const;

    ButtonProperties properties_;
    ButtonPress press_;
    ButtonFlags shown_;
    Press lastDown_; ///< for a double click
    QIcon shownPicture_;
    QTimer OverTimer;
    DesktopLinks desktop_;
    LinkOpener* links_ = &desktop_;
    bool captionSet_ = false;
};
