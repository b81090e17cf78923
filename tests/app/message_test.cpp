#include <functional>

#include "app/appaccess.h"

namespace {

// Shows a box through the call while a thread of its own watches for it by
// its caption, notes its owner, whether it stays on top and its default
// button, and presses the button given.
struct BOXLOOK {
    const char* caption;
    int button;
    HWND owner = nullptr;
    bool topmost = false;
    int defaultButton = 0;

    static DWORD WINAPI Watch(void* self)
    {
        BOXLOOK& look = *static_cast<BOXLOOK*>(self);
        HWND box = nullptr;
        for (DWORD end = GetTickCount() + 10000; GetTickCount() < end && !(box && IsWindowVisible(box)); Sleep(20))
            box = FindWindowA("#32770", look.caption);
        look.owner = GetWindow(box, GW_OWNER);
        look.topmost = GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOPMOST;
        for (int id = IDOK; id <= IDNO; ++id)
            if ((GetWindowLongA(GetDlgItem(box, id), GWL_STYLE) & 0x0F) == BS_DEFPUSHBUTTON)
                look.defaultButton = id;
        return PostMessageA(box, WM_COMMAND, look.button, 0);
    }
    int Run(const std::function<int()>& call)
    {
        HANDLE thread = CreateThread(nullptr, 0, Watch, this, 0, nullptr);
        int answer = call();
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
        return answer;
    }
};

// The button sets and defaults are asked as numbers, and the button pressed
// comes back as the number that stands for it; unknown ones show nothing.
// A box without an application stays on top; the application's belong to
// its frame.
using MessageTest = zktest::LeakFreeTest;

TEST_F(MessageTest, AnswersAreTranslatedAndDefaultsChosen)
{
    vMESSAGE message;
    const struct { const char* caption; int set, chosen, pressed, answer; } rows[] = {
        {"ZK query", 96, 64, IDNO, 64}, {"ZK abort", 14, 16, IDIGNORE, 16}, {"ZK three", 98, 2, IDCANCEL, 2},
        {"ZK retry", 10, 8, IDRETRY, 8}, {"ZK ok", 1, 1, IDOK, 1}};
    for (const auto& row : rows) {
        BOXLOOK look{row.caption, row.pressed};
        EXPECT_EQ(look.Run([&] { return message.Query(vSTRING("?"), vSTRING(row.caption), row.set, row.chosen); }),
                  row.answer) << row.caption;
        EXPECT_EQ(look.defaultButton, row.pressed) << row.caption;
        EXPECT_TRUE(look.owner == nullptr && look.topmost);
    }
    zktest::BoxWatcher info("ZK info", IDOK);
    EXPECT_EQ(message.Info(vSTRING("All is well"), vSTRING("ZK info")), 1);
    EXPECT_EQ(info.Text(), "All is well");
    zktest::BoxWatcher refused("ZK refused", IDOK, 500);
    for (auto set : {std::make_pair(5, 1), std::make_pair(3, 8), std::make_pair(28, 4), std::make_pair(96, 2)})
        EXPECT_EQ(message.Warning(vSTRING("x"), vSTRING("ZK refused"), set.first, set.second), 0);
    EXPECT_FALSE(refused.Seen());

    vAPP* app = new vAPP(vSTRING("ZkMessageFrame"), vSTRING("Messages"), 0);
    BOXLOOK look{"ZK owned", IDOK};
    EXPECT_EQ(look.Run([&] { return app->Message().Info(vSTRING("Owned"), vSTRING("ZK owned")); }), 1);
    EXPECT_TRUE(look.owner == vAPPACCESS::Frame(*app) && !look.topmost);
    apptest::End(vAPPACCESS::Frame(*app));
}

}  // namespace
