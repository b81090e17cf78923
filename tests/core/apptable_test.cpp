#include <algorithm>
#include <vector>

#include "base/iterator.h"
#include "base/system.h"
#include "core/apptable.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

vAPP* FakeApp(int n) { return reinterpret_cast<vAPP*>(0x1000 + 16 * n); }
HWND MakeWindow() {
    return CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

struct Walked { HINSTANCE instance; HWND frame, client; };

// The entries the system walks, and where the walk's iterator stood after it.
std::vector<Walked> WalkTable(unsigned short* stepsTaken = nullptr) {
    std::vector<Walked> found;
    ITERATOR iterator;
    for (Walked entry{}; vSYSTEMACCESS::GetTavikApp(iterator, entry.instance, entry.frame, entry.client);)
        found.push_back(entry);
    if (stepsTaken)
        *stepsTaken = iterator();
    return found;
}

const Walked* Find(const std::vector<Walked>& walked, HWND frame) {
    auto at = std::find_if(walked.begin(), walked.end(), [frame](const Walked& entry) { return entry.frame == frame; });
    return at == walked.end() ? nullptr : &*at;
}

class AppTableTest : public zktest::LeakFreeTest {};

// An application is walked only once it has its windows; the walk's iterator counts on past every entry it gave.
TEST_F(AppTableTest, AnApplicationIsWalkedFromRegistrationWithWindowsToUnregistration) {
    HWND frame = MakeWindow(), client = MakeWindow();
    size_t before = WalkTable().size();
    vSYSTEMACCESS::RegisterApp(FakeApp(1), nullptr, nullptr, nullptr);
    EXPECT_TRUE(vSYSTEM::ActiveApp() == FakeApp(1) && WalkTable().size() == before);
    vSYSTEMACCESS::RegisterApp(FakeApp(1), GetModuleHandleA(nullptr), frame, client);
    unsigned short steps = 0;
    std::vector<Walked> walked = WalkTable(&steps);
    ASSERT_TRUE(walked.size() == before + 1 && Find(walked, frame));
    EXPECT_TRUE(Find(walked, frame)->instance == GetModuleHandleA(nullptr) && Find(walked, frame)->client == client);
    EXPECT_GE(steps, walked.size());
    vSYSTEMACCESS::UnregisterApp(FakeApp(1));
    EXPECT_TRUE(vSYSTEM::ActiveApp() == nullptr && Find(WalkTable(), frame) == nullptr);
    DestroyWindow(frame), DestroyWindow(client);
}

// The child swaps the roles of its two windows as fast as it can, then ends without unregistering.
int FlipAndVanish(const std::vector<std::string>&) {
    HWND windows[] = {MakeWindow(), MakeWindow()};
    vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, windows[0], windows[1]);
    zktest::Report(std::to_string(reinterpret_cast<uintptr_t>(windows[0])) + " " +
                   std::to_string(reinterpret_cast<uintptr_t>(windows[1])));
    for (int flip = 0; flip < 4000; ++flip)
        vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, windows[flip % 2 ? 0 : 1], windows[flip % 2 ? 1 : 0]);
    zktest::Report("done");
    return 0;
}
zktest::ChildEntry flipAndVanish("flip-and-vanish", FlipAndVanish);

// Another program is seen while it runs, never with the frame of one registration and the client of the
// other, and not at all once it has ended: its slot is free again, and the table holds its capacity.
TEST_F(AppTableTest, OtherProgramsAreWalkedWholeAndForgottenWhenTheyEnd) {
    zktest::Child child("flip-and-vanish");
    std::string handles = child.ReadLine() + " 0";
    HWND first = reinterpret_cast<HWND>(std::stoull(handles));
    HWND second = reinterpret_cast<HWND>(std::stoull(handles.substr(handles.find(' ') + 1)));
    int sightings = 0, torn = 0;
    while (child.ReadLine(0).empty() && child.Wait(0) == STILL_ACTIVE)
        for (const Walked& entry : WalkTable())
            if (entry.frame == first || entry.frame == second) {
                ++sightings;
                torn += entry.client != (entry.frame == first ? second : first);
            }
    EXPECT_TRUE(sightings > 0 && torn == 0) << sightings << " sightings, " << torn << " torn";
    EXPECT_EQ(child.Wait(), 0u);
    EXPECT_TRUE(!Find(WalkTable(), first) && !Find(WalkTable(), second));
    AppTable* table = AppTable::Shared();
    ASSERT_NE(table, nullptr);
    unsigned registered = 0;
    while (registered <= AppTable::Capacity && table->Register(FakeApp(100 + registered), nullptr, nullptr, nullptr))
        ++registered;
    EXPECT_EQ(registered, AppTable::Capacity) << "the ended program's slot serves again";
    for (unsigned n = 0; n < registered; ++n)
        table->Unregister(FakeApp(100 + n));
}

}  // namespace
