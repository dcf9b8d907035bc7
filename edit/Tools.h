#pragma once

#include "app/FormDialog.h"
#include "edit/UndoRing.h"

#include <array>

class CaptureWindow;
class Frame;
class Lead;
class QLabel;

/// The small window of quick edits, above all others. It works on the active capture, looked up afresh at
/// every use, so that undo may bring a picture of one capture into another.
class Tools : public FormDialog {
    Q_OBJECT

public:
    explicit Tools(Frame& frame);

    /// Shows the window; a new one comes up below its owner, the window of a capture.
    void LTools(QWidget* owner);
    /// Closes the window.
    void UnloadLTools() { close(); }
    /// Keeps the active capture for undo.
    void CopyLast();
    /// Asks for a size and opens the active capture in that size as a new one.
    void ImageResize_Click();

    void done(int result) override;

private:
    enum Slider { Brightness, Contrast, SliderCount };
    struct Button;
    struct PreviewRow;
    static const Button Buttons[];
    static const PreviewRow PreviewRows[];
    template <void (Lead::*operation)()> static void EditBy(Tools& tools);

    void Build();
    QWidget* BuildButtons();
    QWidget* BuildSliders();
    void PlaceBelow(const QWidget* owner);
    /// The active capture, null when the active window holds none; the user is told then.
    CaptureWindow* Capture();
    void Edit(void (*operation)(Lead&));
    void Undo();
    void Refresh(CaptureWindow& capture);
    void Preview(Slider slider, int value);
    void OpenResized(int width, int height, int flags);
    void TellTooLarge();

    Frame& frame_;
    UndoRing undo_;
    std::array<QLabel*, SliderCount> readOuts_ {}; ///< LblBright, Label2
};
