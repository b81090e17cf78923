#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/iterator.h"
#include "base/system.h"
#include "core/apptable.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

vAPP* FakeApp(int n)
{
    return reinterpret_cast<vAPP*>(0x1000 + 16 * n);
}

HWND MakeWindow()
{
    return CreateWindowExA(0, "STATIC", "app table test", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

std::string HandleText(HWND window)
{
    return std::to_string(reinterpret_cast<uintptr_t>(window));
}

HWND HandleFrom(const std::string& text)
{
    return reinterpret_cast<HWND>(static_cast<uintptr_t>(std::stoul(text.empty() ? "0" : text)));
}

struct Walked {
    HINSTANCE instance;
    HWND frame;
    HWND client;
};

std::vector<Walked> WalkTable()
{
    std::vector<Walked> found;
    ITERATOR iterator;
    Walked entry{};
    while (vSYSTEMACCESS::GetTavikApp(iterator, entry.instance, entry.frame, entry.client))
        found.push_back(entry);
    return found;
}

bool TableHasFrame(HWND frame)
{
    for (const Walked& entry : WalkTable())
        if (entry.frame == frame)
            return true;
    return false;
}

class AppTableTest : public zktest::LeakFreeTest {};

TEST_F(AppTableTest, AnApplicationIsWalkedOnlyOnceItHasItsWindows)
{
    HWND frame = MakeWindow();
    HWND client = MakeWindow();
    size_t before = WalkTable().size();

    vSYSTEMACCESS::RegisterApp(FakeApp(1), nullptr, nullptr, nullptr);
    EXPECT_EQ(vSYSTEM::ActiveApp(), FakeApp(1));
    EXPECT_EQ(WalkTable().size(), before);

    HINSTANCE instance = GetModuleHandleA(nullptr);
    vSYSTEMACCESS::RegisterApp(FakeApp(1), instance, frame, client);
    std::vector<Walked> walked = WalkTable();
    ASSERT_EQ(walked.size(), before + 1);
    EXPECT_TRUE(TableHasFrame(frame));
    for (const Walked& entry : walked)
        if (entry.frame == frame) {
            EXPECT_EQ(entry.instance, instance);
            EXPECT_EQ(entry.client, client);
        }

    vSYSTEMACCESS::UnregisterApp(FakeApp(1));
    EXPECT_EQ(vSYSTEM::ActiveApp(), nullptr);
    EXPECT_FALSE(TableHasFrame(frame));
    DestroyWindow(frame);
    DestroyWindow(client);
}

TEST_F(AppTableTest, WalkCountsOnPastTheEnd)
{
    HWND frame = MakeWindow();
    vSYSTEMACCESS::RegisterApp(FakeApp(2), nullptr, frame, frame);
    ITERATOR iterator;
    HINSTANCE instance;
    HWND walkedFrame, client;
    int steps = 0;
    while (vSYSTEMACCESS::GetTavikApp(iterator, instance, walkedFrame, client))
        ++steps;
    EXPECT_GE(steps, 1);
    EXPECT_GE(iterator(), steps);
    EXPECT_EQ(vSYSTEMACCESS::GetTavikApp(iterator, instance, walkedFrame, client), 0);
    vSYSTEMACCESS::UnregisterApp(FakeApp(2));
    DestroyWindow(frame);
}

int RegisterInChild(const std::vector<std::string>&)
{
    HWND frame = MakeWindow();
    HWND client = MakeWindow();
    vSYSTEMACCESS::RegisterApp(FakeApp(7), nullptr, nullptr, nullptr);
    zktest::Report("half");
    zktest::Listen();
    vSYSTEMACCESS::RegisterApp(FakeApp(7), GetModuleHandleA(nullptr), frame, client);
    zktest::Report(HandleText(frame) + " " + HandleText(client));
    zktest::Listen();
    vSYSTEMACCESS::UnregisterApp(FakeApp(7));
    zktest::Report("gone");
    zktest::Listen();
    return 0;
}
zktest::ChildEntry registerInChild("register-app", RegisterInChild);

TEST_F(AppTableTest, AnotherProgramIsSeenWhileRegistered)
{
    size_t before = WalkTable().size();
    zktest::Child child("register-app");
    ASSERT_EQ(child.ReadLine(), "half");
    EXPECT_EQ(WalkTable().size(), before);

    child.WriteLine("windows");
    std::string handles = child.ReadLine();
    size_t blank = handles.find(' ');
    ASSERT_NE(blank, std::string::npos);
    HWND frame = HandleFrom(handles.substr(0, blank));
    HWND client = HandleFrom(handles.substr(blank + 1));
    bool seen = false;
    for (const Walked& entry : WalkTable())
        if (entry.frame == frame) {
            seen = true;
            EXPECT_EQ(entry.client, client);
        }
    EXPECT_TRUE(seen);

    child.WriteLine("unregister");
    ASSERT_EQ(child.ReadLine(), "gone");
    EXPECT_FALSE(TableHasFrame(frame));
    child.WriteLine("quit");
    EXPECT_EQ(child.Wait(), 0u);
}

// The child swaps the roles of its two windows as fast as it can; a reader
// must never see the frame of one registration with the client of the other.
int FlipInChild(const std::vector<std::string>&)
{
    HWND first = MakeWindow();
    HWND second = MakeWindow();
    vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, first, second);
    zktest::Report(HandleText(first) + " " + HandleText(second));
    for (int flip = 0; flip < 4000; ++flip)
        if (flip % 2)
            vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, first, second);
        else
            vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, second, first);
    vSYSTEMACCESS::UnregisterApp(FakeApp(8));
    zktest::Report("done");
    return 0;
}
zktest::ChildEntry flipInChild("flip-app", FlipInChild);

TEST_F(AppTableTest, WalkingIsSafeWhileAnotherProgramRegisters)
{
    zktest::Child child("flip-app");
    std::string handles = child.ReadLine();
    size_t blank = handles.find(' ');
    ASSERT_NE(blank, std::string::npos);
    HWND first = HandleFrom(handles.substr(0, blank));
    HWND second = HandleFrom(handles.substr(blank + 1));
    int sightings = 0;
    int torn = 0;
    while (child.ReadLine(0).empty() && child.Wait(0) == STILL_ACTIVE) {
        for (const Walked& entry : WalkTable()) {
            if (entry.frame != first && entry.frame != second)
                continue;
            ++sightings;
            if (entry.client != (entry.frame == first ? second : first))
                ++torn;
        }
    }
    EXPECT_GT(sightings, 0);
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(child.Wait(), 0u);
}

int RegisterAndVanish(const std::vector<std::string>&)
{
    HWND frame = MakeWindow();
    vSYSTEMACCESS::RegisterApp(FakeApp(9), nullptr, frame, frame);
    zktest::Report(HandleText(frame));
    return 0;
}
zktest::ChildEntry registerAndVanish("register-and-vanish", RegisterAndVanish);

TEST_F(AppTableTest, EntriesOfEndedProgramsAreNeitherWalkedNorKept)
{
    std::string frameText;
    {
        zktest::Child child("register-and-vanish");
        frameText = child.ReadLine();
        EXPECT_EQ(child.Wait(), 0u);
    }
    EXPECT_FALSE(TableHasFrame(HandleFrom(frameText)));

    AppTable* table = AppTable::Shared();
    ASSERT_NE(table, nullptr);
    unsigned registered = 0;
    while (registered <= AppTable::Capacity && table->Register(FakeApp(100 + registered), nullptr, nullptr, nullptr))
        ++registered;
    EXPECT_EQ(registered, AppTable::Capacity);
    for (unsigned n = 0; n < registered; ++n)
        table->Unregister(FakeApp(100 + n));
    EXPECT_TRUE(table->Register(FakeApp(500), nullptr, nullptr, nullptr));
    table->Unregister(FakeApp(500));
}

}  // namespace
