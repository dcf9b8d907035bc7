#pragma once

#include "toolkit/ChildForm.h"
#include "viewers/ThumbLayout.h"

#include <QImage>

#include <vector>

class Frame;
class QLabel;
class QScrollArea;
class ThumbCell;

/// The strip of thumbnails of all captures since it was opened. Each cell holds its capture at full size,
/// shared with whoever else holds it, and paints it scaled down.
class QuickShots : public ChildForm {
    Q_OBJECT

public:
    explicit QuickShots(Frame& frame);
    ~QuickShots() override;

    /// Adds a thumbnail of the capture just made: with OpThumb 0 what ThumbHold holds, else the active
    /// capture window's picture.
    void mnuControlsAdd2();
    int Count() const { return int(Lead3.size()); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Build();
    QImage NewCapture() const;
    void Select(ThumbCell& cell);
    void OpenHighlighted();
    void SaveAll();

    Frame& frame_;
    QScrollArea* picOuter_ = nullptr;
    QWidget* picInner_ = nullptr;
    QLabel* hint_ = nullptr;
    std::vector<ThumbCell*> Lead3;
    ThumbLayout layout_;
};
