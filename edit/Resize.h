#pragma once

#include "edit/NewSize.h"
#include "toolkit/DialogForm.h"

#include <array>

class Frame;
class Lead;
class QLineEdit;
class QSlider;
class xpcheckbox;

/// Asks for a new size in pixels for a picture; it changes nothing itself. Modal; accepted when the size is.
class Resize : public DialogForm {
    Q_OBJECT

public:
    /// What the size is asked of: the whole picture or its region.
    enum Mode { OfBitmap = 0, OfRegion = 3 };
    struct Results {
        bool accepted;
        int width;
        int height;
        bool resample; ///< smoothly
    };

    Resize(Frame& frame, QWidget* owner, const Lead& picture);

    /// Fills the form with the size of the picture, which holds one.
    void InitTheForm(Mode mode);
    Results GetResults() const;

    void done(int result) override;

private:
    struct SideControls {
        QLineEdit* box;
        QSlider* bar;
    };

    void Build();
    QWidget* BuildSides();
    QWidget* BuildFoot();
    void Bind();
    void ShowSize();
    void Accept();

    Frame& frame_;
    const Lead& picture_;
    NewSize size_;
    std::array<SideControls, 2> sides_ {};
    xpcheckbox* AspectRatioBox;
    xpcheckbox* ResampleBox;
};
