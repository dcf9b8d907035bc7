#pragma once

#include <QString>

#include <functional>

/// A way to the picture behind the desktop's windows.
class Wallpaper {
public:
    enum class Result {
        Set,
        Declined, ///< the desktop asked the user, who thought better of it
        NotSet,
        NotHere ///< this way leads nowhere on this desktop; another may
    };
    /// What became of a wish; reason says in a sentence why it was not fulfilled.
    struct Outcome {
        Result result = Result::Set;
        QString reason;
    };
    using Done = std::function<void(const Outcome& outcome)>;

    virtual ~Wallpaper() = default;

    /// Whether this way may lead somewhere here. Waits for nobody.
    virtual bool CanSet() const = 0;
    /// Makes a picture file the background at once and, where the desktop keeps it, for later sessions. Does
    /// not wait: done is called once, perhaps before this returns, and no more when this object is gone.
    virtual void Set(const QString& path, Done done) = 0;
};
