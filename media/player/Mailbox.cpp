#include "media/player/Mailbox.h"

#include <utility>

namespace player {

Mailbox::Mailbox(QObject* receiver, Reader reader)
    : receiver_(receiver)
    , reader_(std::move(reader))
{
}

void Mailbox::Post(const Mail& mail)
{
    const std::lock_guard lock(mutex_);
    if (!receiver_)
        return;
    if (mail.shot)
        waiting_.shot = mail.shot;
    if (mail.redrawn)
        waiting_.redrawn = mail.redrawn;
    if (mail.end)
        waiting_.end = mail.end;
    if (mail.fault)
        waiting_.fault = mail.fault;
    waiting_.shelfChanged |= mail.shelfChanged;
    if (!std::exchange(isAnnounced_, true))
        QMetaObject::invokeMethod(
            receiver_, [self = shared_from_this()] { self->Deliver(); }, Qt::QueuedConnection);
}

void Mailbox::Close()
{
    const std::lock_guard lock(mutex_);
    receiver_ = nullptr;
    waiting_ = {};
}

void Mailbox::Deliver()
{
    Mail mail;
    {
        const std::lock_guard lock(mutex_);
        isAnnounced_ = false;
        if (!receiver_)
            return;
        mail = std::exchange(waiting_, {});
    }
    reader_(mail);
}

} // namespace player
