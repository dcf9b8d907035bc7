#pragma once

#include "video/TransportTable.h"

#include <QWidget>

class PositionSlider;
class QHBoxLayout;
class StripButton;

/// BottomPane of the frame: the transport bar's controls in one row. What they do is Transport's.
class TransportPane : public QWidget {
    Q_OBJECT

public:
    explicit TransportPane(QWidget* parent = nullptr);

    std::array<StripButton*, RunButtonCount> Cmd2 {};
    std::array<StripButton*, SeekButtonCount> Cmd3 {};
    std::array<StripButton*, RateButtonCount> speedbtn {};
    std::array<StripButton*, ListButtonCount> CmdList {};
    PositionSlider* trkPosition = nullptr;

private:
    void LayOut();
    void TabInOrderOfSight(const QHBoxLayout* row);
};
