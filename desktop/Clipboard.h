#pragma once

#include "desktop/Dib.h"

#include <QImage>

class QWidget;

/// The shared place through which captures are handed over: Open, Empty, SetDib, Close by the giver,
/// HasPicture and Picture by any number of takers.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Opens the clipboard for the window that gives; false when it is refused, and then nothing may be put.
    virtual bool Open(QWidget* owner) = 0;
    virtual void Empty() = 0;
    /// Hands the block over; from now on it belongs to the clipboard.
    virtual void SetDib(Dib&& dib) = 0;
    virtual void Close() = 0;

    /// Whether a picture can be pasted.
    virtual bool HasPicture() const = 0;
    /// The picture: 24 bits as QImage::Format_BGR888, with transparency as Format_ARGB32; null when there is
    /// none or it cannot be read. Pictures of one SetDib share their pixels. Waits, bounded, for another
    /// program's answer.
    virtual QImage Picture() const = 0;
};
