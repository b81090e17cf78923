#include <cstring>
#include <string>

#include "base/system.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

class SystemTest : public zktest::LeakFreeTest {};

TEST_F(SystemTest, TheSystemModuleIsTheBaseLibrary)
{
    ASSERT_NE(vSYSTEM::Pointer(), nullptr);
    EXPECT_EQ(vSYSTEM::Pointer()->GetInstance(), GetModuleHandleA("zkcore.dll"));
}

TEST_F(SystemTest, ScratchBuffersAreSeparateAndLargeEnough)
{
    char* buffer = vSYSTEM::GetBuffer();
    char* local = vSYSTEM::GetLocalBuffer();
    ASSERT_NE(buffer, local);
    EXPECT_GE(vSYSTEM::BufferSize, 512u);
    EXPECT_GE(vSYSTEM::LocalBufferSize, static_cast<unsigned long>(MAX_PATH));
    std::memset(buffer, 'b', vSYSTEM::BufferSize);
    std::memset(local, 'l', vSYSTEM::LocalBufferSize);
    EXPECT_EQ(buffer[vSYSTEM::BufferSize - 1], 'b');
    EXPECT_EQ(local[0], 'l');
    EXPECT_EQ(vSYSTEM::GetBuffer(), buffer);
}

// A version block of the library's own file fits the local buffer whole.
TEST_F(SystemTest, LocalBufferTakesAVersionBlockAndAPath)
{
    char path[MAX_PATH];
    GetModuleFileNameA(GetModuleHandleA("zkcore.dll"), path, MAX_PATH);
    DWORD handle = 0;
    DWORD size = GetFileVersionInfoSizeA(path, &handle);
    ASSERT_GT(size, 0u);
    EXPECT_LE(size + MAX_PATH, vSYSTEM::LocalBufferSize);
    EXPECT_TRUE(GetFileVersionInfoA(path, handle, size, vSYSTEM::GetLocalBuffer()));
}

TEST_F(SystemTest, RegisteredMessagesAreDistinctAndStable)
{
    UINT kill = vSYSTEM::GetZKKillMsg();
    UINT palette = vSYSTEM::GetPaletteChangeMsg();
    UINT tavik = vSYSTEMACCESS::GetTavikMessage();
    for (UINT message : {kill, palette, tavik})
        EXPECT_GE(message, 0xC000u);
    EXPECT_NE(kill, palette);
    EXPECT_NE(kill, tavik);
    EXPECT_NE(palette, tavik);
    EXPECT_EQ(vSYSTEM::GetZKKillMsg(), kill);
}

int PrintMessages(const std::vector<std::string>&)
{
    zktest::Report(std::to_string(vSYSTEM::GetZKKillMsg()) + " " + std::to_string(vSYSTEM::GetPaletteChangeMsg()) +
                   " " + std::to_string(vSYSTEMACCESS::GetTavikMessage()));
    return 0;
}
zktest::ChildEntry printMessages("print-messages", PrintMessages);

TEST_F(SystemTest, RegisteredMessagesAreTheSameInAnotherProcess)
{
    zktest::Child child("print-messages");
    std::string expected = std::to_string(vSYSTEM::GetZKKillMsg()) + " " +
                           std::to_string(vSYSTEM::GetPaletteChangeMsg()) + " " +
                           std::to_string(vSYSTEMACCESS::GetTavikMessage());
    EXPECT_EQ(child.ReadLine(), expected);
    EXPECT_EQ(child.Wait(), 0u);
}

TEST_F(SystemTest, FailedAllocationRaisesTheExceptionFlagAndGivesUp)
{
    vSYSTEM::SetExceptionFlag(0);
    EXPECT_EQ(vSYSTEMACCESS::NewFailureException(1 << 20), 0);
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 1);
    vSYSTEM::SetExceptionFlag(0);
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 0);
}

TEST_F(SystemTest, FrameWindowIsRecorded)
{
    HWND before = vSYSTEM::GetFrameWindow();
    HWND desktop = GetDesktopWindow();
    vSYSTEM::SetFrameWindow(desktop);
    EXPECT_EQ(vSYSTEM::GetFrameWindow(), desktop);
    vSYSTEM::SetFrameWindow(before);
}

TEST_F(SystemTest, ProcessWideObjectsAreSingletons)
{
    EXPECT_EQ(&vSYSTEM::GetKeyboard(), &vSYSTEM::GetKeyboard());
    EXPECT_EQ(&vSYSTEM::GetDefaultException(), &vSYSTEM::GetDefaultException());
}

}  // namespace
