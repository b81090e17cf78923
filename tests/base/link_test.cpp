#include "support/zktest.h"

#include "base/list.h"

namespace {

// A link's neighbours are read through an empty list, whose Next and Prev of a
// link are that link's own pointers.
class LinkTest : public ::testing::Test {
protected:
    fLIST reader;
    vOBJECT a, b, c;
};

TEST_F(LinkTest, ConstructionAndCopyDoNotTellTheNeighbours)
{
    fLINK left(a, nullptr, nullptr);
    fLINK right(c, nullptr, nullptr);
    fLINK middle(b, &left, &right);
    fLINK copy(middle);
    EXPECT_EQ(reader.Prev(&copy), &left);
    EXPECT_EQ(reader.Next(&copy), &right);
    EXPECT_EQ(copy.Object(), &b);
    EXPECT_EQ(reader.Next(&left), nullptr);
    EXPECT_EQ(reader.Prev(&right), nullptr);
}

TEST_F(LinkTest, DestroyingAMiddleLinkJoinsItsNeighbours)
{
    fLINK left(a, nullptr, nullptr);
    fLINK right(c, nullptr, nullptr);
    {
        fLINK middle(b, &left, &right);
    }
    EXPECT_EQ(reader.Next(&left), &right);
    EXPECT_EQ(reader.Prev(&right), &left);
}

TEST_F(LinkTest, CompareIsIdentityNotContent)
{
    vOBJECT twin = a;
    fLINK link(a, nullptr, nullptr);
    EXPECT_EQ(link.Compare(a), 1);
    EXPECT_EQ(link.Compare(twin), 0);
}

}  // namespace
