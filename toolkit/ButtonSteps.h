#pragma once

#include <Qt>

#include <vector>

/// What a push button is doing. A button that is held while the pointer slides off stays pressed.
struct ButtonFlags {
    bool pressed = false; ///< the left button is held on it
    bool over = false; ///< the pointer is over it
    bool focused = false;
};

/// One thing that a push button does about an event.
enum class ButtonStep {
    Refresh, ///< shows the flags as they are
    RefreshRaised, ///< shows it up, though it stays pressed
    StartTimer,
    StopTimer,
    TakeHoverPicture,
    TakePicture,
    RaiseEnter,
    RaiseLeave,
    LetEventsRun,
    RaiseClick,
    GoToURL,
    RaiseUp, ///< a mouse-up of the left button at 0, 0
};
using ButtonSteps = std::vector<ButtonStep>;

/// Decides what a push button does about its mouse, its keys and its timer. Every call changes the flags and
/// gives the steps to take, in their order.
class ButtonPress {
public:
    /// As the last event left them.
    const ButtonFlags& Flags() const { return flags_; }

    /// The mouse; inside: over the button.
    ButtonSteps Down(Qt::MouseButton button);
    ButtonSteps Move(bool inside);
    ButtonSteps Up(Qt::MouseButton button, bool inside);
    /// onControl: the pointer is over this very control and nothing covers it.
    ButtonSteps Tick(bool onControl);
    /// The keys, without repetitions of a release.
    ButtonSteps KeyDown(bool isSpace);
    ButtonSteps KeyUp(bool isSpace);
    /// The release has been dealt with: the next key may press. Until then none does.
    void ForgetKey() { keyMarked_ = false; }
    /// The focus came or went. The release of a held key goes elsewhere then; that of the mouse still comes.
    ButtonSteps Focus(bool focused);
    /// The button was disabled: no release will come.
    ButtonSteps Disable();

private:
    void LetGoOfKey();

    ButtonFlags flags_;
    bool keyMarked_ = false; ///< a key is down already
    bool isHeldByKey_ = false; ///< pressed by Space, not by the mouse
};
