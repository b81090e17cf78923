#include "support/zktest.h"

#include "base/iterator.h"
#include "base/list.h"

namespace {

class IteratorTest : public zktest::LeakFreeTest {
protected:
    vOBJECT a, b;
};

TEST_F(IteratorTest, FollowsTheChainAndCountsOnWhenItRunsOut)
{
    fLIST list;
    list.Append(a);
    list.Append(b);
    ITERATOR iterator;
    iterator.SetLink(list.Next(nullptr));
    iterator.Next();
    EXPECT_EQ(iterator.GetLink(), list.Prev(nullptr));
    iterator.Previous();
    EXPECT_EQ(iterator.GetLink(), list.Next(nullptr));
    iterator.Next();
    iterator.Next();
    iterator.Next();
    EXPECT_EQ(iterator.GetLink(), nullptr);
    EXPECT_EQ(iterator(), 3);
    iterator.Reset();
    iterator.Previous();
    EXPECT_EQ(iterator(), 65535);
}

TEST_F(IteratorTest, EqualityComparesCountsAloneAndResetClearsBoth)
{
    fLIST list;
    list.Append(a);
    ITERATOR onLink;
    onLink.SetLink(list.Next(nullptr));
    ITERATOR bare;
    EXPECT_TRUE(onLink == bare);
    bare.Next();
    EXPECT_FALSE(onLink == bare);
    bare = onLink;
    EXPECT_EQ(bare.GetLink(), list.Next(nullptr));
    bare.Reset();
    EXPECT_EQ(bare.GetLink(), nullptr);
}

}  // namespace
