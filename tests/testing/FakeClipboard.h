#pragma once

#include "desktop/Clipboard.h"

#include <QStringList>

/// A clipboard of the test's own that writes down what is done to it and can be held by "another program".
class FakeClipboard : public Clipboard {
public:
    bool isHeldElsewhere = false;
    bool losesWhatItGets = false;
    bool givesNone = false; ///< it says that it has a picture and gives none
    QImage picture;
    QWidget* owner = nullptr;
    QStringList log;

    bool Open(QWidget* window) override
    {
        log << QStringLiteral("Open");
        owner = window;
        return !isHeldElsewhere;
    }
    void Empty() override
    {
        log << QStringLiteral("Empty");
        picture = {};
    }
    void SetDib(Dib&& dib) override
    {
        log << QStringLiteral("SetDib");
        const Dib taken = std::move(dib);
        picture = losesWhatItGets ? QImage() : taken.ToImage();
    }
    void Close() override { log << QStringLiteral("Close"); }

    bool HasPicture() const override { return !picture.isNull(); }
    QImage Picture() const override { return givesNone ? QImage() : picture; }
};
