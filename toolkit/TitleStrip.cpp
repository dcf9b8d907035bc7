#include "toolkit/TitleStrip.h"

#include "toolkit/ElidedLabel.h"
#include "toolkit/Style.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

TitleStrip::TitleStrip(QWidget* parent)
    : QWidget(parent)
    , row_(new QHBoxLayout(this))
    , label_(new ElidedLabel(this))
{
    label_->setObjectName(QStringLiteral("LblTitle"));
    label_->setTextFormat(Qt::PlainText);
    label_->setIndent(0);
    label_->setContentsMargins(8, 0, 8, 0);
    setMinimumHeight(Height);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    row_->setContentsMargins(0, 0, 0, 0);
    row_->setSpacing(0);
    row_->addWidget(label_, 1);
    SetActive(false);
}

QString TitleStrip::Title() const
{
    return label_->text();
}

void TitleStrip::SetTitle(const QString& title)
{
    label_->setText(title);
}

void TitleStrip::AddLeading(QWidget* widget)
{
    row_->insertWidget(leading_++, widget);
}

void TitleStrip::AddButton(QWidget* button)
{
    row_->addWidget(button);
}

void TitleStrip::SetCompact(bool compact)
{
    constexpr int CompactButtons = 3;
    for (int place = 0; place < row_->count() - CompactButtons; ++place) {
        QWidget* widget = row_->itemAt(place)->widget();
        if (widget != label_)
            widget->setVisible(!compact);
    }
}

void TitleStrip::SetActive(bool active)
{
    active_ = active;
    QPalette palette = label_->palette();
    palette.setColor(QPalette::WindowText, StyleColor(active ? Token::Text : Token::TextSecondary));
    label_->setPalette(palette);
    update();
}

void TitleStrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT MoveRequested(event->globalPosition().toPoint());
}

void TitleStrip::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT MaximizeToggled();
}

void TitleStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), StyleColor(active_ ? Token::Control : Token::Strip));
    painter.fillRect(0, height() - 1, width(), 1, StyleColor(Token::LineOutside));
}
