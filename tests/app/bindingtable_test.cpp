#include "app/bindingtable.h"
#include "app/recorder.h"

using namespace wintest;

namespace {

// What the "this" property of a window says, read as the binding is written: the object pointer in a local block.
vWIN* PropertyInstance(HWND window) {
    HANDLE block = IsWindow(window) ? GetPropA(window, "this") : nullptr;
    vWIN** slot = block ? static_cast<vWIN**>(LocalLock(block)) : nullptr;
    vWIN* win = slot ? *slot : nullptr;
    if (block) LocalUnlock(block);
    return win;
}

// A handle whose hash is the slot given; the multiplier's inverse undoes
// the hash, and the low bits tell apart handles of one slot.
HWND HashedTo(unsigned slot, unsigned n = 0) { return HWND(UINT_PTR(((slot << 19) + n) * 0x0E8B2F51u)); }

vWIN* Object(unsigned n) { return reinterpret_cast<vWIN*>(UINT_PTR(0x1000 + n)); }

// Windows come and go in numbers, so removals move the table's members about; every live, dead, foreign or made-up
// handle, and every child identifier, still gets the answer the property and the platform give, and every end frees the
// binding's block.
TEST_F(WindowTest, TheTableAlwaysAgreesWithThePropertyAndThePlatform) {
    std::vector<RECORDER*> live;
    std::vector<HWND> made, handles = {Top()(), nullptr, HashedTo(3)};
    std::vector<HANDLE> blocks;
    for (int n = 0; n < 90; ++n) {
        live.push_back(new RECORDER(n < 60 ? Top() : *live[1], vRECT(0, 0, 5, 5), "w", WF_NONE, 10 + n % 4));
        made.push_back((*live.back())());
        handles.push_back(made.back());
        blocks.push_back(GetPropA(made.back(), "this"));
    }
    HWND foreign = CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 5, 5, Top()(), HMENU(13), nullptr, nullptr);
    SetWindowPos(foreign, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    handles.push_back(foreign);
    for (int n = 0; n < 90; n += 3)
        DestroyWindow(made[n]);
    SetWindowLongPtrA((*live[4])(), GWLP_ID, 15), SetParent((*live[5])(), (*live[2])());
    for (int round = 0; round < 2; ++round) {
        for (HWND handle : handles)
            EXPECT_EQ(RECORDER::Instance(handle), PropertyInstance(handle)) << handle;
        for (int n : {1, 2, 4})
            for (int id = 10; id <= 16; ++id)
                EXPECT_EQ(live[n]->Child(vCTRLID(id)), PropertyInstance(GetDlgItem((*live[n])(), id))) << id;
        for (int id = 10; id <= 16; ++id)
            EXPECT_EQ(Top().Child(vCTRLID(id)), PropertyInstance(GetDlgItem(Top()(), id))) << id;
        for (int n = 60; n < 90; ++n)
            DestroyWindow(made[n]);
    }
    delete live[4];
    for (HWND window : made) DestroyWindow(window);
    for (HANDLE block : blocks)
        EXPECT_EQ(LocalFlags(block), LMEM_INVALID_HANDLE) << block;
    DestroyWindow(foreign);
}

// A member sitting in its home slot is never moved back into a gap before
// it; members crowding one slot close up behind whichever of them goes.
TEST(BindingTableMechanics, RemovalKeepsEveryOtherMemberReachable) {
    std::vector<HWND> run;
    for (unsigned slot = 5000; slot < 5008; ++slot)
        for (unsigned n = 0; n < (slot % 4 == 0 ? 2 : slot % 4 == 1 ? 0 : 1); ++n)
            run.push_back(HashedTo(slot, n));
    for (size_t gone = 0; gone < run.size(); ++gone) {
        for (size_t n = 0; n < run.size(); ++n)
            BindingTable::Add(run[n], BindingTable::Binding{Object(n), nullptr});
        BindingTable::Remove(run[gone]);
        for (size_t n = 0; n < run.size(); ++n) {
            BindingTable::Binding found{};
            ASSERT_EQ(BindingTable::Find(run[n], found), n == gone ? BindingTable::ABSENT : BindingTable::FOUND)
                << gone << " " << n;
            EXPECT_EQ(found.win, n == gone ? nullptr : Object(n));
        }
        for (HWND handle : run) BindingTable::Remove(handle);
    }
}

// Once the table has been full it no longer claims to know what it lacks, and
// a window bound after that is found through its property.
int OverflowInChild(const std::vector<std::string>&) {
    RegisterClasses();
    BindingTable::Binding found{};
    for (unsigned n = 0; BindingTable::Find(HashedTo(7000), found) == BindingTable::ABSENT && n < 20000; ++n)
        BindingTable::Add(HashedTo(n % 8192, n / 8192 + 1), BindingTable::Binding{Object(n), nullptr});
    zktest::Report(BindingTable::Find(HashedTo(7000), found) == BindingTable::UNKNOWN ? "unknown" : "absent");
    RECORDER late(SharedTop(), vRECT(0, 0, 5, 5), "late");
    zktest::Report(RECORDER::Instance(late()) == &late ? "found late" : "lost late");
    zktest::Report(BindingTable::Find(HashedTo(0, 1), found) == BindingTable::FOUND ? "kept early" : "lost early");
    DestroyWindow(late());
    return 0;
}
zktest::ChildEntry overflowInChild("binding-overflow", OverflowInChild);

TEST(BindingTableMechanics, AFullTableFallsBackToTheProperty) {
    zktest::Child child("binding-overflow");
    for (const char* line : {"unknown", "found late", "kept early"})
        EXPECT_EQ(child.ReadLine(), line);
    EXPECT_EQ(child.Wait(), 0u);
}

}  // namespace
