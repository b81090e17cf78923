#include "support/zktest.h"
#include "support/streamform.h"

#include "base/ctrlid.h"

namespace {

TEST(CtrlIdTest, StreamFormIsOneWord)
{
    EXPECT_EQ(zktest::StreamForm(vCTRLID(0xFFFE)), (zktest::StreamBytes{0xFE, 0xFF}));
    vCTRLID read(7);
    EXPECT_EQ(zktest::ReadStreamForm({0x09, 0x00}, read), vSTREAM_GOOD);
    EXPECT_EQ(static_cast<unsigned short>(read), 9);
    EXPECT_EQ(zktest::ReadStreamForm({0x09}, read), vSTREAM_END);
    EXPECT_EQ(static_cast<unsigned short>(read), 0);
}

}  // namespace
