#pragma once

#include "media/player/Shot.h"
#include <QObject>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace player {

/// What the engine thread tells without being asked. Parts that came since the last reading are merged: of
/// several pictures the newest counts.
struct Mail {
    std::optional<Shot> shot;
    /// The picture on the screen made ready for a new view.
    std::optional<Shot> redrawn;
    /// Playing came to its end; lastShown is the picture it ended with, isMediaEnd tells the media's end from
    /// the selection's.
    struct End {
        Shot lastShown;
        bool isMediaEnd;
    };
    std::optional<End> end;
    /// Why playing, or what an order wanted, came to nothing.
    struct Fault {
        media::Failure failure;
        int turn; ///< as a Shot's
    };
    std::optional<Fault> fault;
    /// Pictures made ahead have come, or will not come.
    bool shelfChanged = false;
};

/// Carries mail from the engine thread to the user-interface thread by queued events; the sender never waits.
/// Shared: a closed box swallows what a late sender or a late event still brings, so nothing of a dropped
/// source is ever seen.
class Mailbox : public std::enable_shared_from_this<Mailbox> {
public:
    using Reader = std::function<void(const Mail&)>;
    /// reader runs on receiver's thread.
    Mailbox(QObject* receiver, Reader reader);

    void Post(const Mail& mail);
    /// For the receiver's thread, before the receiver goes.
    void Close();

private:
    void Deliver();

    std::mutex mutex_;
    QObject* receiver_;
    Reader reader_;
    Mail waiting_;
    bool isAnnounced_ = false;
};

} // namespace player
