#include "media/player/WithinMemory.h"

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

using media::Failure;
using media::MediaError;
using player::WithinMemory;

namespace {

Failure FailureOf(const std::function<void()>& work)
{
    try {
        WithinMemory(work);
    } catch (const MediaError& error) {
        return error.failure;
    }
    throw std::logic_error("nothing failed");
}

} // namespace

TEST(WithinMemoryTest, HandsBackWhatTheWorkGives)
{
    EXPECT_EQ(WithinMemory([] { return 7; }), 7);
}

TEST(WithinMemoryTest, ALackOfMemoryIsToldLikePicturesThatAreTooLarge)
{
    EXPECT_EQ(FailureOf([] { throw std::bad_alloc(); }), Failure::TooLarge);
    EXPECT_EQ(FailureOf([] { throw std::bad_array_new_length(); }), Failure::TooLarge);
}

TEST(WithinMemoryTest, OtherFailuresComeThroughAsTheyAre)
{
    EXPECT_EQ(FailureOf([] { throw MediaError(Failure::Damaged, "a hole"); }), Failure::Damaged);
}
