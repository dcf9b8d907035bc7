#pragma once

#include <csignal>

#include <sys/resource.h>

/// Lets no file of this program grow beyond so many bytes for a scope: a full disk wherever the program
/// writes, on machines too that let no test mount one. What the test program says into a file meets it too.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : handler_(::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small { bytes, before_.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_ {};
    sighandler_t handler_;
};
