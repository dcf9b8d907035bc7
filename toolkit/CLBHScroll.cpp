#include "toolkit/CLBHScroll.h"

#include <QListWidget>
#include <QStyle>

void CLBHScroll::Init(QListWidget* list)
{
    list_ = list;
    list_->clear();
    list_->setTextElideMode(Qt::ElideNone);
    list_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    widest_ = 0;
}

int CLBHScroll::Extent() const
{
    return list_ ? widest_ + list_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list_) + 2 : 0;
}

void CLBHScroll::AddItem(const QString& text)
{
    if (!list_)
        return;
    list_->addItem(text);
    const int width = list_->fontMetrics().horizontalAdvance(text);
    if (width > widest_) {
        widest_ = width;
        // The list scrolls over its widest row, so the widest row is told the extent.
        const int last = list_->count() - 1;
        list_->item(last)->setSizeHint({ Extent(), list_->sizeHintForRow(last) });
    }
    list_->scrollToBottom();
}
