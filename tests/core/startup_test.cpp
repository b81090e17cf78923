#include <string>

#include "base/startup.h"
#include "support/zktest.h"

namespace {

int ReportPrevious(const std::vector<std::string>&)
{
    HINSTANCE instance = GetModuleHandleA(nullptr);
    HINSTANCE previous = vFindPreviousInstance(instance);
    zktest::Report(previous == nullptr ? "first" : previous == instance ? "second" : "stranger");
    zktest::Report(vFindPreviousInstance(instance) == previous ? "stable" : "changed");
    zktest::Listen();
    return 0;
}
zktest::ChildEntry reportPrevious("report-previous", ReportPrevious);

// This test program stands in for an application started twice; while the
// first instance runs, the second finds it, and once it has gone the next
// start is a first instance again.
TEST(StartupTest, ASecondInstanceFindsTheFirst)
{
    {
        zktest::Child first("report-previous");
        ASSERT_EQ(first.ReadLine(), "first");
        EXPECT_EQ(first.ReadLine(), "stable");
        zktest::Child second("report-previous");
        EXPECT_EQ(second.ReadLine(), "second");
        EXPECT_EQ(second.ReadLine(), "stable");
        second.WriteLine("quit");
        first.WriteLine("quit");
        EXPECT_EQ(second.Wait(), 0u);
        EXPECT_EQ(first.Wait(), 0u);
    }
    zktest::Child later("report-previous");
    EXPECT_EQ(later.ReadLine(), "first");
    later.WriteLine("quit");
    EXPECT_EQ(later.Wait(), 0u);
}

}  // namespace
