#pragma once

#include "desktop/Clipboard.h"

/// The desktop's clipboard. What is put on it can be pasted by other programs, which get it as image/bmp,
/// image/png or as their toolkit's picture, made when they ask.
class SystemClipboard : public Clipboard {
public:
    bool Open(QWidget* owner) override;
    void Empty() override;
    void SetDib(Dib&& dib) override;
    void Close() override;
    bool HasPicture() const override;
    QImage Picture() const override;

private:
    bool isOpen_ = false;
};
