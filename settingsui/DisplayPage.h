#pragma once

#include "settingsui/OptionsPage.h"

class ElidedLabel;
class Frame;

/// Tool tips, fades, and the picture behind the frame's windows.
class DisplayPage : public OptionsPage {
    Q_OBJECT

public:
    DisplayPage(Frame& frame, OptionFields& fields);

private:
    void BuildPicture();
    void ShowPicture(const QString& file);
    void Browse();

    Frame& frame_;
    QString picFolder_; ///< the picture file
    ElidedLabel* lblPic = nullptr;
};
