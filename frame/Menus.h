#pragma once

#include <QPointer>
#include <QStringList>

#include <functional>

class PopupMenu;
class QPoint;
class QWidget;

/// The program's one popup, which the windows share: opening it anew closes the one before.
class Menus {
public:
    /// owner is the window that the popup belongs to.
    explicit Menus(QWidget& owner)
        : owner_(owner)
    {
    }

    /// Opens below a button. checkedItems is a bit mask of the items that show a check; chosen gets the
    /// number of the item. A pointer that moves over any window of the program closes it.
    void Open(
        const QStringList& items, int checkedItems, const QWidget& button, std::function<void(int)> chosen);

private:
    QWidget& owner_;
    QPointer<PopupMenu> menu_;
};
