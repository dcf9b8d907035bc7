#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QKeyEvent;
class QWidget;

/// Keys for those who keep their hands on the keyboard, beside the buttons. They act in the windows of the
/// frame while no text box has the focus and no box or popup waits for an answer. Space, Home and End go
/// first to whatever control has the focus: a button is pressed by Space, a list scrolls by Home.
class SecondKeys : public QObject {
    Q_OBJECT

public:
    enum class Repeat { Once, WhileHeld };
    struct Row {
        QKeyCombination key;
        std::function<void()> act;
        Repeat repeat = Repeat::Once;
    };

    SecondKeys(QWidget& frame, std::vector<Row> rows);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Row* RowOf(const QKeyEvent& event) const;
    bool IsOurs(const QWidget& widget) const;
    bool BelongsToControl(const QWidget& widget, QKeyCombination key) const;

    QWidget& frame_;
    std::vector<Row> rows_;
};
