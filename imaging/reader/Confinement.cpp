#include "imaging/reader/Confinement.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <memory>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

struct Limit {
    __rlimit_resource_t resource;
    rlim_t value;
};

constexpr Limit Limits[] = {
#ifndef __SANITIZE_ADDRESS__ // the sanitizer reserves terabytes of addresses
    { RLIMIT_AS, rlim_t(1536) << 20 },
#endif
    { RLIMIT_CPU, 20 },
    { RLIMIT_FSIZE, 0 },
    { RLIMIT_NOFILE, 16 },
    { RLIMIT_CORE, 0 },
};

/// Memory, clocks and its own end; a few more only with certain values.
constexpr int Allowed[] = {
    SCMP_SYS(brk),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(madvise),
    SCMP_SYS(read),
    SCMP_SYS(write),
    SCMP_SYS(close),
    SCMP_SYS(fstat),
    SCMP_SYS(futex),
    SCMP_SYS(getrandom),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(getrusage),
    SCMP_SYS(sysinfo),
    SCMP_SYS(sched_yield),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
};

bool FilterCalls()
{
#ifdef __SANITIZE_ADDRESS__
    return true; // the sanitizer looks for leaks with a thread of its own
#else
    const std::unique_ptr<void, decltype(&seccomp_release)> filter(
        seccomp_init(SCMP_ACT_ERRNO(EPERM)), &seccomp_release);
    const auto allow = [&](int call) { return seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, 0) == 0; };
    const auto allowOnly = [&](int call, const scmp_arg_cmp& values) {
        return seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, 1, values) == 0;
    };
    const scmp_arg_cmp isNoCode = SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0);
    const scmp_arg_cmp isThisProcess = SCMP_A0(SCMP_CMP_EQ, scmp_datum_t(getpid()));
    return filter && std::ranges::all_of(Allowed, allow) && allowOnly(SCMP_SYS(mmap), isNoCode)
        && allowOnly(SCMP_SYS(mprotect), isNoCode) && allowOnly(SCMP_SYS(tgkill), isThisProcess)
        && seccomp_load(filter.get()) == 0;
#endif
}

} // namespace

bool ConfineThisProcess()
{
    constexpr unsigned firstOfOthers = STDERR_FILENO + 1;
    const auto set = [](const Limit& limit) {
        const rlimit both { limit.value, limit.value };
        return setrlimit(limit.resource, &both) == 0;
    };
    return close_range(firstOfOthers, ~0U, 0) == 0 && prctl(PR_SET_PDEATHSIG, SIGKILL) == 0
        && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && std::ranges::all_of(Limits, set) && FilterCalls();
}
