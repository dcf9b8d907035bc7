#pragma once

#include <QMdiSubWindow>
#include <QPointer>

class FrameDrag;
class QVBoxLayout;
class SizeGrip;
class StripButton;
class TitleStrip;

/// A frameless child window of a QMdiArea: a title strip, a body and a one-pixel edge. Moved by its strip,
/// sized by its grip; its own shapes replace those of QMdiSubWindow, which need the system's frame. It also
/// stands alone, as a window or inside any other parent.
class ChildForm : public QMdiSubWindow {
    Q_OBJECT

public:
    enum class Shape { Normal, Maximized, Minimized };

    explicit ChildForm(QWidget* parent = nullptr);

    TitleStrip& Head() { return *strip_; }
    /// The title and the window's title at once.
    void SetTitle(const QString& title);
    /// What stands below the strip; the form takes it over.
    void SetBody(QWidget* body);
    QWidget* Body() const { return body_; }
    /// What the form takes beside its body: edges and strip.
    QSize FrameSize() const;

    Shape CurrentShape() const { return shape_; }
    void Maximize();
    /// What the minimise button does: shrinks the form to a strip at the bottom of the area; a form that is
    /// one already is restored.
    void ToggleMinimize();
    void Restore();
    /// What the maximise button and a double click on the strip do: restores a form that is not normal.
    void ToggleMaximize();
    /// The button's Value tells from now on whether it will maximise or restore.
    void ShowShapeOn(StripButton& button);
    /// The sizing corner; hidden while the form is not normal.
    SizeGrip& Grip() { return *grip_; }

    /// Puts the form on top and makes it the active one.
    void BringToFront();
    /// Puts the form behind its siblings; the topmost of those becomes the active one.
    void SendToBack();
    /// The active child of its area, or the active window when it stands alone.
    bool IsActive() const { return active_; }

Q_SIGNALS:
    void ShapeChanged();
    /// The form became the active one.
    void Activated();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void Build();
    void Bind();
    void SetShape(Shape shape);
    void Become(Shape shape);
    void FitToArea();
    QRect MinimizedPlace() const;
    int FreeSlot() const;
    void Activate();
    void SetActive(bool active);
    QList<ChildForm*> Siblings() const;

    TitleStrip* strip_ = nullptr;
    QVBoxLayout* column_ = nullptr;
    QPointer<QWidget> body_;
    FrameDrag* drag_ = nullptr;
    SizeGrip* grip_ = nullptr;
    QRect normalGeometry_;
    QSize normalMinimum_;
    Shape shape_ = Shape::Normal;
    int slot_ = 0;
    bool active_ = false;
};
