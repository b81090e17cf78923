#include <cstring>
#include <new>

#include "base/collection.h"
#include "base/iterator.h"
#include "base/list.h"
#include "base/point.h"
#include "support/zktest.h"

namespace {

class ListTest : public zktest::LeakFreeTest {
protected:
    using Objects = std::vector<vOBJECT*>;
    // The objects from head to tail, checked against the walk from tail to head.
    static Objects Walk(const fLIST& list) {
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

// Links come from the shared allocator and die with the list; the same object
// twice makes two links, and search and removal go by identity.
TEST_F(ListTest, AppendPrependAndRemoveKeepTheChainAndEnds) {
    unsigned long blocks = vMemLiveBlocks();
    {
        fLIST list;
        EXPECT_TRUE(list.IsEmpty() && !list.Next(nullptr) && !list.Prev(nullptr) && !list.First() && !list.Remove(a));
        list.Append(b);
        EXPECT_EQ(Walk(list), Objects{&b});
        list.Prepend(a);
        list.Append(c);
        list.Append(a);
        EXPECT_TRUE(vMemLiveBlocks() == blocks + 4 && list.NoItems() == 4);
        EXPECT_EQ(Walk(list), (Objects{&a, &b, &c, &a}));
        vOBJECT twin = a;
        EXPECT_TRUE(list.Search(a) && !list.Search(twin) && !list.Remove(twin));
        EXPECT_TRUE(list.Remove(a) == 1 && list.Remove(a) == 1 && vMemLiveBlocks() == blocks + 2 && list.Remove(c));
        EXPECT_TRUE(Walk(list) == Objects{&b} && list.First() == &b && list.Last() == &b);
        list.Append(c);
    }
    EXPECT_EQ(vMemLiveBlocks(), blocks);
}

// Queues enter at the head and leave at the tail; stacks are last in, first out.
TEST_F(ListTest, QueuesAndStacks) {
    fQUEUE queue;
    for (vOBJECT* object : {&a, &b, &c})
        queue.Push(*object);
    EXPECT_TRUE(queue.Top() == &c && queue.Bottom() == &a && queue.Remove(b) == 1);
    EXPECT_EQ(queue.Next(queue.Next(nullptr))->Object(), &a);
    for (vOBJECT* expected : {&a, &c, static_cast<vOBJECT*>(nullptr)})
        EXPECT_EQ(queue.Pull(), expected);
    EXPECT_TRUE(queue.IsEmpty());
    fSTACK stack;
    stack.Push(a), stack.Push(b);
    EXPECT_EQ(stack.Top(), &b);
    for (vOBJECT* expected : {&b, &a, static_cast<vOBJECT*>(nullptr)})
        EXPECT_EQ(stack.Pop(), expected);
    EXPECT_TRUE(stack.IsEmpty());
}

// Copies and assigned lists share the chain, so none of them is destroyed: only one may free it.
TEST_F(ListTest, CopiesAndAssignmentShareTheChain) {
    fLIST list;
    fSTACK stack;
    list.Append(a), stack.Push(a), stack.Push(b);
    alignas(fSTACK) unsigned char places[4][sizeof(fSTACK)];
    fLIST* view = new (places[0]) fLIST(list);
    fLIST* assigned = new (places[1]) fLIST;
    *assigned = list;
    EXPECT_TRUE(view->Next(nullptr) == list.Next(nullptr) && assigned->Prev(nullptr) == list.Prev(nullptr));
    fSTACK* target = new (places[2]) fSTACK;
    fSTACK* answer = new (places[3]) fSTACK(*target = stack);
    EXPECT_TRUE(target->Next(nullptr) == stack.Next(nullptr) && answer->Next(nullptr) == stack.Next(nullptr));
}

// A link's death joins its neighbours; it holds its object by identity. An iterator follows the chain
// and counts on when it runs out; equality compares the counts alone.
TEST_F(ListTest, LinksJoinTheirNeighboursWhenTheyDieAndIteratorsCount) {
    fLIST reader;  // empty: its Next and Prev of a link are that link's own pointers
    fLINK left(a, nullptr, nullptr), right(c, nullptr, nullptr);
    {
        fLINK middle(b, &left, &right);
        vOBJECT twin = b;
        EXPECT_TRUE(middle.Compare(b) == 1 && middle.Compare(twin) == 0);
    }
    EXPECT_TRUE(reader.Next(&left) == &right && reader.Prev(&right) == &left);
    fLIST list;
    list.Append(a), list.Append(b);
    ITERATOR iterator, bare;
    iterator.SetLink(list.Next(nullptr));
    EXPECT_TRUE(iterator == bare);
    iterator.Next();
    EXPECT_TRUE(iterator.GetLink() == list.Prev(nullptr) && !(iterator == bare));
    iterator.Previous();
    EXPECT_EQ(iterator.GetLink(), list.Next(nullptr));
    for (int step = 0; step < 3; ++step)
        iterator.Next();
    EXPECT_TRUE(iterator.GetLink() == nullptr && iterator() == 3);
    iterator.Reset(), iterator.Previous();
    EXPECT_EQ(iterator(), 65535);
}

// Six words with the type in the fourth, which fills the low half of its word on the 64-bit build.
// A collection of points shares the caller's array.
TEST_F(ListTest, CollectionsAreSixWordsAndSharePoints) {
    ASSERT_EQ(sizeof(vCOLLECTION), 6 * sizeof(void*));
    vCOLLECTION real(ARRAY_REAL);
    uintptr_t words[6];
    std::memcpy(words, &real, sizeof(words));
    EXPECT_EQ(static_cast<uint32_t>(words[3]), 2u);
    EXPECT_TRUE(vCOLLECTION().Type() == ARRAY_POINT && vCOLLECTION(ARRAY_INT).Points() == nullptr);
    vPOINT line[] = {vPOINT(0, 0), vPOINT(5, 5), vPOINT(10, 0)};
    vCOLLECTION target(ARRAY_CHAR);
    target = vCOLLECTION(line, 3);
    EXPECT_TRUE(target.Type() == ARRAY_POINT && target.Points() == line && target.Count() == 3u);
}

}  // namespace
