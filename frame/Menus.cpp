#include "frame/Menus.h"

#include "toolkit/PopupMenu.h"
#include "toolkit/StripControl.h"

#include <QApplication>

namespace {

/// On the way from the button to the list the pointer may still be over a button.
void CloseOverAWindow(PopupMenu& menu, QPoint pointer)
{
    QWidget* const under = QApplication::widgetAt(pointer);
    if (under && !qobject_cast<StripControl*>(under))
        menu.close();
}

} // namespace

void Menus::Open(
    const QStringList& items, int checkedItems, const QWidget& button, std::function<void(int)> chosen)
{
    if (menu_) {
        // What was chosen in it may still be at work, in a fade for one; it goes when that is over.
        menu_->setObjectName(QString());
        menu_->close();
    }
    menu_ = new PopupMenu(&owner_);
    menu_->setObjectName(QStringLiteral("Menus"));
    menu_->setAttribute(Qt::WA_DeleteOnClose);
    menu_->SetItems(items);
    for (int item = 0; item < items.size(); ++item)
        menu_->SetChecked(item, checkedItems >> item & 1);
    QObject::connect(menu_, &PopupMenu::MovedOutside, menu_,
        [menu = menu_.data()](QPoint pointer) { CloseOverAWindow(*menu, pointer); });
    QObject::connect(menu_, &PopupMenu::Chosen, &owner_, std::move(chosen));
    menu_->Open(button.mapToGlobal(QPoint(0, button.height())));
}
