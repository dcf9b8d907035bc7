#pragma once

/// A disk that hangs: while one lives, no file of this test program is flushed but those of the thread that
/// made it.
class HeldDisk {
public:
    HeldDisk();
    ~HeldDisk();
    HeldDisk(const HeldDisk&) = delete;
    HeldDisk& operator=(const HeldDisk&) = delete;
};
