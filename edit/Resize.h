#pragma once

#include "app/FormDialog.h"
#include "edit/NewSize.h"

#include <array>

class Frame;
class QLineEdit;
class QSlider;
class xpcheckbox;

/// Asks for a new size in pixels for a picture; it changes nothing itself. Modal; accepted when the size is.
class Resize : public FormDialog {
    Q_OBJECT

public:
    struct Results {
        bool accepted;
        int width;
        int height;
        bool resample; ///< smoothly
    };

    /// source is the size to begin with, that of a picture.
    Resize(Frame& frame, QWidget* owner, QSize source);

    Results GetResults() const;

    /// Boxes beyond what is allowed are mended first, with a beep; a size that is none keeps the form open.
    void accept() override;

private:
    struct SideControls {
        QLineEdit* box;
        QSlider* bar;
    };

    void InitTheForm();
    void Build();
    QWidget* BuildSides();
    void Bind();
    void ShowSize();

    NewSize size_;
    std::array<SideControls, 2> sides_ {};
    xpcheckbox* AspectRatioBox;
    xpcheckbox* ResampleBox;
};
