#pragma once

#include "toolkit/FadeSteps.h"
#include "toolkit/MessageOwner.h"
#include "toolkit/cWindow.h"

#include <QElapsedTimer>
#include <QList>
#include <QRect>

#include <functional>

/// What a fade shows, where and for how long.
struct FadeOrder {
    QWidget& form;
    QWidget* host = nullptr; ///< what the form stands in; null for a window
    QRect place; ///< inside the host, or on the screen
    QList<QWidget*> leftOut; ///< what is not shown of the host
    QString className; ///< of the fade's window
    int milliseconds = 0;
};

/// One fade: a window with a copy of what is seen at a place, which loses its opacity. It starts when it is
/// made, and whoever made it lets it go when it tells its end.
class FormFade : private iWindow {
public:
    FormFade(FadeOrder order, std::function<void()> ended);

    /// False when its window went with what it stood in: no end will be told then.
    bool IsThere() const { return !window_.isNull(); }
    /// Comes to the front of its host.
    void Raise();

private:
    void iWindow_Proc(bool& bHandled, qint32& lReturn, QWidget*& hWnd, qint32& uMsg, qintptr& wParam,
        qintptr& lParam) override;
    void Begin(LayeredWindow& window);
    void Tick(LayeredWindow& window);

    const FadeOrder order_;
    const std::function<void()> ended_;
    FadeSteps steps_;
    QElapsedTimer clock_;
    cWindow windows_;
    QPointer<LayeredWindow> window_;
};
