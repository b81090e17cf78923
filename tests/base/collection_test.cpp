#include <cstring>

#include "support/zktest.h"

#include "base/collection.h"
#include "base/point.h"

namespace {

TEST(CollectionTest, IsSixWordsWithTheTypeInTheFourth)
{
    ASSERT_EQ(sizeof(vCOLLECTION), 6 * sizeof(void*));
    vCOLLECTION collection(ARRAY_REAL);
    uintptr_t words[6];
    std::memcpy(words, &collection, sizeof(words));
    // The type fills the low half of its word on the 64-bit build; the rest is padding.
    EXPECT_EQ(static_cast<uint32_t>(words[3]), 2u);
    EXPECT_EQ(vCOLLECTION().Type(), ARRAY_POINT);
    EXPECT_EQ(vCOLLECTION(ARRAY_INT).Points(), nullptr);
}

TEST(CollectionTest, AssignmentSharesTheCallersPoints)
{
    vPOINT line[] = {vPOINT(0, 0), vPOINT(5, 5), vPOINT(10, 0)};
    vCOLLECTION target(ARRAY_CHAR);
    target = vCOLLECTION(line, 3);
    EXPECT_EQ(target.Type(), ARRAY_POINT);
    EXPECT_EQ(target.Points(), line);
    EXPECT_EQ(target.Count(), 3u);
}

}  // namespace
