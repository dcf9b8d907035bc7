#pragma once

#include "media/player/PlayerControl.h"

#include <vector>

/// Check sums of a video's pictures, each taken by stepping forward from the one before, for videos whose
/// pixels tell no number.
inline std::vector<size_t> PicturesInOrder(const QString& path)
{
    PlayerControl player;
    player.SetSourceFile(path);
    std::vector<size_t> pictures;
    player.SetCurrentFrame(0);
    for (int number = 0;; ++number) {
        const QImage still = player.GetStillPicture(5000);
        pictures.push_back(qHashBits(still.constBits(), size_t(still.sizeInBytes())));
        player.NextFrame();
        if (player.CurrentFrame() == number)
            return pictures;
    }
}

/// The number by which the walk calls a picture that should be this one; -1 for any other picture.
inline int NumberInWalk(const std::vector<size_t>& walk, const QImage& still, int expected)
{
    const size_t sum = qHashBits(still.constBits(), size_t(still.sizeInBytes()));
    return size_t(expected) < walk.size() && walk[size_t(expected)] == sum ? expected : -1;
}
