#include "frame/EmptyState.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

EmptyState::EmptyState(QWidget* area)
    : QWidget(area)
{
    auto* column = new QVBoxLayout(this);
    column->setSpacing(12);
    auto* button = new QPushButton(QStringLiteral("Open videos"), this);
    button->setObjectName(QStringLiteral("Opens"));
    auto* hint = new QLabel(QStringLiteral("or drop a video file here"), this);
    hint->setObjectName(QStringLiteral("Hint"));
    hint->setAlignment(Qt::AlignCenter);
    setFocusProxy(button);
    column->addWidget(button, 0, Qt::AlignCenter);
    column->addWidget(hint);
    connect(button, &QPushButton::clicked, this, &EmptyState::Opens);
    area->installEventFilter(this);
    Centre();
}

bool EmptyState::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        Centre();
    return QWidget::eventFilter(watched, event);
}

void EmptyState::Centre()
{
    resize(sizeHint());
    const QRect area = parentWidget()->rect();
    move(area.center() - rect().center());
}
