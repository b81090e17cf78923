#include <algorithm>
#include <string>

#include "app/appaccess.h"
#include "support/zktest.h"

namespace {

// Watches for a message box with the caption and notes how it stands before
// it presses the button: its owner, whether it stays on top, and which
// button is the default.
class BOXLOOK {
public:
    BOXLOOK(const char* caption, int button)
        : caption(caption), button(button), thread(CreateThread(nullptr, 0, Watch, this, 0, nullptr))
    {
    }
    ~BOXLOOK()
    {
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }
    bool Seen()
    {
        WaitForSingleObject(thread, INFINITE);
        return seen;
    }

    HWND owner = nullptr;
    bool topmost = false;
    int defaultButton = 0;

private:
    static int DefaultButton(HWND box)
    {
        for (int id = IDOK; id <= IDNO; ++id) {
            HWND button = GetDlgItem(box, id);
            if (button && (GetWindowLongA(button, GWL_STYLE) & 0x0F) == BS_DEFPUSHBUTTON)
                return id;
        }
        return 0;
    }
    static DWORD WINAPI Watch(void* self)
    {
        BOXLOOK* look = static_cast<BOXLOOK*>(self);
        for (DWORD deadline = GetTickCount() + 10000; GetTickCount() < deadline; Sleep(20)) {
            HWND box = FindWindowA("#32770", look->caption);
            if (!box || !IsWindowVisible(box))
                continue;
            look->owner = GetWindow(box, GW_OWNER);
            look->topmost = (GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
            look->defaultButton = DefaultButton(box);
            look->seen = true;
            PostMessageA(box, WM_COMMAND, look->button, 0);
            return 0;
        }
        return 0;
    }

    const char* caption;
    int button;
    bool seen = false;
    HANDLE thread;
};

class MessageTest : public zktest::LeakFreeTest {};

TEST_F(MessageTest, InfoNeedsNoButtonsAndAnswersOkWithoutAnOwnerSystemModal)
{
    vMESSAGE message;
    zktest::BoxWatcher watcher("ZK info", IDOK);
    EXPECT_EQ(message.Info(vSTRING("All is well"), vSTRING("ZK info")), 1);
    EXPECT_EQ(watcher.Text(), "All is well");
}

TEST_F(MessageTest, AnOwnerlessBoxStaysOnTop)
{
    vMESSAGE message;
    BOXLOOK look("ZK ownerless", IDOK);
    EXPECT_EQ(message.Warning(vSTRING("Careful"), vSTRING("ZK ownerless"), 1, 1), 1);
    ASSERT_TRUE(look.Seen());
    EXPECT_EQ(look.owner, nullptr);
    EXPECT_TRUE(look.topmost);
}

TEST_F(MessageTest, AnswersAreTranslatedAndDefaultsChosen)
{
    vMESSAGE message;
    {
        BOXLOOK look("ZK query", IDNO);
        EXPECT_EQ(message.Query(vSTRING("Save?"), vSTRING("ZK query"), 96, 64), 64);
        EXPECT_EQ(look.defaultButton, IDNO);
    }
    {
        BOXLOOK look("ZK abort", IDIGNORE);
        EXPECT_EQ(message.Critical(vSTRING("Disk"), vSTRING("ZK abort"), 14, 16), 16);
        EXPECT_EQ(look.defaultButton, IDIGNORE);
    }
    {
        BOXLOOK look("ZK three", IDCANCEL);
        EXPECT_EQ(message.Query(vSTRING("Save?"), vSTRING("ZK three"), 98, 2), 2);
        EXPECT_EQ(look.defaultButton, IDCANCEL);
    }
    {
        BOXLOOK look("ZK retry", IDRETRY);
        EXPECT_EQ(message.Warning(vSTRING("Again?"), vSTRING("ZK retry"), 10, 8), 8);
        EXPECT_EQ(look.defaultButton, IDRETRY);
    }
}

TEST_F(MessageTest, UnknownSetsAndDefaultsShowNothing)
{
    vMESSAGE message;
    zktest::BoxWatcher watcher("ZK refused", IDOK, 500);
    EXPECT_EQ(message.Warning(vSTRING("x"), vSTRING("ZK refused"), 5, 1), 0);
    EXPECT_EQ(message.Warning(vSTRING("x"), vSTRING("ZK refused"), 3, 8), 0);
    EXPECT_EQ(message.Warning(vSTRING("x"), vSTRING("ZK refused"), 28, 4), 0);
    EXPECT_EQ(message.Warning(vSTRING("x"), vSTRING("ZK refused"), 96, 2), 0);
    EXPECT_FALSE(watcher.Seen());
}

TEST_F(MessageTest, TheApplicationsBoxesBelongToTheFrame)
{
    vSYSTEM::SetTraceLevel(3);
    zktest::TraceCapture capture;
    vAPP* app = new vAPP(vSTRING("ZkMessageFrame"), vSTRING("Messages"), 0);
    vSYSTEM::SetTraceLevel(0);
    HWND frame = vAPPACCESS::Frame(*app);
    std::vector<std::string> lines = capture.Lines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Trace: vMESSAGE::vMESSAGE(vAPP)"), lines.end());
    {
        BOXLOOK look("ZK owned", IDOK);
        EXPECT_EQ(app->Message().Info(vSTRING("Owned"), vSTRING("ZK owned")), 1);
        EXPECT_EQ(look.owner, frame);
        EXPECT_FALSE(look.topmost);
    }
    apptest::End(frame);
}

}  // namespace
