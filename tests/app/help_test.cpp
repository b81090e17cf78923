#include "app/appaccess.h"
#include "support/zktest.h"

namespace {

class HelpTest : public zktest::LeakFreeTest {};

TEST_F(HelpTest, NothingIsAskedOfTheEngineBeforeTheFileIsNamed)
{
    vHELP help;
    vSTRING topic("Printing");
    EXPECT_EQ(vAPPACCESS::HelpWindow(help), nullptr);
    EXPECT_EQ(help.Contents(), 0);
    EXPECT_EQ(help.Context(12), 0);
    EXPECT_EQ(help.HelpOnHelp(), 0);
    EXPECT_EQ(help.SearchDialog(), 0);
    EXPECT_EQ(help.FindTopic(topic), 0);
}

TEST_F(HelpTest, NamingTheFileMakesAHiddenOwnerThatGoesWithTheMenu)
{
    HWND owner = nullptr;
    {
        vSYSTEM::SetTraceLevel(3);
        zktest::TraceCapture capture;
        vHELP help;
        vSTRING file("C:\\NOWHERE\\ZKSHELL.HLP");
        vAPPACCESS::SetHelp(help, GetModuleHandleA(nullptr), file);
        owner = vAPPACCESS::HelpWindow(help);
        ASSERT_TRUE(IsWindow(owner));
        EXPECT_FALSE(IsWindowVisible(owner));
        char name[32] = {};
        GetClassNameA(owner, name, sizeof name);
        EXPECT_STRCASEEQ(name, "LISTBOX");
        EXPECT_EQ(GetWindowLongA(owner, GWL_STYLE) & WS_POPUP, static_cast<LONG>(WS_POPUP));
        EXPECT_EQ(capture.Lines(), std::vector<std::string>{"Trace: vHELP::vHELP(...)"});
        vSYSTEM::SetTraceLevel(0);
    }
    EXPECT_FALSE(IsWindow(owner));
}

TEST_F(HelpTest, TheHelpMenuIsAMenuOfItsOwn)
{
    vHELP help;
    help.Append(vCTRLID(9), vSTRING("&Contents"));
    EXPECT_EQ(help.NoItem(), 1);
    EXPECT_EQ(help.ItemID(0), vCTRLID(9));
}

}  // namespace
