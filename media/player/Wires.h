#pragma once

#include "media/player/FactSheet.h"
#include "media/player/Mailbox.h"
#include "media/player/Placement.h"
#include "media/player/SoundDevice.h"
#include "media/player/StillShelf.h"
#include <atomic>
#include <mutex>
#include <optional>

namespace player {

/// What both threads of a session hold in their hands.
struct Wires {
    media::Interrupt interrupt;
    media::Interrupt soundInterrupt;
    SoundDeviceMaker makeSound;
    FactSheet facts;
    StillShelf shelf;
    std::shared_ptr<Mailbox> mail;

    /// Cuts short what the engine does on its own account, for an order that is about to come.
    void Hurry();
    std::atomic<bool> isHurried = false;

    /// Drops what is or was to be made ahead, and tells it.
    void DropShelf();
    /// Tells that what lies on the shelf, or is planned for it, has changed.
    void TellOfShelf() const;

    View LookedAt() const;
    void LookAt(const View& view);
    /// A picture to be made ready again for a new view; a newer order replaces an older one.
    void OrderRedraw(const Shot& shot);
    std::optional<Shot> TakeRedraw();

private:
    mutable std::mutex mutex_;
    View view_;
    std::optional<Shot> redraw_;
};

} // namespace player
