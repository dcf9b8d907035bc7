#include "edit/EdgeFilters.h"

#include "app/ControlError.h"
#include "app/Lead.h"

#include <gtest/gtest.h>

namespace {

int Code(EdgeFilter filter, int filterType, int filterDirection)
{
    return int(SpatialCodeOf(EdgeFilterRows[size_t(filter)], filterType, filterDirection));
}

} // namespace

TEST(EdgeFiltersTest, SobelAndPrewittGoByTheType)
{
    for (const int direction : { 0, 1, 2, 3 }) {
        EXPECT_EQ(Code(EdgeFilter::Sobel, 0, direction), 22);
        EXPECT_EQ(Code(EdgeFilter::Sobel, 1, direction), 23);
        EXPECT_EQ(Code(EdgeFilter::Prewitt, 0, direction), 24);
        EXPECT_EQ(Code(EdgeFilter::Prewitt, 1, direction), 25);
    }
}

TEST(EdgeFiltersTest, ShiftIsAlways27)
{
    EXPECT_EQ(Code(EdgeFilter::Shift, 0, 0), 27);
    EXPECT_EQ(Code(EdgeFilter::Shift, 1, 0), 27) << "with \"Vertical\" too";
    EXPECT_EQ(Code(EdgeFilter::Shift, 2, 0), 28) << "of a type that nobody gives";
}

TEST(EdgeFiltersTest, EdgeGoesByTheDirection)
{
    constexpr int codes[] { 10, 14, 8, 12 }; // east, west, north, south
    for (const int type : { 0, 1 })
        for (int direction = 0; direction < 4; ++direction)
            EXPECT_EQ(Code(EdgeFilter::Edge, type, direction), codes[direction]);
}

TEST(EdgeFiltersTest, ThePictureControlKnowsEveryCode)
{
    for (const EdgeFilterRow& row : EdgeFilterRows) {
        for (const SpatialCode code : row.codes) {
            if (code == SpatialCode()) // of a direction that the filter does not read
                continue;
            Lead lead;
            lead.SetBitmap(QImage(4, 4, QImage::Format_BGR888));
            EXPECT_NO_THROW(lead.SpatialFilter(int(code))) << int(code);
        }
    }
}
