#pragma once

#include "tests/testing/FakeFrame.h"
#include "video/Transport.h"
#include "video/TransportPane.h"
#include "video/VideoWindow.h"

#include <QDir>
#include <QPointer>
#include <gtest/gtest.h>

/// A frame whose current player is the video window's own.
class OneVideoFrame : public FakeFrame {
public:
    ltmmPlay& CurrentPlayer() override { return *own; }
    FakePlayer* own = nullptr;
};

/// The video window over a faked player, in a folder of its own.
class VideoWindowFixture : public testing::Test {
protected:
    OneVideoFrame frame;
    ApplicationState& state = frame.state;
    TransportPane pane;
    FakePlayer spare;
    std::unique_ptr<Transport> transport;
    QPointer<VideoWindow> window;

    void SetUp() override
    {
        frame.own = &spare; // asked for while the window is being made
        transport = std::make_unique<Transport>(pane, frame, [] {});
        window = new VideoWindow(
            frame, *transport, [this](QWidget* parent) { return frame.own = MakePlayer(parent); });
        frame.own->size = QSize(640, 360);
        window->show();
        pane.show();
        QDir::setCurrent(frame.folder.path());
    }
    void TearDown() override
    {
        delete window;
        QDir::setCurrent(QDir::rootPath());
    }

    virtual FakePlayer* MakePlayer(QWidget* parent) { return new FakePlayer(parent); }
    FakePlayer& Player() { return *frame.own; }
    void Open(const QStringList& names)
    {
        state.FileNames = names;
        state.FileCount = int(names.size());
        window->OpenVideo();
    }
    QString Status(StatusLabel label) const { return frame.status.value(label); }
};
