#pragma once

#include <QList>
#include <QObject>

#include <functional>

class QWidget;

/// A child window keeps the Tab key to itself, so F6 gives the keyboard to the next pane of a window and
/// Shift+F6 to the one before. A pane takes it where it had it last, or at its first control; one without any
/// is passed over.
class PaneKeys : public QObject {
    Q_OBJECT

public:
    /// Finds a pane as it is now; it may be hidden or nothing.
    using Pane = std::function<QWidget*()>;

    /// Panes in the order of F6. Belongs to the window.
    PaneKeys(QWidget& window, QList<Pane> panes);

private:
    void Move(qsizetype step);

    QList<Pane> panes_;
};
