#include <vector>

#include "app/bindingtable.h"
#include "app/recorder.h"

using wintest::RECORDER;
using wintest::WindowTest;

namespace {

// What the "this" property of a window says, read as the binding is written:
// the object pointer in a local block.
vWIN* PropertyInstance(HWND window)
{
    if (!IsWindow(window))
        return nullptr;
    HANDLE block = GetPropA(window, "this");
    if (!block)
        return nullptr;
    vWIN** slot = static_cast<vWIN**>(LocalLock(block));
    vWIN* win = slot ? *slot : nullptr;
    LocalUnlock(block);
    return win;
}

void ExpectAgreement(const std::vector<HWND>& handles)
{
    for (HWND handle : handles)
        EXPECT_EQ(RECORDER::Instance(handle), PropertyInstance(handle)) << handle;
}

HWND FakeHandle(unsigned n)
{
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x7F000000u + 4 * n));
}

// Handles spaced by the inverse of the table's hash multiplier hash to
// neighbouring values and so share one home slot: they form one long run.
HWND CrowdedHandle(unsigned n)
{
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x40000000u + n * 0x0E8B2F51u));
}

class BindingTableTest : public WindowTest {};

// Every way a handle can stand to the library: bound and alive, made with new
// or held as a member, destroyed in either way, foreign, never a window.
TEST_F(BindingTableTest, InstanceAlwaysAgreesWithTheProperty)
{
    std::vector<HWND> handles;
    RECORDER member(Top(), vRECT(0, 0, 20, 20), "member");
    RECORDER* newed = new RECORDER(Top(), vRECT(0, 0, 20, 20), "newed");
    HWND foreign = CreateWindowExA(0, "STATIC", "foreign", WS_CHILD, 0, 0, 5, 5, Top()(), nullptr, nullptr, nullptr);
    handles = {member(), (*newed)(), foreign, Top()(), nullptr, FakeHandle(1)};
    ExpectAgreement(handles);
    EXPECT_EQ(RECORDER::Instance(member()), &member);

    DestroyWindow((*newed)());
    DestroyWindow(member());
    DestroyWindow(foreign);
    ExpectAgreement(handles);
    EXPECT_EQ(RECORDER::Instance(member()), nullptr);
}

// Windows come and go in numbers, so the table's removals move its members
// about; after each round every live and dead handle still agrees.
TEST_F(BindingTableTest, AgreementHoldsThroughChurn)
{
    std::vector<HWND> dead;
    for (int round = 0; round < 5; ++round) {
        std::vector<RECORDER*> live;
        for (int n = 0; n < 60; ++n)
            live.push_back(new RECORDER(Top(), vRECT(0, 0, 5, 5), "churn"));
        for (size_t n = 0; n < live.size(); n += 2) {
            dead.push_back((*live[n])());
            DestroyWindow((*live[n])());
        }
        std::vector<HWND> handles = dead;
        for (size_t n = 1; n < live.size(); n += 2) {
            handles.push_back((*live[n])());
            EXPECT_EQ(RECORDER::Instance((*live[n])()), live[n]);
        }
        ExpectAgreement(handles);
        for (size_t n = 1; n < live.size(); n += 2)
            DestroyWindow((*live[n])());
    }
}

// Handles that crowd into one run of slots are found, and removing some from
// the middle of the run leaves the rest reachable.
TEST(BindingTableMechanics, RemovalKeepsTheRestOfARunReachable)
{
    const unsigned count = 600;
    std::vector<vWIN*> objects(count);
    for (unsigned n = 0; n < count; ++n) {
        objects[n] = reinterpret_cast<vWIN*>(static_cast<UINT_PTR>(0x1000 + n));
        BindingTable::Add(CrowdedHandle(n), objects[n]);
    }
    for (unsigned n = 0; n < count; n += 3)
        BindingTable::Remove(CrowdedHandle(n));
    for (unsigned n = 0; n < count; ++n) {
        vWIN* found = nullptr;
        BindingTable::Answer answer = BindingTable::Find(CrowdedHandle(n), found);
        if (n % 3 == 0) {
            EXPECT_EQ(answer, BindingTable::ABSENT) << n;
        } else {
            ASSERT_EQ(answer, BindingTable::FOUND) << n;
            EXPECT_EQ(found, objects[n]) << n;
        }
    }
    for (unsigned n = 0; n < count; ++n)
        BindingTable::Remove(CrowdedHandle(n));
    vWIN* found = nullptr;
    EXPECT_EQ(BindingTable::Find(CrowdedHandle(7), found), BindingTable::ABSENT);
}

// Once the table has been full it no longer claims to know what it lacks, and
// a window bound after that is found through its property.
int OverflowInChild(const std::vector<std::string>&)
{
    wintest::RegisterClasses();
    unsigned n = 0;
    vWIN* found = nullptr;
    for (; BindingTable::Find(FakeHandle(90000), found) == BindingTable::ABSENT && n < 20000; ++n)
        BindingTable::Add(FakeHandle(n), reinterpret_cast<vWIN*>(static_cast<UINT_PTR>(0x1000 + n)));
    zktest::Report(BindingTable::Find(FakeHandle(90000), found) == BindingTable::UNKNOWN ? "unknown" : "absent");
    RECORDER late(wintest::SharedTop(), vRECT(0, 0, 5, 5), "late");
    zktest::Report(RECORDER::Instance(late()) == &late ? "found late" : "lost late");
    zktest::Report(BindingTable::Find(FakeHandle(1), found) == BindingTable::FOUND ? "kept early" : "lost early");
    DestroyWindow(late());
    return 0;
}
zktest::ChildEntry overflowInChild("binding-overflow", OverflowInChild);

TEST(BindingTableMechanics, AFullTableFallsBackToTheProperty)
{
    zktest::Child child("binding-overflow");
    EXPECT_EQ(child.ReadLine(), "unknown");
    EXPECT_EQ(child.ReadLine(), "found late");
    EXPECT_EQ(child.ReadLine(), "kept early");
    EXPECT_EQ(child.Wait(), 0u);
}

}  // namespace
