#pragma once

#include "Program.h"

#include <QTemporaryDir>

class ltmmPlay;

/// The real program on the screen, with settings and folders of its own, driven by the mouse.
class LiveProgram {
public:
    /// Shows the frame and waits until it stands on the screen. Throws std::runtime_error when it does not.
    LiveProgram();

    /// Opens a video by the open dialog, which lets through some extensions only: under a name that has one
    /// of them.
    void Open(const QString& clip);
    void Click(const QString& name);
    /// Presses the frame's own button for it.
    void Capture();
    /// Where captures are shown: in the strip, in a window and the strip, or in a window.
    enum class Place { Strip, Both, Window };
    void ShowCapturesIn(Place place);
    /// Over the captures, which stay open behind it.
    void BringVideoToFront();
    Frame& TheFrame() { return main_; }
    ltmmPlay& Player() { return main_.CurrentPlayer(); }
    /// Capture windows open.
    int Captures() { return program_.State().KidCount; }

private:
    QString Prepared() const;

    QTemporaryDir folder_;
    Program program_;
    Main& main_;
};
