#pragma once

#include "media/Libav.h"
#include <QByteArray>
#include <optional>

namespace media {

/// Reads the first channel of the captions of line 21 (CC1 of EIA-608) with the library's decoder.
class LineCaptions {
public:
    /// Takes the triplets of the next picture in display order; numbers never fall. What is said from this
    /// picture on, as the library writes it (CaptionFromAss); none when that stays as it is.
    std::optional<QByteArray> Take(int number, const QByteArray& triplets);

private:
    bool IsOurs(int first, int second);
    bool IsRepeat(int first, int second);
    QByteArray OursOf(const QByteArray& triplets);
    std::optional<QByteArray> Decode(int number, const QByteArray& triplets);

    CodecPtr decoder_; ///< from the first triplets on
    int lastCode_ = 0; ///< the control code that came last and was not a repeat
    bool isSecondChannel_ = false; ///< the letters are for CC2
    bool isInText_ = false; ///< the letters are for a page of text
};

} // namespace media
