#pragma once

#include "frame/KeyTable.h"

#include <QObject>

#include <functional>

class QKeyEvent;
class QWidget;

/// Listens for the keys of the table. They act in the windows of the frame while no text box has the focus
/// and no box or popup waits for an answer. Space, Home and End go first to whatever control has the focus: a
/// button is pressed by Space, a list scrolls by Home.
class SecondKeys : public QObject {
    Q_OBJECT

public:
    SecondKeys(QWidget& frame, std::function<void(KeyAction)> act);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsOurs(const QWidget& widget) const;
    bool BelongsToControl(const QWidget& widget, QKeyCombination key) const;

    QWidget& frame_;
    std::function<void(KeyAction)> act_;
};
