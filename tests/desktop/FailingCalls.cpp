#include "FailingCalls.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

struct Wishes {
    std::atomic<int> count = 0;
    std::atomic<int> failAt = 0;
    int error = 0;
    int writeAtMost = 0;
    std::map<std::string, int> refused;
};

Wishes& Wished()
{
    static Wishes wishes;
    return wishes;
}

bool Fails(const char* call)
{
    Wishes& wishes = Wished();
    if (const auto refused = wishes.refused.find(call); refused != wishes.refused.end()) {
        errno = refused->second;
        return true;
    }
    if (++wishes.count != wishes.failAt)
        return false;
    errno = wishes.error;
    return true;
}

template <typename... Arguments> int Call(const char* name, long number, Arguments... arguments)
{
    return Fails(name) ? -1 : int(syscall(number, arguments...));
}

} // namespace

void FailingCalls::FailAt(int n, int error)
{
    Wished().count = 0;
    Wished().failAt = n;
    Wished().error = error;
}

void FailingCalls::Refuse(const char* call, int error)
{
    Wished().refused[call] = error;
}
void FailingCalls::WriteAtMost(int bytes)
{
    Wished().writeAtMost = bytes;
}
int FailingCalls::Count()
{
    return Wished().count;
}

void FailingCalls::Reset()
{
    FailAt(0, 0);
    WriteAtMost(0);
    Wished().refused.clear();
}

extern "C" {

int openat(int folder, const char* name, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    return Call(isUnnamed ? "O_TMPFILE" : "openat", SYS_openat, folder, name, flags, mode);
}

ssize_t writev(int file, const iovec* parts, int count)
{
    if (Fails("writev"))
        return -1;
    const size_t most = size_t(Wished().writeAtMost);
    if (most > 0)
        return syscall(SYS_write, file, parts->iov_base, std::min(parts->iov_len, most));
    return syscall(SYS_writev, file, parts, count);
}

int fsync(int file)
{
    return Call("fsync", SYS_fsync, file);
}
int fchmod(int file, mode_t mode) noexcept
{
    return Call("fchmod", SYS_fchmod, file, mode);
}
int flock(int file, int operation) noexcept
{
    return Call("flock", SYS_flock, file, operation);
}

int linkat(int from, const char* name, int to, const char* newName, int flags) noexcept
{
    return Call("linkat", SYS_linkat, from, name, to, newName, flags);
}

int renameat(int from, const char* name, int to, const char* newName) noexcept
{
    return Call("renameat", SYS_renameat, from, name, to, newName);
}

int renameat2(int from, const char* name, int to, const char* newName, unsigned flags) noexcept
{
    return Call("renameat2", SYS_renameat2, from, name, to, newName, flags);
}
}
