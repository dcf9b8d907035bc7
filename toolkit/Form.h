#pragma once

class QWidget;

/// The form a control stands on: the nearest child window of an area, or window of its own, that holds it.
QWidget* FormOf(QWidget* control);
