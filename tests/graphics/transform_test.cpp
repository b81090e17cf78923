#include "support/zktest.h"

#include "graphics/rotate.h"
#include "graphics/transform.h"

namespace {

const vPOINT Probes[] = {vPOINT(0, 0), vPOINT(1, 0), vPOINT(0, 1), vPOINT(-7, 13), vPOINT(250, -90)};

TEST(TransformTest, ThePlainTransformMapsEveryPointToTheOrigin)
{
    vTRANSFORM transform;
    for (const vPOINT& probe : Probes)
        EXPECT_TRUE(transform(probe) == vPOINT()) << probe.x() << "," << probe.y();
}

// A turn of 30 degrees about (3, 4) has all six coefficients non-zero, so a
// copy that dropped one would map some probe differently.
TEST(TransformTest, CopyAndAssignmentCarryAllSixCoefficients)
{
    vROTATE rotate(vPOINT(3, 4), vANGLE(30.0));
    vTRANSFORM copied(rotate);
    vTRANSFORM assigned;
    assigned = rotate;
    for (const vPOINT& probe : Probes) {
        EXPECT_TRUE(copied(probe) == rotate(probe)) << probe.x() << "," << probe.y();
        EXPECT_TRUE(assigned(probe) == rotate(probe)) << probe.x() << "," << probe.y();
    }
}

}  // namespace
