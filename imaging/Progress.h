#pragma once

#include <QtGlobal>
#include <functional>

namespace imaging {

/// Is told how far an operation has come, from 0 to 1000, on the thread that called it; may be empty.
using Progress = std::function<void(int part)>;

inline void Tell(const Progress& progress, int done, int all)
{
    constexpr int whole = 1000;
    if (progress)
        progress(int(whole * qint64(done) / all));
}

} // namespace imaging
