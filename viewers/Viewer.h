#pragma once

#include "toolkit/ChildForm.h"

#include <QImage>

class Frame;
class Lead;

/// The window of one capture. It holds the picture in Lead1 until it closes; saving, printing and editing act
/// on the active one.
class Viewer : public ChildForm {
    Q_OBJECT

public:
    /// Takes the picture from the clipboard or, when UseSelectedBitmap is set, the one picked among the
    /// thumbnails.
    explicit Viewer(Frame& frame);

    Lead& Picture() { return *Lead1; }
    /// The picture as it was captured, for the printer and the thumbnails; shares its pixels with Lead1 until
    /// that changes.
    QImage ClipPic() const { return ClipPic_; }

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
    bool isGone_ = false;
};
