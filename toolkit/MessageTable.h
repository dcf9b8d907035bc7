#pragma once

#include <QtGlobal>

#include <vector>

/// The messages that a hook lets through to its owner. Slots are never given back: a deleted message leaves a
/// free one, which the next new message takes.
class MessageTable {
public:
    /// Stands for every message when added or deleted.
    static constexpr qint32 AllMessages = -1;

    /// A listed message is not listed again, unless a free slot stands before it: the first free slot ends
    /// the search. AllMessages lets everything pass until a single message is added.
    void Add(qint32 message);
    /// Frees the first slot that holds the message. AllMessages lets nothing pass any more.
    void Delete(qint32 message);
    void Clear();

    bool Lets(qint32 message) const;
    /// The slots in use or free; 0 lets nothing pass, -1 everything.
    int Count() const { return count_; }

private:
    static constexpr qint32 Free = -1;

    std::vector<qint32> slots_;
    int count_ = 0;
};
