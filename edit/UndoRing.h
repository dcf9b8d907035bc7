#pragma once

#include <QImage>

#include <array>

/// The undo pictures of the edit tools: four slots, written as a ring and read by count. The two numbers are
/// independent: after a fifth edit undo begins with slot 4 and comes last to slot 1, which holds the newest.
/// That order is what the tools promise; see the tests before changing it.
class UndoRing {
public:
    static constexpr int Slots = 4;

    /// Pictures that can be undone; grows beyond Slots and is held to it by the next undo.
    int UndoCount() const { return undoCount_; }
    /// The slot last written, 1 to Slots; 0 before the first, and again once everything was undone.
    int UndoSlot() const { return undoSlot_; }

    /// Keeps a picture as it is before an edit.
    void CopyLast(const QImage& picture);
    /// The picture to go back to, null while nothing was ever kept. No slot is ever cleared: with all undone
    /// it is the picture in slot 1 again and again. Holds UndoCount to 1 to Slots.
    QImage Undo();
    /// Counts one undone, after its picture was shown; an undo in between gives the same picture.
    void CountUndone();

private:
    std::array<QImage, Slots> slots_;
    int undoCount_ = 0;
    int undoSlot_ = 0;
};
