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

// What the library must answer for a child: the object bound to the first
// child that the platform finds under the identifier, by its property.
vWIN* PropertyChild(HWND parent, int id)
{
    return PropertyInstance(GetDlgItem(parent, id));
}

void SetPlatformId(HWND window, int id)
{
    SetWindowLongPtrA(window, GWLP_ID, id);
}

HWND RawChild(HWND parent, int id)
{
    return CreateWindowExA(0, "STATIC", "raw", WS_CHILD, 0, 0, 5, 5, parent, reinterpret_cast<HMENU>(id), nullptr,
                           nullptr);
}

// Asks every identifier in use, and one that is not, of both parents.
void ExpectChildAgreement(RECORDER& parent, RECORDER& other, const char* stage)
{
    for (RECORDER* asked : {&parent, &other})
        for (int id = 10; id <= 15; ++id)
            EXPECT_EQ(asked->Child(vCTRLID(static_cast<unsigned short>(id))), PropertyChild((*asked)(), id))
                << stage << ", parent " << asked->name << ", id " << id;
}

// The child look-up skips the platform's search only when no bound window can
// be the answer; identifiers and parents changed behind the library's back,
// an unbound child ahead of a bound one and a crowd of bound windows must all
// give what the search gives.
TEST_F(BindingTableTest, ChildLookUpAgreesWithThePlatformSearch)
{
    RECORDER parent(Top(), vRECT(0, 0, 50, 50), "parent");
    RECORDER other(Top(), vRECT(0, 0, 50, 50), "other");
    RECORDER first(parent, vRECT(0, 0, 5, 5), "first");
    RECORDER second(parent, vRECT(0, 0, 5, 5), "second");
    HWND raw = RawChild(parent(), 11);
    SetPlatformId(first(), 10);
    SetPlatformId(second(), 12);
    ExpectChildAgreement(parent, other, "made");
    EXPECT_EQ(parent.Child(vCTRLID(10)), &first);
    EXPECT_EQ(parent.Child(vCTRLID(11)), nullptr);

    SetPlatformId(first(), 13);
    ExpectChildAgreement(parent, other, "identifier changed");
    EXPECT_EQ(parent.Child(vCTRLID(13)), &first);

    SetParent(second(), other());
    ExpectChildAgreement(parent, other, "parent changed");
    EXPECT_EQ(other.Child(vCTRLID(12)), &second);

    HWND ahead = RawChild(parent(), 13);
    SetWindowPos(ahead, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ExpectChildAgreement(parent, other, "unbound child ahead");

    std::vector<RECORDER*> crowd;
    for (int n = 0; n < 80; ++n)
        crowd.push_back(new RECORDER(other, vRECT(0, 0, 5, 5), "crowd"));
    SetPlatformId((*crowd.back())(), 14);
    ExpectChildAgreement(parent, other, "crowded");
    EXPECT_EQ(other.Child(vCTRLID(14)), crowd.back());
    for (RECORDER* window : crowd)
        DestroyWindow((*window)());

    DestroyWindow(first());
    ExpectChildAgreement(parent, other, "destroyed");
    DestroyWindow(ahead);
    DestroyWindow(raw);
    DestroyWindow(second());
}

// The block that holds the binding goes back to the local heap however the
// window ends.
TEST_F(BindingTableTest, EveryEndFreesTheBindingBlock)
{
    RECORDER member(Top(), vRECT(0, 0, 5, 5), "member");
    RECORDER* destroyed = new RECORDER(Top(), vRECT(0, 0, 5, 5), "destroyed");
    RECORDER* deleted = new RECORDER(Top(), vRECT(0, 0, 5, 5), "deleted");
    std::vector<HANDLE> blocks;
    for (HWND window : {member(), (*destroyed)(), (*deleted)()})
        blocks.push_back(GetPropA(window, "this"));
    for (HANDLE block : blocks)
        EXPECT_NE(LocalFlags(block), LMEM_INVALID_HANDLE);

    DestroyWindow(member());
    DestroyWindow((*destroyed)());
    delete deleted;
    for (HANDLE block : blocks)
        EXPECT_EQ(LocalFlags(block), LMEM_INVALID_HANDLE) << block;
}

// Handles that crowd into one run of slots are found, and removing some from
// the middle of the run leaves the rest reachable.
TEST(BindingTableMechanics, RemovalKeepsTheRestOfARunReachable)
{
    const unsigned count = 600;
    std::vector<vWIN*> objects(count);
    for (unsigned n = 0; n < count; ++n) {
        objects[n] = reinterpret_cast<vWIN*>(static_cast<UINT_PTR>(0x1000 + n));
        BindingTable::Add(CrowdedHandle(n), BindingTable::Binding{objects[n], nullptr});
    }
    for (unsigned n = 0; n < count; n += 3)
        BindingTable::Remove(CrowdedHandle(n));
    for (unsigned n = 0; n < count; ++n) {
        BindingTable::Binding found{};
        BindingTable::Answer answer = BindingTable::Find(CrowdedHandle(n), found);
        if (n % 3 == 0) {
            EXPECT_EQ(answer, BindingTable::ABSENT) << n;
        } else {
            ASSERT_EQ(answer, BindingTable::FOUND) << n;
            EXPECT_EQ(found.win, objects[n]) << n;
        }
    }
    for (unsigned n = 0; n < count; ++n)
        BindingTable::Remove(CrowdedHandle(n));
    BindingTable::Binding found{};
    EXPECT_EQ(BindingTable::Find(CrowdedHandle(7), found), BindingTable::ABSENT);
}

// Once the table has been full it no longer claims to know what it lacks, and
// a window bound after that is found through its property.
int OverflowInChild(const std::vector<std::string>&)
{
    wintest::RegisterClasses();
    unsigned n = 0;
    BindingTable::Binding found{};
    for (; BindingTable::Find(FakeHandle(90000), found) == BindingTable::ABSENT && n < 20000; ++n)
        BindingTable::Add(FakeHandle(n),
                          BindingTable::Binding{reinterpret_cast<vWIN*>(static_cast<UINT_PTR>(0x1000 + n)), nullptr});
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
