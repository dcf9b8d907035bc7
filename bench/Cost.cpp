#include "bench/Cost.h"

#include <QFile>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double SecondsOf(clockid_t clock)
{
    timespec now {};
    clock_gettime(clock, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

double SecondsOf(const timeval& time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

Cost NowOf(clockid_t processorClock)
{
    return { SecondsOf(CLOCK_MONOTONIC), SecondsOf(processorClock) };
}

pid_t Start(const std::vector<std::string>& command)
{
    std::vector<char*> words;
    words.reserve(command.size() + 1);
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);

    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error = posix_spawnp(&child, words[0], &quiet, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&quiet);
    if (error != 0)
        throw std::runtime_error(command[0] + " does not start");
    return child;
}

} // namespace

Stopwatch::Stopwatch()
    : begin_(NowOf(CLOCK_PROCESS_CPUTIME_ID))
{
}

void Stopwatch::Rest()
{
    restBegin_ = NowOf(CLOCK_THREAD_CPUTIME_ID);
}

void Stopwatch::GoOn()
{
    const Cost rest = NowOf(CLOCK_THREAD_CPUTIME_ID) - restBegin_;
    rested_ = { rested_.wall + rest.wall, rested_.cpu + rest.cpu };
}

Cost Stopwatch::Elapsed() const
{
    return NowOf(CLOCK_PROCESS_CPUTIME_ID) - begin_ - rested_;
}

double ResidentBytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ')[1].toDouble() * 1024;
    return 0;
}

Cost CostOf(const std::vector<std::string>& command)
{
    const double begin = SecondsOf(CLOCK_MONOTONIC);
    const pid_t child = Start(command);
    int status = 0;
    rusage used {};
    while (wait4(child, &status, 0, &used) < 0 && errno == EINTR) { }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command[0] + " failed");
    return { SecondsOf(CLOCK_MONOTONIC) - begin, SecondsOf(used.ru_utime) + SecondsOf(used.ru_stime) };
}

std::string ThisProgram()
{
    return std::filesystem::read_symlink("/proc/self/exe").string();
}
