#pragma once

#include "tests/video/VideoFixture.h"

#include <QDir>

/// The video window shown, in a folder of its own.
class VideoWindowFixture : public VideoFixture {
protected:
    void SetUp() override
    {
        VideoFixture::SetUp();
        Player().size = QSize(640, 360);
        window->show();
        pane.show();
        QDir::setCurrent(frame.folder.path());
    }
    void TearDown() override
    {
        VideoFixture::TearDown();
        QDir::setCurrent(QDir::rootPath());
    }

    void Open(const QStringList& names)
    {
        state.FileNames = names;
        state.FileCount = int(names.size());
        window->OpenVideo();
    }
};
