#pragma once

#include <QMenu>
#include <QStringList>

/// A short list of items that opens at a place, highlights under the pointer and closes on a choice, on
/// Escape and on a press outside.
class PopupMenu : public QMenu {
    Q_OBJECT

public:
    explicit PopupMenu(QWidget* parent = nullptr);

    /// Replaces the items; texts are shown as they stand, leading blanks and ampersands included.
    void SetItems(const QStringList& texts);
    /// Items count from 0.
    void SetChecked(int item, bool checked);
    void SetItemEnabled(int item, bool enabled);
    /// Opens with its upper left corner at a place on the screen, moved so that it stays on the screen.
    void Open(QPoint screenPlace);

Q_SIGNALS:
    /// An item was chosen; the list has closed.
    void Chosen(int item);
    /// The pointer moved outside the list while it was open.
    void MovedOutside(QPoint screenPlace);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
};
