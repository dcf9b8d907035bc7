#pragma once

#include "media/DigitalCaptions.h"
#include "media/LineCaptions.h"
#include <algorithm>

namespace media {

/// What is said from which picture on.
template <typename Text> class CaptionChanges {
public:
    /// bytes: what it costs to keep. A text that stays as it was is no change; numbers never fall.
    void Add(int number, const Text& text, qsizetype bytes)
    {
        if (text == Last() || bytes_ > MostBytes)
            return;
        bytes_ += bytes + qsizetype(sizeof(Change));
        changes_.push_back({ number, bytes_ > MostBytes ? Text() : text });
    }
    /// Nothing was ever said.
    bool IsEmpty() const { return changes_.empty(); }
    Text At(int number) const
    {
        const auto after = std::ranges::upper_bound(changes_, number, {}, &Change::number);
        return after == changes_.begin() ? Text() : std::prev(after)->text;
    }

private:
    static constexpr qsizetype MostBytes = qsizetype(32) << 20; // hours of talk; more is a file made to harm
    struct Change {
        int number;
        Text text;
    };
    Text Last() const { return changes_.empty() ? Text() : changes_.back().text; }

    std::vector<Change> changes_;
    qsizetype bytes_ = 0;
};

/// What closed captions say at each picture. It is told of all pictures in display order, so what a picture
/// says is the same from wherever one comes to it. Where a video has captions of several kinds, those of line
/// 21 count: broadcasters must send them with the same text, and the place of each row is certain. Those of a
/// track of their own count where the pictures have none.
class CaptionTrack {
public:
    /// Takes the triplets of the next picture; numbers never fall.
    void Add(int number, const QByteArray& triplets);
    /// Takes those that a track of their own says from a picture on; numbers never fall.
    void AddOfTrack(int number, const QByteArray& triplets);
    /// What is said at a picture.
    Caption At(int number) const;

private:
    /// As the library writes it: half as large as a Caption.
    using LineChanges = CaptionChanges<QByteArray>;

    LineCaptions line_;
    LineCaptions ofTrack_;
    DigitalCaptions digital_;
    LineChanges lineSays_;
    LineChanges trackSays_;
    CaptionChanges<Caption> digitalSays_;
};

} // namespace media
