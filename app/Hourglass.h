#pragma once

/// The application's pointer, by the numbers of its three states.
enum class Pointer { Normal = 0, Busy = 11, ArrowWithHourglass = 13 };

/// Sets the pointer of the whole application; replaces what was set before, never stacks.
void SetPointer(Pointer pointer);
/// The state last set.
Pointer CurrentPointer();

/// Shows the hourglass from here to the end of the scope, then the normal pointer whatever was set before.
class Hourglass {
public:
    explicit Hourglass(Pointer pointer = Pointer::Busy) { SetPointer(pointer); }
    ~Hourglass() { SetPointer(Pointer::Normal); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

/// The normal pointer while the user is asked something, afterwards the pointer from before, unless another
/// was set meanwhile: what it told of has ended or begun behind the question.
class PointerPause {
public:
    PointerPause();
    ~PointerPause();
    PointerPause(const PointerPause&) = delete;
    PointerPause& operator=(const PointerPause&) = delete;

private:
    Pointer before_;
    int settingBefore_;
    int own_;
};
