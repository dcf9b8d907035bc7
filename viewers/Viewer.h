#pragma once

#include "app/CaptureWindow.h"
#include "toolkit/ChildForm.h"

#include <memory>

class AAPrintPicture;
class Frame;

/// The window of one capture. It holds the picture in Lead1 until it closes; saving, printing and editing act
/// on the active one.
class Viewer : public ChildForm, public CaptureWindow {
    Q_OBJECT

public:
    /// Takes the picture from the clipboard or, when UseSelectedBitmap is set, the one picked among the
    /// thumbnails.
    explicit Viewer(Frame& frame);

    Lead& Picture() override { return *Lead1; }
    /// Shares its pixels with Lead1 until that changes.
    QImage ClipPic() const override { return ClipPic_; }
    void KeepEdit() override;
    void PrintMe() override;
    void ShowPicture(const QImage& picture) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Build();
    void BuildTools(QWidget* column);
    void Bind();
    void LoadPicture();
    void TakePicture(bool usesSelected);
    void SizeToPicture();
    void Zoom(Qt::MouseButton button);
    void ShowPopup();
    void Save();

    Frame& frame_;
    StripButton* menu_ = nullptr;
    Lead* Lead1 = nullptr;
    QImage ClipPic_;
    std::shared_ptr<AAPrintPicture> AAPrintPicture1; ///< goes on printing when the window closes
    bool isGone_ = false;
};
