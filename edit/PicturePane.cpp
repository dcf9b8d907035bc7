#include "edit/PicturePane.h"

#include "app/Lead.h"

PicturePane::PicturePane(
    Small small, const QString& objectName, const QString& accessibleName, QWidget* parent)
    : QWidget(parent)
    , small_(small)
    , lead_(new Lead(this))
{
    lead_->KeepShrunk();
    lead_->setObjectName(objectName);
    lead_->setAccessibleName(accessibleName);
    lead_->SetAutoScroll(false);
    lead_->SetAutoRepaint(false); // once for all rectangles
}

void PicturePane::Arrange()
{
    const QSize picture(lead_->BitmapWidth(), lead_->BitmapHeight());
    const bool isLarger = picture.width() > width() || picture.height() > height();
    if (!isLarger && small_ == Small::OwnSize) {
        lead_->setGeometry(rect());
        lead_->SetSrcRect(0, 0, picture.width(), picture.height());
        lead_->SetSrcClipRect(0, 0, picture.width(), picture.height());
        lead_->SetDstRect(0, 0, picture.width(), picture.height());
        lead_->SetDstClipRect(0, 0, picture.width(), picture.height());
        return lead_->update();
    }
    QRect place(QPoint(), picture.scaled(size(), Qt::KeepAspectRatio).expandedTo({ 1, 1 }));
    place.moveCenter(rect().center());
    lead_->setGeometry(place);
    lead_->SetDstRect(0, 0, place.width(), place.height());
    lead_->SetDstClipRect(0, 0, place.width(), place.height());
    lead_->update();
}

void PicturePane::resizeEvent(QResizeEvent*)
{
    Arrange();
}
