#include "video/VideoList.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "desktop/FileName.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"

#include <QListWidget>

namespace {

struct HeadButton {
    Face face;
    const char* tip;
    const char* name;
    void (*act)(VideoList&);
};
constexpr HeadButton HeadButtons[] {
    { Face::Open, " Open Videos ", "Open videos", [](VideoList& list) { Q_EMIT list.OpenWanted(); } },
    { Face::Minimize, "Minimize Window", "Minimize window", [](VideoList& list) { list.Minimize(); } },
    { Face::Close, "Close Video Window", "Close video list", [](VideoList& list) { list.close(); } },
};

} // namespace

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
    connect(VidList, &QListWidget::itemActivated, this, [this] { Choose(VidList->currentRow()); });
    frame_.State().ApplyToolTips(*this);
}

void VideoList::BuildHead()
{
    for (const HeadButton& row : HeadButtons) {
        auto* button = new smallXPbuttons(this);
        button->SetFace(row.face);
        button->setAccessibleName(QLatin1String(row.name));
        button->setProperty("Tag", QLatin1String(row.tip));
        Head().AddButton(button);
        connect(button, &StripButton::Click, this, [this, act = row.act] { act(*this); });
    }
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
