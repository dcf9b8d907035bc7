#pragma once

#include <QFile>
#include <QtGlobal>

#include <sys/resource.h>
#include <unistd.h>

/// Gives this program only so many further megabytes for a scope. A sanitizer's own allocator ends the
/// program instead of failing: look at IsThere first.
class SmallMemory {
public:
    explicit SmallMemory(int megabytes)
    {
        ::getrlimit(RLIMIT_AS, &before_);
        const rlimit small { Used() + (rlim_t(megabytes) << 20), before_.rlim_max };
        isThere_ = CanFail && ::setrlimit(RLIMIT_AS, &small) == 0;
    }
    ~SmallMemory() { ::setrlimit(RLIMIT_AS, &before_); }
    SmallMemory(const SmallMemory&) = delete;
    SmallMemory& operator=(const SmallMemory&) = delete;

    bool IsThere() const { return isThere_; }

private:
#ifdef __SANITIZE_ADDRESS__
    static constexpr bool CanFail = false;
#else
    static constexpr bool CanFail = true;
#endif

    static rlim_t Used()
    {
        QFile pages(QStringLiteral("/proc/self/statm"));
        const bool isOpen = pages.open(QIODevice::ReadOnly);
        return isOpen ? pages.readAll().split(' ').first().toULongLong() * rlim_t(::sysconf(_SC_PAGESIZE))
                      : 0;
    }

    rlimit before_ {};
    bool isThere_ = false;
};
