#pragma once

#include "desktop/Wallpaper.h"

#include <QStringList>

#include <utility>

/// A desktop that remembers the pictures it was given, and answers when the test lets it.
class FakeWallpaper : public Wallpaper {
public:
    QStringList given;
    Outcome outcome;
    bool answersLater = false;

    bool CanSet() const override { return true; }
    void Set(const QString& path, Done done) override
    {
        given << path;
        if (answersLater)
            done_ = std::move(done);
        else
            done(outcome);
    }
    void Answer() { std::exchange(done_, {})(outcome); }

private:
    Done done_;
};
