#include "support/zktest.h"

namespace zktest {

void LeakFreeTest::SetUp()
{
    blocksBefore = vMemLiveBlocks();
}

void LeakFreeTest::TearDown()
{
    EXPECT_EQ(vMemLiveBlocks(), blocksBefore) << "live vMemAlloc blocks left behind";
}

}  // namespace zktest
