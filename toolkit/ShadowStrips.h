#pragma once

#include "toolkit/ShadowStrip.h"
#include "toolkit/cWindow.h"

struct WindowPosition;

/// How a form's shadow looks.
struct ShadowLook {
    QRgb color = 0;
    int depth = 10; ///< the width of the strips, in pixels
    bool isSoft = true; ///< graded, else a block
    int transparency = 120; ///< the opacity over the strips' own alpha, 0 to 255
    bool isVisible = true;
    bool hasRoundCorners = false; ///< the theme rounds the form's corners
};

/// The two windows of a form's shadow, hidden at first. They stand inside a host under their form, or are
/// windows of their own that the form owns. Their pictures are drawn when the form's size has changed.
class ShadowStrips {
public:
    /// form, host and look outlive it.
    ShadowStrips(QWidget& form, QWidget* host, const ShadowLook& look, const QString& className);

    /// What they stand in; null when they are windows of their own.
    const QWidget* Host() const { return host_; }
    /// Those that are still there.
    QList<QWidget*> Windows() const;

    /// Draws both anew where the form stands; a hidden form's at its next position.
    void Redraw();
    /// Goes where the form went, and comes or goes with it.
    void Follow(const WindowPosition& position);
    /// Asks for them or sends them away.
    void Show(bool shown);
    /// Makes them seen when they are asked for and the look is visible.
    void ApplyVisible();

private:
    void Draw(ShadowStrip::Side side);
    void Move(const WindowPosition& position);

    QWidget& form_;
    QWidget* host_;
    const ShadowLook& look_;
    cWindow windows_;
    QPointer<LayeredWindow> strip_[2]; ///< by side
    int drawnWidth_ = 0; ///< of the form, when the bottom strip was drawn
    int drawnHeight_ = 0; ///< of the form, when the right strip was drawn
    bool isShown_ = false;
};
