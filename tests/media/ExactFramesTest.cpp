// Every picture of every clip, whichever way it is reached, is that of one pass from front to back, pixel for
// pixel, and carries the number that the clip's maker drew into it.
#include "media/FrameServer.h"
#include "tests/clips/BarCode.h"
#include "tests/clips/Clips.h"
#include "tests/media/Opened.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <random>

namespace media {

namespace {

constexpr int LargePicture = 640 * 480;

/// The bar code is drawn before the clip is tagged as turned.
QImage Unturned(const QImage& still, const Clip& clip)
{
    return clip.Name == QLatin1String("rotate90.mp4") ? still.transformed(QTransform().rotate(90)) : still;
}

/// The clips and the checksums of their pictures in one pass, made once for all tests of a suite.
class Exactness : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        for (const Clip& clip : AllClips())
            if (clip.Pictures > 0 && !clip.Name.startsWith(QLatin1String("hls/")))
                Learn(clip);
    }
    static void TearDownTestSuite() { passes_.clear(); }

    static void Learn(const Clip& clip)
    {
        SCOPED_TRACE(clip.Name.toStdString());
        Pass pass { clip, {}, {} };
        const Opened opened(clip.Name);
        pass.isLarge = opened->Size().width() * opened->Size().height() > LargePicture;
        for (int number = 0; number < opened->KnownFrames(); ++number) {
            const QImage still = opened->Get(number, Purpose::Play).ToStill();
            pass.sums.push_back(SumOf(still));
            pass.numbers.push_back(NumberIn(Unturned(still, clip)));
        }
        passes_.push_back(std::move(pass));
    }

    struct Pass {
        Clip clip;
        std::vector<size_t> sums;
        std::vector<int> numbers;
        bool isLarge = false;

        int Count() const { return int(sums.size()); }
        int Tries(int usual) const { return isLarge ? usual / 10 : usual; }
    };

    /// Runs the check for every clip, its name at hand in what fails.
    static void ForEachClip(const std::function<void(const Pass&)>& check)
    {
        for (const Pass& pass : passes_) {
            SCOPED_TRACE(pass.clip.Name.toStdString());
            check(pass);
        }
    }

    static void ExpectExact(const Pass& pass, int asked, const Picture& picture)
    {
        EXPECT_EQ(picture.Number(), asked);
        EXPECT_EQ(SumOf(picture.ToStill()), pass.sums[size_t(asked)]) << "picture " << asked;
    }

    static inline std::vector<Pass> passes_;
};

class ExactSteps : public Exactness { };
class ExactJumps : public Exactness { };
class ExactWithoutStore : public Exactness { };

} // namespace

TEST_F(ExactSteps, EveryClipHasAsManyPicturesAsItsMakerPutIn)
{
    ForEachClip([](const Pass& pass) { EXPECT_EQ(pass.Count(), pass.clip.Pictures); });
}

TEST_F(ExactSteps, ForwardsEveryPictureCarriesItsNumber)
{
    ForEachClip([](const Pass& pass) {
        for (size_t i = 0; i < std::min(pass.numbers.size(), pass.clip.Numbers.size()); ++i) {
            if (pass.clip.Numbers[i] >= 0) {
                EXPECT_EQ(pass.numbers[i], pass.clip.Numbers[i]) << "picture " << i;
            }
        }
    });
}

TEST_F(ExactSteps, BackwardsEveryPictureIsThatOfTheForwardPass)
{
    ForEachClip([](const Pass& pass) {
        const Opened opened(pass.clip.Name);
        for (int number = pass.Count() - 1; number >= 0; --number)
            ExpectExact(pass, number, opened->Get(number, Purpose::Step));
    });
}

TEST_F(ExactSteps, BackwardsWithLittleRoomForPicturesTheyAreTheSame)
{
    ForEachClip([](const Pass& pass) {
        if (pass.isLarge)
            return;
        const Opened opened(pass.clip.Name, { .pictures = 12 * 320 * 240 });
        for (int number = pass.Count() - 1; number >= std::max(0, pass.Count() - 30); --number)
            ExpectExact(pass, number, opened->Get(number, Purpose::Step));
    });
}

TEST_F(ExactSteps, ToAndFroEveryPictureIsThatOfTheForwardPass)
{
    ForEachClip([](const Pass& pass) {
        const Opened opened(pass.clip.Name);
        std::mt19937 random(1);
        int number = int(random() % unsigned(pass.Count()));
        for (int step = 0; step < pass.Tries(200); ++step) {
            number = std::clamp(number + (random() % 2 ? 1 : -1), 0, pass.Count() - 1);
            ExpectExact(pass, number, opened->Get(number, Purpose::Step));
        }
    });
}

TEST_F(ExactJumps, AtRandomEveryPictureIsThatOfTheForwardPass)
{
    constexpr Purpose purposes[] = { Purpose::Jump, Purpose::Step, Purpose::Play };
    ForEachClip([&](const Pass& pass) {
        std::optional<Opened> opened;
        std::mt19937 random(2);
        for (int jump = 0; jump < pass.Tries(200); ++jump) {
            if (jump % 20 == 0) // an empty cache again
                opened.emplace(pass.clip.Name);
            const int number = int(random() % unsigned(pass.Count()));
            ExpectExact(pass, number, (*opened)->Get(number, purposes[jump % 3]));
        }
    });
}

TEST_F(ExactJumps, AfterTheLastPictureEveryOtherIsThatOfTheForwardPass)
{
    ForEachClip([](const Pass& pass) {
        std::mt19937 random(3);
        for (int jump = 0; jump < pass.Tries(10); ++jump) {
            const Opened opened(pass.clip.Name);
            const int number = int(random() % unsigned(pass.Count()));
            ExpectExact(pass, pass.Count() - 1, opened->Get(pass.Count() - 1, Purpose::Jump));
            ExpectExact(pass, number, opened->Get(number, Purpose::Jump));
        }
    });
}

TEST_F(ExactJumps, PreparedInPiecesEveryPictureIsThatOfTheForwardPass)
{
    ForEachClip([](const Pass& pass) {
        std::mt19937 random(5);
        const Opened opened(pass.clip.Name);
        for (int place = 0; place < 3; ++place) {
            const int number = int(random() % unsigned(pass.Count()));
            while (!opened->Prepare(number, Interrupt::Clock::now())) { }
            for (int kept = std::max(0, number - pass.Tries(20)); kept <= number; ++kept)
                if (const Picture picture = opened->Cached(kept); !picture.IsNull())
                    ExpectExact(pass, kept, picture);
        }
    });
}

TEST_F(ExactJumps, AWalkGivesThePicturesThatItSkipsTo)
{
    ForEachClip([](const Pass& pass) {
        for (const int step : { 2, 7, 10, 33 }) {
            const Opened opened(pass.clip.Name);
            std::vector<int> numbers;
            for (int number = 0; number < pass.Count(); number += step)
                numbers.push_back(number);
            auto next = numbers.begin();
            opened->Walk(numbers, [&](const Picture& picture) {
                ExpectExact(pass, *next++, picture);
                return true;
            });
            EXPECT_EQ(next, numbers.end());
        }
    });
}

TEST_F(ExactWithoutStore, AtRandomPacketsReadAgainGiveTheSamePictures)
{
    ForEachClip([](const Pass& pass) {
        const Opened opened(pass.clip.Name, { .pictures = 0, .packets = 0 });
        std::mt19937 random(4);
        for (int jump = 0; jump < pass.Tries(40); ++jump) {
            const int number = int(random() % unsigned(pass.Count()));
            ExpectExact(pass, number, opened->Get(number, Purpose::Jump));
        }
    });
}

TEST_F(ExactWithoutStore, ForwardsPacketsReadAgainGiveTheSamePictures)
{
    ForEachClip([](const Pass& pass) {
        const Opened opened(pass.clip.Name, { .pictures = 0, .packets = 0 });
        for (int number = pass.Count() / 2; number < pass.Count() && !pass.isLarge; ++number)
            ExpectExact(pass, number, opened->Get(number, Purpose::Play));
    });
}

} // namespace media
