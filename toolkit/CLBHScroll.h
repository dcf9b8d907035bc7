#pragma once

#include <QPointer>
#include <QString>

class QListWidget;

/// Gives a list box a horizontal scroll range that grows with its widest row.
class CLBHScroll {
public:
    /// Takes the list and empties it; the list may die before this object.
    void Init(QListWidget* list);
    /// Adds a row and scrolls so that the list shows its last row.
    void AddItem(const QString& text);
    /// Width of the widest row's text, in pixels.
    int Widest() const { return widest_; }
    /// What can be scrolled over: the widest row, a scroll bar and 2 pixels.
    int Extent() const;

private:
    QPointer<QListWidget> list_;
    int widest_ = 0;
};
