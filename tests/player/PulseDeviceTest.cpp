#include "media/player/PulseDevice.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace player {

TEST(PulseDevice, WithoutResourcesThereIsNoDevice)
{
    rlimit before {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none { 0, before.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const std::unique_ptr<SoundDevice> device = MakePulseDevice();
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(device, nullptr);
}

} // namespace player
