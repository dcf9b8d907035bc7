#include "video/VideoList.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "desktop/FileName.h"
#include "toolkit/HeadButtons.h"

#include <QListWidget>

#include <algorithm>

VideoList::VideoList(Frame& frame)
    : frame_(frame)
{
    setObjectName(QStringLiteral("VideoList"));
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Video List"));
    BuildHead();
    VidList = new QListWidget(this);
    VidList->setObjectName(QStringLiteral("VidList"));
    VidList->setAccessibleName(QStringLiteral("Videos"));
    SetBody(VidList);
    Fill();
    // One signal for a click and for Enter, on every desktop.
    VidList->setStyleSheet(QStringLiteral("QListWidget { activate-on-singleclick: 1; }"));
    VidList->setCurrentRow(
        int(std::max<qsizetype>(frame_.State().Videos.indexOf(frame_.State().VideoPath), 1)) - 1);
    VidList->setFocus();
    connect(VidList, &QListWidget::itemActivated, this, [this] { Choose(VidList->currentRow()); });
    frame_.State().ApplyToolTips(*this);
}

void VideoList::BuildHead()
{
    static constexpr FormButton<VideoList> Buttons[] {
        { 2, Face::Open, " Open Videos ", "Open videos", [](VideoList& list) { Q_EMIT list.OpenWanted(); } },
        { 1, Face::Minimize, "Minimize Window", "Minimize window",
            [](VideoList& list) { list.ToggleMinimize(); } },
        { 0, Face::Close, "Close Video Window", "Close video list", [](VideoList& list) { list.close(); } },
    };
    AddHeadButtons(*this, Buttons);
}

void VideoList::Fill()
{
    scroll_.Init(VidList);
    const ApplicationState& state = frame_.State();
    for (int i = 1; i <= state.VideoCount; ++i)
        scroll_.AddItem(FileName::Shown(state.Videos.value(i)));
}

void VideoList::Choose(int row)
{
    ApplicationState& state = frame_.State();
    state.VideoPath = state.Videos.value(row + 1);
    state.CaptureName = state.VideoPath;
    state.FromList = true;
    Q_EMIT VideoChosen();
}
