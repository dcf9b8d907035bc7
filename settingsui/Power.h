#pragma once

#include "app/FormDialog.h"

#include <array>

class Frame;
class xpcheckbox;

/// A small window with the settings that are switched most. What is switched here holds for the run: nothing
/// is stored. Deletes itself when it is closed.
class Power : public FormDialog {
    Q_OBJECT

public:
    /// Takes what the store has of its settings.
    explicit Power(Frame& frame);

    /// Shows it in front; a new one comes up at the upper right of the frame's window.
    void Open();

private:
    struct Row;
    static const std::array<Row, 8> Rows;

    void Build();
    void Bind();
    void Fill();

    Frame& frame_;
    std::array<xpcheckbox*, 8> Control {};
};
