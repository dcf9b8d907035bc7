#pragma once

#include "app/CaptureWindow.h"
#include "app/Lead.h"
#include "tests/testing/FakeFrame.h"

/// A capture window of the test's own, which can be the frame's active one.
class FakeCapture : public CaptureWindow {
public:
    QWidget form;
    Lead lead { &form };
    QImage clip;
    int keptEdits = 0;
    int timesPrinted = 0;

    explicit FakeCapture(const QImage& picture)
        : clip(picture)
    {
        lead.SetBitmap(picture);
    }
    Lead& Picture() override { return lead; }
    QImage ClipPic() const override { return clip; }
    void KeepEdit() override
    {
        clip = lead.Bitmap();
        ++keptEdits;
    }
    void PrintMe() override { ++timesPrinted; }
    void ShowPicture(const QImage& picture) override
    {
        lead.SetBitmap(picture);
        clip = picture;
    }
    void MakeActive(FakeFrame& frame)
    {
        frame.activeForm = &form;
        frame.activeCapture = &lead;
        frame.activeWindow = this;
    }
};
