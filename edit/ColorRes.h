#pragma once

#include "app/FormDialog.h"

class Frame;
class OptionGroup;
class QBoxLayout;

/// Asks for a depth, a palette and a way of dithering; it changes nothing itself. Modal.
class ColorRes : public FormDialog {
    Q_OBJECT

public:
    /// Begins with the depth of the picture asked about, one of Lead::BitmapBits.
    ColorRes(Frame& frame, QWidget* owner, int bitmapBits);

    bool UserResult() const { return result() == Accepted; }
    /// What Lead::SetColorResolution takes.
    int GetBits() const;
    /// As many as the depth has in a palette, 0 for a depth without one.
    int GetColours() const;
    int GetPalette() const;
    int GetDither() const;

private:
    void Build();
    void BuildChoices(QBoxLayout& row);
    void Load(int bitmapBits);
    void EnableFor(int bits);

    OptionGroup* bits_ = nullptr;
    OptionGroup* dithering_ = nullptr;
    OptionGroup* palettes_ = nullptr; ///< Palettes(1), (2), (8): for pictures with a palette
    OptionGroup* highColor_ = nullptr; ///< Palettes(0), (4): for the others
};
