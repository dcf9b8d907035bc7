#include "tests/video/HeldDisk.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct Gate {
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::thread::id> keeper; ///< of a gate that is shut

    void ShutBy(std::optional<std::thread::id> thread)
    {
        const std::lock_guard lock(mutex);
        keeper = thread;
        changed.notify_all();
    }
    void Pass()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !keeper || keeper == std::this_thread::get_id(); });
    }
};

Gate& TheGate()
{
    static Gate gate;
    return gate;
}

} // namespace

HeldDisk::HeldDisk()
{
    TheGate().ShutBy(std::this_thread::get_id());
}

HeldDisk::~HeldDisk()
{
    TheGate().ShutBy(std::nullopt);
}

/// Stands between the program and the kernel.
extern "C" int fsync(int file)
{
    TheGate().Pass();
    return int(syscall(SYS_fsync, file));
}
