#pragma once

#include <QWidget>

/// What an empty frame says: how to begin. Stands in the middle of the area it is given to, behind all
/// windows.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    explicit EmptyState(QWidget* area);

Q_SIGNALS:
    void Opens(); ///< the open control was clicked

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Centre();
};
