#include <string>

#include "base/system.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

int PrintCommand(const std::vector<std::string>&)
{
    zktest::Report(std::string("[") + vSYSTEMACCESS::GetCommand()() + "]");
    return 0;
}
zktest::ChildEntry printCommand("print-command", PrintCommand);

// The program's own name is cut off, quoted or not, with the blanks after it.
TEST(ModuleTest, CommandIsTheLineAfterTheProgramName)
{
    zktest::Child child("print-command", "  alpha \"beta gamma\"");
    EXPECT_EQ(child.ReadLine(), "[--zk-child=print-command   alpha \"beta gamma\"]");
    child.Wait();
}

TEST(ModuleTest, CopiesShareTheInstance)
{
    vMODULE copy(*vSYSTEM::Pointer());
    EXPECT_EQ(copy.GetInstance(), GetModuleHandleA("zkcore.dll"));
    vMODULE other;
    EXPECT_EQ(other.GetInstance(), nullptr);
    other = copy;
    EXPECT_EQ(other.GetInstance(), copy.GetInstance());
}

}  // namespace
