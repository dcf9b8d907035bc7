#pragma once

#include "toolkit/CLBHScroll.h"
#include "toolkit/ChildForm.h"

class Frame;
class QListWidget;

/// The list of the videos that were opened together; a click plays one.
class VideoList : public ChildForm {
    Q_OBJECT

public:
    explicit VideoList(Frame& frame);

Q_SIGNALS:
    void VideoChosen(); ///< VideoPath names the video to open
    void OpenWanted(); ///< the list's own open button was pressed

private:
    void BuildHead();
    void Fill();
    void Choose(int row);

    Frame& frame_;
    QListWidget* VidList = nullptr;
    CLBHScroll scroll_;
};
