#pragma once

#include "tests/testing/FakeFrame.h"
#include "video/Transport.h"
#include "video/TransportPane.h"
#include "video/VideoWindow.h"

#include <gtest/gtest.h>

/// A frame whose current player is the video window's own.
class OneVideoFrame : public FakeFrame {
public:
    ltmmPlay& CurrentPlayer() override { return *own; }
    FakePlayer* own = nullptr;
};

/// A video window over a faked frame, with its transport.
class VideoFixture : public testing::Test {
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
    }
    void TearDown() override { delete window; }

    virtual FakePlayer* MakePlayer(QWidget* parent) { return new FakePlayer(parent); }
    FakePlayer& Player() { return *frame.own; }
    QString Status(StatusLabel label) const { return frame.status.value(label); }
};
