#include <new>

#include "support/zktest.h"

#include "base/list.h"

namespace {

class ListTest : public zktest::LeakFreeTest {
protected:
    typedef std::vector<vOBJECT*> Objects;

    // The objects from head to tail, checked against the walk from tail to head.
    static Objects Walk(const fLIST& list)
    {
        Objects forward, backward;
        for (fLINK* link = list.Next(nullptr); link; link = list.Next(link))
            forward.push_back(link->Object());
        for (fLINK* link = list.Prev(nullptr); link; link = list.Prev(link))
            backward.insert(backward.begin(), link->Object());
        EXPECT_EQ(forward, backward);
        return forward;
    }

    vOBJECT a, b, c;
};

TEST_F(ListTest, EmptyListHasNoEndsAndOneItemIsBoth)
{
    fLIST list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.Next(nullptr), nullptr);
    EXPECT_EQ(list.Prev(nullptr), nullptr);
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.Remove(a), 0);
    ASSERT_NE(list.Append(a), 0);
    EXPECT_EQ(list.Next(nullptr), list.Prev(nullptr));
    EXPECT_EQ(list.Next(list.Next(nullptr)), nullptr);
}

TEST_F(ListTest, AppendPrependAndRemoveKeepTheChainAndEnds)
{
    fLIST list;
    list.Append(b);
    list.Prepend(a);
    list.Append(c);
    EXPECT_EQ(Walk(list), (Objects{&a, &b, &c}));
    EXPECT_EQ(list.NoItems(), 3);
    EXPECT_EQ(list.Remove(a), 1);
    EXPECT_EQ(list.Remove(c), 1);
    EXPECT_EQ(Walk(list), Objects{&b});
    EXPECT_EQ(list.First(), &b);
    EXPECT_EQ(list.Last(), &b);
    EXPECT_EQ(list.Remove(b), 1);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.Prev(nullptr), nullptr);
}

TEST_F(ListTest, SameObjectTwiceMakesTwoLinksAndSearchIsByIdentity)
{
    fLIST list;
    list.Append(a);
    list.Append(a);
    EXPECT_EQ(list.Remove(a), 1);
    EXPECT_EQ(list.Search(a), 1);
    vOBJECT twin = a;
    EXPECT_EQ(list.Search(twin), 0);
    EXPECT_EQ(list.Remove(twin), 0);
    EXPECT_EQ(list.NoItems(), 1);
}

TEST_F(ListTest, LinksComeFromTheSharedAllocatorAndDieWithTheList)
{
    unsigned long before = vMemLiveBlocks();
    {
        fLIST list;
        list.Append(a);
        list.Prepend(b);
        list.Append(c);
        EXPECT_EQ(vMemLiveBlocks(), before + 3);
        list.Remove(b);
        EXPECT_EQ(vMemLiveBlocks(), before + 2);
    }
    EXPECT_EQ(vMemLiveBlocks(), before);
}

// The copies are never destroyed: only one of the lists sharing a chain may free it.
TEST_F(ListTest, CopyAndAssignmentShareTheChain)
{
    fLIST list;
    list.Append(a);
    list.Append(b);
    alignas(fLIST) unsigned char places[2][sizeof(fLIST)];
    fLIST* view = new (places[0]) fLIST(list);
    fLIST* assigned = new (places[1]) fLIST;
    *assigned = list;
    EXPECT_EQ(view->Next(nullptr), list.Next(nullptr));
    EXPECT_EQ(assigned->Prev(nullptr), list.Prev(nullptr));
    EXPECT_EQ(assigned->NoItems(), 2);
}

TEST_F(ListTest, QueueEntersAtTheHeadAndLeavesAtTheTail)
{
    fQUEUE queue;
    queue.Push(a);
    queue.Push(b);
    queue.Push(c);
    EXPECT_EQ(queue.Top(), &c);
    EXPECT_EQ(queue.Bottom(), &a);
    EXPECT_EQ(queue.Remove(b), 1);
    EXPECT_EQ(queue.Next(queue.Next(nullptr))->Object(), &a);
    EXPECT_EQ(queue.Pull(), &a);
    EXPECT_EQ(queue.Pull(), &c);
    EXPECT_EQ(queue.Pull(), nullptr);
    EXPECT_TRUE(queue.IsEmpty());
}

TEST_F(ListTest, StackIsLastInFirstOut)
{
    fSTACK stack;
    stack.Push(a);
    stack.Push(b);
    EXPECT_EQ(stack.Top(), &b);
    EXPECT_EQ(stack.Pop(), &b);
    EXPECT_EQ(stack.NoItems(), 1);
    EXPECT_EQ(stack.Pop(), &a);
    EXPECT_EQ(stack.Pop(), nullptr);
    EXPECT_TRUE(stack.IsEmpty());
}

// Neither the target nor the answer is destroyed, so the source frees the chain once.
TEST_F(ListTest, StackAssignmentAnswersASharingCopy)
{
    fSTACK source;
    source.Push(a);
    source.Push(b);
    alignas(fSTACK) unsigned char places[2][sizeof(fSTACK)];
    fSTACK* target = new (places[0]) fSTACK;
    fSTACK* answer = new (places[1]) fSTACK(*target = source);
    EXPECT_EQ(target->Next(nullptr), source.Next(nullptr));
    EXPECT_EQ(answer->Next(nullptr), source.Next(nullptr));
    EXPECT_EQ(answer->NoItems(), 2);
}

}  // namespace
