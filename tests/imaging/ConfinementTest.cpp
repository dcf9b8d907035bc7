// What is left to a process after it confined itself, told by a child's exit code.
#include "imaging/reader/Confinement.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int NotConfined = 99;

/// Confines a child, lets it try the step there and gives its answer.
template <typename Step> int InConfinement(Step&& step)
{
    const pid_t child = fork();
    if (child == 0)
        std::_Exit(ConfineThisProcess() ? int(step()) : NotConfined);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

class Confinement : public testing::Test {
protected:
    void SetUp() override
    {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the sanitizer needs what is given up";
#endif
    }
};

} // namespace

TEST_F(Confinement, NoFileCanBeOpened)
{
    EXPECT_EQ(InConfinement([] { return open("/etc/passwd", O_RDONLY) < 0 ? errno : 0; }), EPERM);
}

TEST_F(Confinement, NoNetworkCanBeReached)
{
    EXPECT_EQ(InConfinement([] { return socket(AF_INET, SOCK_STREAM, 0) < 0 ? errno : 0; }), EPERM);
}

TEST_F(Confinement, NoProcessCanBeStarted)
{
    EXPECT_EQ(InConfinement([] { return fork() < 0 ? errno : 0; }), EPERM);
}

TEST_F(Confinement, NoOtherProcessIsSignalled)
{
    const pid_t parent = getpid();
    EXPECT_EQ(
        InConfinement([parent] { return syscall(SYS_tgkill, parent, parent, 0) < 0 ? errno : 0; }), EPERM);
}

TEST_F(Confinement, TheProcessCanStillEndItself)
{
    EXPECT_EQ(InConfinement([]() -> int { std::abort(); }), -SIGABRT);
}

TEST_F(Confinement, WhatWasOpenAlreadyIsClosed)
{
    const int inherited = open("/etc/passwd", O_RDONLY);
    ASSERT_GT(inherited, STDERR_FILENO);
    EXPECT_EQ(InConfinement([inherited] {
        char byte = 0;
        return read(inherited, &byte, 1) < 0 ? errno : 0;
    }),
        EBADF);
    close(inherited);
}

TEST_F(Confinement, NoMemoryBecomesCode)
{
    EXPECT_EQ(InConfinement([] {
        return mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)
                == MAP_FAILED
            ? errno
            : 0;
    }),
        EPERM);
}

TEST_F(Confinement, MemoryEndsBelowTwoGibibytes)
{
    EXPECT_EQ(InConfinement([] { return std::malloc(size_t(2) << 30) ? 0 : ENOMEM; }), ENOMEM);
    EXPECT_EQ(InConfinement([] { return std::malloc(size_t(600) << 20) ? 0 : ENOMEM; }), 0);
}
