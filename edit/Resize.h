#pragma once

#include "app/FormDialog.h"
#include "edit/NewSize.h"

#include <array>

class Frame;
class Lead;
class QLineEdit;
class QSlider;
class xpcheckbox;

/// Asks for a new size in pixels for a picture; it changes nothing itself. Modal; accepted when the size is.
class Resize : public FormDialog {
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

    /// Boxes beyond what is allowed are mended first, with a beep; a size that is none keeps the form open.
    void accept() override;

private:
    struct SideControls {
        QLineEdit* box;
        QSlider* bar;
    };

    void Build();
    QWidget* BuildSides();
    void Bind();
    void ShowSize();

    Frame& frame_;
    const Lead& picture_;
    NewSize size_;
    std::array<SideControls, 2> sides_ {};
    xpcheckbox* AspectRatioBox;
    xpcheckbox* ResampleBox;
};
