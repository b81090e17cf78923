#include <algorithm>

#include "app/appaccess.h"

namespace {

// Watches for a message box with the caption and notes how it stands before
// it presses the button: its owner, whether it stays on top, and which
// button is the default.
struct BOXLOOK {
    const char* caption;
    int button;
    HWND owner = nullptr;
    bool topmost = false;
    int defaultButton = 0;

    static DWORD WINAPI Watch(void* self)
    {
        BOXLOOK* look = static_cast<BOXLOOK*>(self);
        for (DWORD deadline = GetTickCount() + 10000; GetTickCount() < deadline; Sleep(20)) {
            HWND box = FindWindowA("#32770", look->caption);
            if (!box || !IsWindowVisible(box))
                continue;
            look->owner = GetWindow(box, GW_OWNER);
            look->topmost = (GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
            for (int id = IDOK; id <= IDNO; ++id)
                if (GetDlgItem(box, id) && (GetWindowLongA(GetDlgItem(box, id), GWL_STYLE) & 0x0F) == BS_DEFPUSHBUTTON)
                    look->defaultButton = id;
            PostMessageA(box, WM_COMMAND, look->button, 0);
            return 0;
        }
        return 0;
    }
    // Shows the box through the call, looking at it meanwhile.
    template <typename CALL>
    int Run(CALL call)
    {
        HANDLE thread = CreateThread(nullptr, 0, Watch, this, 0, nullptr);
        int answer = call();
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
        return answer;
    }
};

class MessageTest : public zktest::LeakFreeTest {};

// The button sets and defaults are asked as numbers; the button pressed comes
// back as the number that stands for it. An ownerless box stays on top.
TEST_F(MessageTest, AnswersAreTranslatedAndDefaultsChosen)
{
    vMESSAGE message;
    const struct {
        const char* caption;
        unsigned short (vMESSAGE::*kind)(const vSTRING&, const vSTRING&, unsigned short, unsigned short) const;
        int set, chosen, pressed, answer;
    } rows[] = {
        {"ZK query", &vMESSAGE::Query, 96, 64, IDNO, 64},      {"ZK abort", &vMESSAGE::Critical, 14, 16, IDIGNORE, 16},
        {"ZK three", &vMESSAGE::Query, 98, 2, IDCANCEL, 2},    {"ZK retry", &vMESSAGE::Warning, 10, 8, IDRETRY, 8},
        {"ZK ownerless", &vMESSAGE::Warning, 1, 1, IDOK, 1},
    };
    for (const auto& row : rows) {
        BOXLOOK look{row.caption, row.pressed};
        EXPECT_EQ(look.Run([&] { return (message.*row.kind)(vSTRING("Sure?"), vSTRING(row.caption), row.set,
                                                             row.chosen); }),
                  row.answer)
            << row.caption;
        EXPECT_EQ(look.defaultButton, row.pressed) << row.caption;
        EXPECT_EQ(look.owner, nullptr);
        EXPECT_TRUE(look.topmost);
    }
    zktest::BoxWatcher info("ZK info", IDOK);
    EXPECT_EQ(message.Info(vSTRING("All is well"), vSTRING("ZK info")), 1);
    EXPECT_EQ(info.Text(), "All is well");

    zktest::BoxWatcher refused("ZK refused", IDOK, 500);
    for (auto set : {std::make_pair(5, 1), std::make_pair(3, 8), std::make_pair(28, 4), std::make_pair(96, 2)})
        EXPECT_EQ(message.Warning(vSTRING("x"), vSTRING("ZK refused"), set.first, set.second), 0);
    EXPECT_FALSE(refused.Seen());
}

TEST_F(MessageTest, TheApplicationsBoxesBelongToTheFrame)
{
    wintest::TraceLevel level(3);
    zktest::TraceCapture capture;
    vAPP* app = new vAPP(vSTRING("ZkMessageFrame"), vSTRING("Messages"), 0);
    wintest::Lines lines = capture.Lines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Trace: vMESSAGE::vMESSAGE(vAPP)"), lines.end());
    BOXLOOK look{"ZK owned", IDOK};
    EXPECT_EQ(look.Run([&] { return app->Message().Info(vSTRING("Owned"), vSTRING("ZK owned")); }), 1);
    EXPECT_EQ(look.owner, vAPPACCESS::Frame(*app));
    EXPECT_FALSE(look.topmost);
    apptest::End(vAPPACCESS::Frame(*app));
}

}  // namespace
