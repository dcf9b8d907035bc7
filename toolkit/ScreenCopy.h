#pragma once

#include <QImage>
#include <QList>

class QWidget;

/// What is seen inside a host at a place, as if the widgets left out were not there.
QImage CopyInside(QWidget& host, const QRect& place, const QList<QWidget*>& leftOut);
/// What is seen on the screen at a place; null where the platform does not tell.
QImage CopyOfScreen(const QWidget& form, const QRect& place);
