#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QMouseEvent;
class QWidget;

/// Moves and sizes a frameless form by a press on one of its parts. A window of its own is handed to the
/// window system; a child moves inside its parent, and its head stays within reach. Belongs to the form.
class FrameDrag : public QObject {
    Q_OBJECT

public:
    explicit FrameDrag(QWidget* form);

    /// Both are called from a press of the left button, with its place on the screen; the drag ends with the
    /// release.
    void StartMove(QPoint screenPlace);
    void StartResize(QPoint screenPlace, Qt::Edges edges = Qt::RightEdge | Qt::BottomEdge);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Begin(QPoint screenPlace, Qt::Edges edges);
    void WaitForSystem(Qt::Edges edges);
    void Follow(const QMouseEvent& event);
    void Announce();
    void End();
    QRect Moved(QPoint by) const;
    QRect Sized(QPoint by) const;

    QWidget& form_;
    QPoint start_;
    QRect startGeometry_;
    Qt::Edges edges_;
    bool isSystems_ = false; ///< the window system has the pointer until the drag's end
};
