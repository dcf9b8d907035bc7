#pragma once

#include "toolkit/ChildForm.h"

#include <QImage>

class Frame;
class Lead;
class QLabel;
class QScrollArea;
class ThumbPanel;

/// The strip of thumbnails of all captures since it was opened. Each cell holds its capture at full size,
/// shared with whoever else holds it, and shows it scaled down.
class QuickShots : public ChildForm {
    Q_OBJECT

public:
    explicit QuickShots(Frame& frame);

    /// Adds a thumbnail of the capture just made: with OpThumb 0 what ThumbHold holds, else the active
    /// capture window's picture.
    void mnuControlsAdd2();
    int Count() const;

    /// Draws the user's text into the thumbnail numbered ThumbIndex. Throws ControlError.
    void AllThumbWatermark();
    int ThumbIndex = 0;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Build();
    QImage NewCapture() const;
    void Select(int index);
    void View(int index);
    void OpenHighlighted();
    void WithHighlighted(void (*act)(Frame& frame, const Lead& capture));
    void SaveAll();
    /// False when the strip was closed meanwhile.
    bool SaveEach();
    void SetPicture(int index, const QImage& picture);

    Frame& frame_;
    QScrollArea* picOuter_ = nullptr;
    ThumbPanel* picInner_ = nullptr;
    QLabel* hint_ = nullptr;
    bool isSaving_ = false;
};
