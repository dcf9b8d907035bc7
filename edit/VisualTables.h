#pragma once

#include "edit/Visual.h"
#include "toolkit/Face.h"

/// A button of the editor: a caption, or a picture for those without one, and what it does.
struct Visual::Command {
    const char* name;
    const char* caption; ///< or, with a picture, the name for those who cannot see it
    const char* tip;
    void (Visual::*act)(); ///< null for what is not there yet
    Face face = Face::None;
};

/// An operation without an amount.
struct Visual::PlainOperation {
    const char* name;
    const char* caption;
    const char* tip;
    void (Lead::*operation)();
    Face face = Face::None;
};

/// A turn that needs no slider.
struct Visual::Turn {
    int index;
    const char* caption;
    const char* title; ///< for those who cannot see it
    int angle; ///< hundredths of a degree
};
