#include "edit/PicturePane.h"

#include "app/Lead.h"

#include <gtest/gtest.h>

namespace {

QImage Red(int width, int height)
{
    QImage picture(width, height, QImage::Format_BGR888);
    picture.fill(Qt::red);
    return picture;
}

class PicturePaneTest : public testing::Test {
protected:
    std::unique_ptr<PicturePane> Show(PicturePane::Small small, const QImage& picture)
    {
        auto pane = std::make_unique<PicturePane>(
            small, QStringLiteral("Effect"), QStringLiteral("Picture"), nullptr);
        pane->resize(200, 100);
        pane->show();
        pane->Picture().SetBitmap(picture);
        pane->Arrange();
        return pane;
    }
    /// The rectangle of the pane that shows the picture.
    static QRect Painted(PicturePane& pane)
    {
        const QImage seen = pane.grab().toImage();
        QRect painted;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                if (seen.pixelColor(x, y) == Qt::red)
                    painted |= QRect(x, y, 1, 1);
        return painted;
    }
};

} // namespace

TEST_F(PicturePaneTest, ASmallPictureStandsInTheCornerAtItsOwnSize)
{
    const auto pane = Show(PicturePane::Small::OwnSize, Red(50, 30));
    EXPECT_EQ(Painted(*pane), QRect(0, 0, 50, 30));
}

TEST_F(PicturePaneTest, APictureJustAsWideOrAsHighAsTheRoomStandsInTheCornerToo)
{
    const auto wide = Show(PicturePane::Small::OwnSize, Red(200, 50));
    EXPECT_EQ(Painted(*wide), QRect(0, 0, 200, 50));
    const auto high = Show(PicturePane::Small::OwnSize, Red(60, 100));
    EXPECT_EQ(Painted(*high), QRect(0, 0, 60, 100));
}

TEST_F(PicturePaneTest, ALargerPictureShrinksInItsOwnProportions)
{
    const auto high = Show(PicturePane::Small::OwnSize, Red(300, 300));
    EXPECT_EQ(Painted(*high), QRect(50, 0, 100, 100));
    const auto wide = Show(PicturePane::Small::OwnSize, Red(201, 50));
    EXPECT_EQ(Painted(*wide), QRect(0, 25, 200, 49));
}

TEST_F(PicturePaneTest, AFillingPictureGrowsToTheRoom)
{
    const auto pane = Show(PicturePane::Small::Filling, Red(10, 10));
    EXPECT_EQ(Painted(*pane), QRect(50, 0, 100, 100));
}

TEST_F(PicturePaneTest, AnotherRoomArrangesThePictureAnew)
{
    const auto pane = Show(PicturePane::Small::OwnSize, Red(300, 300));
    pane->resize(400, 400);
    EXPECT_EQ(Painted(*pane), QRect(0, 0, 300, 300));
}

TEST_F(PicturePaneTest, ArrangingAgainChangesNothing)
{
    const auto pane = Show(PicturePane::Small::OwnSize, Red(300, 300));
    pane->Arrange();
    EXPECT_EQ(Painted(*pane), QRect(50, 0, 100, 100));
    EXPECT_EQ(pane->Picture().Bitmap(), Red(300, 300)) << "the picture itself is never touched";
}

TEST_F(PicturePaneTest, WithoutAPictureNothingIsShown)
{
    const auto pane = Show(PicturePane::Small::Filling, QImage());
    EXPECT_TRUE(Painted(*pane).isEmpty());
}
