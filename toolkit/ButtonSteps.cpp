#include "toolkit/ButtonSteps.h"

#include <utility>

ButtonSteps ButtonPress::Down(Qt::MouseButton button)
{
    if (button == Qt::RightButton)
        return {};
    flags_.pressed = true;
    isHeldByKey_ = false;
    return { ButtonStep::Refresh };
}

ButtonSteps ButtonPress::Move(bool inside)
{
    if (!inside || flags_.over)
        return {};
    flags_.over = true;
    return { ButtonStep::StartTimer, ButtonStep::TakeHoverPicture, ButtonStep::RaiseEnter,
        ButtonStep::Refresh, ButtonStep::LetEventsRun };
}

ButtonSteps ButtonPress::Up(Qt::MouseButton button, bool inside)
{
    flags_.pressed = false;
    if (button == Qt::RightButton)
        return {};
    if (!inside)
        return { ButtonStep::Refresh };
    return { ButtonStep::Refresh, ButtonStep::RaiseClick, ButtonStep::GoToURL };
}

ButtonSteps ButtonPress::Tick(bool onControl)
{
    if (onControl)
        return {};
    flags_.over = false;
    ButtonSteps steps { ButtonStep::StopTimer, ButtonStep::TakePicture, ButtonStep::RaiseLeave,
        ButtonStep::Refresh };
    if (flags_.pressed)
        steps.push_back(ButtonStep::RefreshRaised);
    return steps;
}

ButtonSteps ButtonPress::KeyDown(bool isSpace)
{
    const bool isFirst = !keyMarked_;
    keyMarked_ = true;
    if (!isFirst || !isSpace)
        return {};
    flags_.pressed = true;
    flags_.over = true;
    isHeldByKey_ = true;
    return { ButtonStep::Refresh };
}

ButtonSteps ButtonPress::KeyUp(bool isSpace)
{
    if (!isSpace)
        return {};
    flags_.over = false;
    isHeldByKey_ = false;
    // Space opens a link twice: once by itself and once as the release of a mouse. Forms rely on it.
    ButtonSteps steps { ButtonStep::GoToURL, ButtonStep::Refresh };
    const ButtonSteps release = Up(Qt::LeftButton, true);
    steps.insert(steps.end(), release.begin(), release.end());
    steps.push_back(ButtonStep::RaiseUp);
    return steps;
}

ButtonSteps ButtonPress::Focus(bool focused)
{
    flags_.focused = focused;
    if (!focused)
        LetGoOfKey();
    return { ButtonStep::Refresh };
}

ButtonSteps ButtonPress::Disable()
{
    LetGoOfKey();
    flags_.pressed = false;
    return { ButtonStep::Refresh };
}

void ButtonPress::LetGoOfKey()
{
    keyMarked_ = false;
    if (!std::exchange(isHeldByKey_, false))
        return;
    flags_.pressed = false;
    flags_.over = false; // the key made it so, and no timer would end it
}
