#pragma once

namespace player {

/// Notices a caller that walks through the video in equal strides and takes a still of each frame, so that
/// the next ones can be made ahead.
class StrideWatch {
public:
    /// The caller went to a frame by its number.
    void Sought(int number);
    /// The caller took a still of the frame it went to last.
    void StillTaken() { hasStill_ = true; }
    /// The caller did something else: played, stepped, changed the source.
    void Forget() { *this = StrideWatch(); }
    /// The stride, 1 or more, once two equal ones were walked with a still at every frame; 0 before.
    int Stride() const { return equalStrides_ >= 2 && hasStill_ ? stride_ : 0; }

private:
    int last_ = -1;
    int stride_ = 0;
    int equalStrides_ = 0;
    bool hasStill_ = false;
};

} // namespace player
