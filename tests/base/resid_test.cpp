#include "support/zktest.h"
#include "support/streamform.h"

#include "base/ctrlid.h"
#include "base/resid.h"
#include "base/system.h"

namespace {

// A module that answers a handle of the test's choosing.
class FakeModule : public vMODULE {
public:
    explicit FakeModule(HINSTANCE instance) : instance(instance) {}
    HINSTANCE GetInstance() const override { return instance; }

private:
    HINSTANCE instance;
};

TEST(ResidTest, TakesTheHandleOutOfTheModuleButComparesTheNumberAlone)
{
    FakeModule one(reinterpret_cast<HINSTANCE>(0x4000));
    FakeModule other(reinterpret_cast<HINSTANCE>(0x8000));
    vRESID id(31019, &one);
    EXPECT_EQ(id(), 31019);
    EXPECT_EQ(id.Instance(), reinterpret_cast<HINSTANCE>(0x4000));
    EXPECT_TRUE(id == vRESID(31019, &other));
    EXPECT_FALSE(id == vRESID(31020, &one));
}

TEST(ResidTest, DefaultIsZeroInTheBaseLibrary)
{
    vRESID id;
    EXPECT_EQ(id(), 0);
    EXPECT_EQ(id.Instance(), vSYSTEM::Pointer()->GetInstance());
    EXPECT_NE(id.Instance(), GetModuleHandleA(nullptr));
}

TEST(CtrlIdTest, HoldsSixteenBits)
{
    EXPECT_EQ(static_cast<unsigned short>(vCTRLID()), 0);
    EXPECT_TRUE(vCTRLID(65535) == vCTRLID(65535));
    EXPECT_FALSE(vCTRLID(65535) == vCTRLID(1));
}

// The module handle as a token of the platform's pointer width, least
// significant byte first, then the number.
TEST(ResIdTest, StreamFormIsTheHandleThenTheNumber)
{
    vRESID id(0x1234, vSYSTEM::Pointer());
    zktest::StreamBytes bytes = zktest::StreamForm(id);
    const size_t width = sizeof(HINSTANCE);
    ASSERT_EQ(bytes.size(), width + 2);
    uintptr_t handle = 0;
    for (size_t at = 0; at < width; ++at)
        handle |= static_cast<uintptr_t>(bytes[at]) << (8 * at);
    EXPECT_EQ(handle, reinterpret_cast<uintptr_t>(id.Instance()));
    EXPECT_EQ(bytes[width], 0x34);
    EXPECT_EQ(bytes[width + 1], 0x12);
    vRESID read;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, read), vSTREAM_GOOD);
    EXPECT_EQ(read(), 0x1234);
    EXPECT_EQ(read.Instance(), id.Instance());
}

}  // namespace
