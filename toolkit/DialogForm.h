#pragma once

#include <QDialog>

class FrameDrag;
class QVBoxLayout;
class TitleStrip;

/// A dialog with the program's own head: a title strip that moves it, a body below, a one-pixel edge around.
class DialogForm : public QDialog {
    Q_OBJECT

public:
    explicit DialogForm(QWidget* owner);

    TitleStrip& Head() { return *strip_; }
    /// The title and the window's title at once.
    void SetTitle(const QString& title);
    /// Adds below what stands there already; the form takes it over.
    void AddBody(QWidget* body);
    /// The user cannot size it: it is as large as what it holds.
    void KeepFitting();

protected:
    void changeEvent(QEvent* event) override;
    /// The bare ground moves the dialog as its strip does.
    void mousePressEvent(QMouseEvent* event) override;

private:
    TitleStrip* strip_;
    QVBoxLayout* column_;
    FrameDrag* drag_;
};
