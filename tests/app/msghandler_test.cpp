#include "app/appaccess.h"
#include "app/recorder.h"
#include "support/systemaccess.h"

using namespace wintest;

namespace {

// One message sent to the window under test: the answers its handlers give, the calls it must make, and whether the
// message then reaches the default processing or comes back with the result given.
struct ROW { const char* what; UINT message; WPARAM wParam; LPARAM lParam; std::map<std::string, int> answers;
             Lines calls; bool toDefault; LRESULT result; };

std::string DefaultLine(const std::string& name, UINT message) { return name + " default " + std::to_string(message); }

// Presses the key with the modifiers held, and runs the queue as the
// application's loop does: the keyboard state follows every key message.
void Stroke(std::initializer_list<WORD> held, WORD key) {
    std::vector<INPUT> inputs;
    auto add = [&](WORD which, DWORD up) { inputs.push_back(INPUT{INPUT_KEYBOARD, {.ki = {which, 0, up, 0, 0}}}); };
    for (WORD down : held) add(down, 0);
    add(key, 0), add(key, KEYEVENTF_KEYUP);
    for (WORD up : held) add(up, KEYEVENTF_KEYUP);
    SendInput(inputs.size(), inputs.data(), sizeof(INPUT));
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST)
            vSYSTEMACCESS::KeyEvent(message.message, message.wParam, message.lParam);
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

class DispatchTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        child = new RECORDER(Top(), vRECT(0, 0, 80, 60), "c", WF_NONE, 3);
        child->Show(1), UpdateWindow(C()), Log().clear();
    }

    void TearDown() override {
        EnableWindow(Top()(), TRUE);
        if (IsWindow(C())) DestroyWindow(C());
        vPOINTER::ActiveOwner(&Top()), vPOINTER::Off(), vWIN::fBorderDrag = 0, WindowTest::TearDown();
    }

    HWND C() { return (*child)(); }

    void Run(const ROW& row) {
        SCOPED_TRACE(row.what);
        child->Reset();
        for (const auto& answer : row.answers)
            child->Answer(answer.first, answer.second);
        Log().clear(), Watched() = {row.message};
        LRESULT result = SendMessageA(C(), row.message, row.wParam, row.lParam);
        Lines expected = row.calls;
        if (row.toDefault) expected.push_back(DefaultLine("c", row.message));
        EXPECT_EQ(Log(), expected);
        EXPECT_TRUE(row.toDefault || result == row.result) << result;
    }

    RECORDER* child = nullptr;
};

TEST_F(DispatchTest, WindowMessagesFollowTheTable) {
    HWND foreign = CreateWindowExA(0, "STATIC", nullptr, WS_CHILD, 0, 0, 5, 5, Top()(), nullptr, nullptr, nullptr);
    const WPARAM top = reinterpret_cast<WPARAM>(Top()());
    const ROW rows[] = {
        {"size", WM_SIZE, SIZE_RESTORED, MAKELPARAM(80, 60), {{"vSize", 1}}, {"c.vSize((0,0,80,60))"}, true, 0},
        {"minimised", WM_SIZE, SIZE_MINIMIZED, 0, {{"vIconize", 1}}, {"c.vIconize()"}, true, 0},
        {"inactive", WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 1), 0, {{"vDeactivate", 1}}, {"c.vDeactivate()"}, true, 0},
        {"focus", WM_SETFOCUS, 0, 0, {{"vGetFocus", 1}}, {"c.vGetFocus()"}, true, 0},
        {"focus to a library window", WM_KILLFOCUS, top, 0, {{"vReleaseFocus", 1}}, {"c.vReleaseFocus(top)"}, true, 0},
        {"focus to a foreign window", WM_KILLFOCUS, reinterpret_cast<WPARAM>(foreign), 0, {},
         {"c.vReleaseFocus(null)"}, true, 0},
        {"metrics", WM_WININICHANGE, SPI_SETNONCLIENTMETRICS, 0, {}, {"c.vSettingChange()"}, true, 0},
        {"metrics taken", WM_WININICHANGE, SPI_SETNONCLIENTMETRICS, 0, {{"vSettingChange", 7}},
         {"c.vSettingChange()"}, false, 0},
        {"other setting", WM_WININICHANGE, SPI_SETBEEP, 0, {{"vSettingChange", 1}}, {}, true, 0},
        {"item deleted", WM_DELETEITEM, 3, 0, {}, {}, false, 1},
        {"character", WM_CHAR, 'A' + 0x100, 0, {}, {"c.vCharacterKey(A)"}, true, 0},
        {"character taken", WM_CHAR, 'z', 0, {{"vCharacterKey", 1}}, {"c.vCharacterKey(z)"}, false, 0},
        {"command", WM_COMMAND, MAKEWPARAM(77, 5), 0, {{"vCommand", 1}}, {"c.vCommand(77)"}, true, 0},
        {"timer", WM_TIMER, 9, 0, {{"vTimer", 1}}, {"c.vTimer(9)"}, true, 0},
        {"line left", WM_HSCROLL, SB_LINELEFT, 0, {{"vScrollIncRight", 1}}, {"c.vScrollIncRight()"}, true, 0},
        {"line right", WM_HSCROLL, SB_LINERIGHT, 0, {}, {"c.vScrollIncLeft()"}, true, 0},
        {"page left", WM_HSCROLL, SB_PAGELEFT, 0, {}, {"c.vScrollPageRight()"}, true, 0},
        {"page right", WM_HSCROLL, SB_PAGERIGHT, 0, {}, {"c.vScrollPageLeft()"}, true, 0},
        {"thumb across", WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 4), 0, {}, {}, true, 0},
        {"line up", WM_VSCROLL, SB_LINEUP, 0, {{"vScrollIncUp", 1}}, {"c.vScrollIncUp()"}, true, 0},
        {"line down", WM_VSCROLL, SB_LINEDOWN, 0, {}, {"c.vScrollIncDown()"}, true, 0},
        {"page up", WM_VSCROLL, SB_PAGEUP, 0, {}, {"c.vScrollPageUp()"}, true, 0},
        {"page down", WM_VSCROLL, SB_PAGEDOWN, 0, {}, {"c.vScrollPageDown()"}, true, 0},
        {"thumb down", WM_VSCROLL, SB_THUMBTRACK, 0, {}, {}, true, 0},
        {"files", WM_DROPFILES, 0, 0, {}, {}, true, 0},
        {"empty paint", WM_PAINT, 0, 0, {{"vDraw", 1}}, {}, true, 0},
        {"close refused", WM_CLOSE, 0, 0, {{"vQueryClose", 0}}, {"c.vQueryClose()"}, false, 0},
        {"set cursor", WM_SETCURSOR, reinterpret_cast<WPARAM>(C()), HTCLIENT, {}, {}, false, 1},
        {"palette", vSYSTEM::GetPaletteChangeMsg(), 0, 0, {}, {}, true, 0},
        {"palette in front", vSYSTEM::GetPaletteChangeMsg(), 1, 0, {}, {}, false, 0},
        {"family", vSYSTEMACCESS::GetTavikMessage(), 0, 0, {}, {}, false, 0x0B0B0B0B},
        {"kill without an application", vSYSTEM::GetZKKillMsg(), 0, 0, {}, {}, true, 0},
        {"anything else", WM_USER + 5, 0, 0, {}, {}, true, 0},
    };
    vPOINTER::ActiveOwner(child), vPOINTER::Off(), child->Pointer()->On();
    for (const ROW& row : rows)
        Run(row);
    DestroyWindow(foreign);

    // A non-client press outside the frame clears the drag mark.
    vWIN::fBorderDrag = 1;
    Run({"client press", WM_NCLBUTTONDOWN, HTCLIENT, 0, {}, {}, true, 0});
    EXPECT_EQ(vWIN::fBorderDrag, 0);
    Run({"release after no drag", WM_NCLBUTTONUP, HTCAPTION, 0, {}, {}, true, 0});
    Run({"non-client move", WM_NCMOUSEMOVE, HTCAPTION, 0, {}, {}, true, 0});

    // Activation goes to the default whatever the handler answers.
    Watched() = {WM_ACTIVATE}, child->Answer("vActivate", 1), Log().clear();
    SendMessageA(C(), WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 0), 0);
    ASSERT_GE(Log().size(), 2u);
    EXPECT_EQ(Lines(Log().begin(), Log().begin() + 2), (Lines{"c.vActivate()", DefaultLine("c", WM_ACTIVATE)}));
}

// Every button's press, release and double press; a taken move, left press
// or left release ends there, the others go on to the default all the same.
TEST_F(DispatchTest, MouseMessagesCarrySignedClientPoints) {
    const struct { UINT message; const char* handler; bool ends; } rows[] = {
        {WM_MOUSEMOVE, "vMouseMove", true}, {WM_LBUTTONDOWN, "vMouseLeftPress", true},
        {WM_LBUTTONUP, "vMouseLeftRelease", true}, {WM_LBUTTONDBLCLK, "vMouseLeftDoublePress", false},
        {WM_RBUTTONDOWN, "vMouseRightPress", false}, {WM_RBUTTONUP, "vMouseRightRelease", false},
        {WM_RBUTTONDBLCLK, "vMouseRightDoublePress", false}, {WM_MBUTTONDOWN, "vMouseMiddlePress", false},
        {WM_MBUTTONUP, "vMouseMiddleRelease", false}, {WM_MBUTTONDBLCLK, "vMouseMiddleDoublePress", false}};
    for (const auto& row : rows)
        for (int taken : {0, 1})
            Run({row.handler, row.message, 0, MAKELPARAM(-3, 4), {{row.handler, taken}},
                 {"c." + std::string(row.handler) + "((-3,4))"}, !(taken && row.ends), 0});
}

// The handler is chosen by the keyboard's code of the key, not the message's.
TEST_F(DispatchTest, KeysAreTranslatedByTheKeyboardsCode) {
    const struct { WORD fed; WPARAM raw; const char* handler; bool toDefault; } rows[] = {
        {VK_BACK, VK_BACK, "c.vBackspaceKey()", true}, {VK_TAB, VK_TAB, "c.vTabKey()", true},
        {VK_RETURN, VK_RETURN, "c.vEnterKey()", true}, {VK_ESCAPE, VK_ESCAPE, "c.vEscapeKey()", true},
        {VK_PRIOR, VK_PRIOR, "c.vPageUpKey()", true}, {VK_NEXT, VK_NEXT, "c.vPageDownKey()", true},
        {VK_END, VK_END, "c.vEndKey()", true}, {VK_HOME, VK_HOME, "c.vHomeKey()", true}, {'A', 'A', nullptr, true},
        {VK_LEFT, VK_LEFT, "c.vArrowLeftKey()", true}, {VK_UP, VK_UP, "c.vArrowUpKey()", true},
        {136, 136, nullptr, true},
        {VK_RIGHT, VK_RIGHT, "c.vArrowRightKey()", true}, {VK_DOWN, VK_DOWN, "c.vArrowDownKey()", true},
        {VK_INSERT, VK_INSERT, "c.vInsertKey()", true}, {VK_DELETE, VK_DELETE, "c.vDeleteKey()", true},
        {VK_F1, VK_F1, "c.vFunctionKey(1)", false}, {VK_F24, VK_F24, "c.vFunctionKey(24)", false},
        {VK_RETURN, VK_F2, "c.vEnterKey()", true}, {'A', VK_F3, "c.vFunctionKey(3)", false},
    };
    Watched() = {WM_KEYDOWN};
    for (const auto& row : rows) {
        vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, row.fed, 0), Log().clear();
        SendMessageA(C(), WM_KEYDOWN, row.raw, 0);
        Lines expected = {"c.vKeyDown()"};
        if (row.handler) expected.push_back(row.handler);
        if (row.toDefault) expected.push_back(DefaultLine("c", WM_KEYDOWN));
        EXPECT_EQ(Log(), expected) << row.fed << " " << row.raw;
    }
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_RETURN, 0);
    Run({"enter taken", WM_KEYDOWN, VK_RETURN, 0, {{"vEnterKey", 1}}, {"c.vKeyDown()", "c.vEnterKey()"}, false, 0});
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_F5, 0);
    Run({"function key refused", WM_KEYDOWN, VK_F5, 0, {{"vFunctionKey", 0}}, {"c.vKeyDown()", "c.vFunctionKey(5)"},
         true, 0});

    // The same from the real keyboard, where Control turns the tab around.
    child->Reset(), child->GetFocus();
    ASSERT_EQ(GetFocus(), C());
    const struct { std::initializer_list<WORD> held; WORD key; const char* part; const char* heard; } strokes[] = {
        {{VK_CONTROL}, VK_TAB, "Tab", "c.vCtrTab()"}, {{}, VK_TAB, "Tab", "c.vTabKey()"},
        {{}, VK_F1, "Function", "c.vFunctionKey(1)"}};
    for (const auto& stroke : strokes) {
        Log().clear(), Stroke(stroke.held, stroke.key);
        EXPECT_EQ(Only(stroke.part), Lines{stroke.heard});
    }
    vSYSTEMACCESS::KeyReset();
}

// The update region is validated whether or not the drawing is taken; the
// background is erased in its colour, which becomes the fill colour only.
TEST_F(DispatchTest, PaintDrawsTheUpdateRectangleOnTheErasedBackground) {
    Watched() = {WM_PAINT};
    RECT dirty = {2, 3, 12, 13};
    InvalidateRect(C(), &dirty, FALSE), UpdateWindow(C());
    EXPECT_EQ(Log(), (Lines{"c.vDraw((2,3,12,13))", DefaultLine("c", WM_PAINT)}));
    child->Answer("vDraw", 1);
    vLINESPEC before = child->LineSpec();
    child->BackgroundColour(vCOLOUR(10, 200, 30));
    Log().clear(), InvalidateRect(C(), nullptr, TRUE), UpdateWindow(C());
    EXPECT_EQ(Log(), (Lines{"c.vEraseBkg()", "c.vDraw((0,0,80,60))"}));
    EXPECT_FALSE(GetUpdateRect(C(), nullptr, FALSE));
    HDC dc = GetDC(C());
    EXPECT_EQ(GetPixel(dc, 79, 59), RGB(10, 200, 30));
    EXPECT_TRUE(child->FillSpec().Colour() == vCOLOUR(10, 200, 30) && child->LineSpec() == before);
    child->flags &= ~WINF_ERASE;
    Run({"without erase it counts as erased", WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0, {}, {}, false, 1});
    ReleaseDC(C(), dc);
}

TEST_F(DispatchTest, CommandsFromChildrenNotifyTheirPeers) {
    RECORDER peer(*child, vRECT(0, 0, 5, 5), "peer", WF_NONE, 21);
    RECORDER source(*child, vRECT(10, 0, 15, 5), "source", WF_NONE, 20);
    peer.SetDepend(&source);
    Run({"from a library child", WM_COMMAND, MAKEWPARAM(20, 4), 0, {}, {"peer.UpdateView(20)", "c.vCommand(20)"},
         true, 0});
    Run({"from no child", WM_COMMAND, MAKEWPARAM(99, 0), 0, {}, {"c.vCommand(99)"}, true, 0});
    Run({"from a menu", WM_COMMAND, MAKEWPARAM(0, 0), 0, {}, {"c.vCommand(0)"}, true, 0});
    DestroyWindow(peer()), DestroyWindow(source());
}

TEST_F(DispatchTest, PaletteChangesRepaintOnlyFromTheForeground) {
    TraceLevel level(1);
    zktest::TraceCapture capture;
    ValidateRect(C(), nullptr);
    SendMessageA(C(), vSYSTEM::GetPaletteChangeMsg(), 0, 0);
    EXPECT_FALSE(GetUpdateRect(C(), nullptr, FALSE));
    SendMessageA(C(), vSYSTEM::GetPaletteChangeMsg(), 1, 0);
    EXPECT_TRUE(GetUpdateRect(C(), nullptr, FALSE));
    SendMessageA(C(), WM_DROPFILES, 0, 0);
    EXPECT_EQ(capture.Lines(), (Lines{"Trace: vWIN - DoPaletteChanged", "Trace: vWIN - DoPaletteChanged",
                                      "Trace: DoPaletteChanged - Invalidate", "Trace: vWIN::WM_DROPFILES"}));
}

// Frame dragging: a press without a move sizes the window unchanged, and a
// release during a drag draws the frame once more to take it away.
TEST_F(DispatchTest, TheFrameDragEndsWithTheRelease) {
    Run({"caption press", WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(110, 110), {},
         {"c.vBorderDrag((0,0,80,60),null)", "c.vBorderDrag((0,0,80,60),null)", "c.Size((0,0,80,60))"}, false, 0});
    EXPECT_EQ(GetCapture(), nullptr);
    vWIN::fBorderDrag = 1;
    Run({"release", WM_NCLBUTTONUP, HTCAPTION, 0, {}, {"c.vBorderDrag((0,0,80,60),null)"}, false, 0});
    EXPECT_EQ(vWIN::fBorderDrag, 0);
}

// During a drag a move asks whether the window under it takes files: one
// that does, or has a parent that does, unless a window above it is disabled.
TEST_F(DispatchTest, MovesDuringADragAskForTheDropWindow) {
    const struct { const char* what; HWND taker; BOOL enabled; int feedback; } rows[] = {
        {"over nothing that takes files", nullptr, TRUE, 0}, {"over a child of a taker", Top()(), TRUE, 1},
        {"under a disabled taker", Top()(), FALSE, 0},       {"a taker in a disabled window", C(), FALSE, 0},
        {"a taker in an enabled window", C(), TRUE, 1}};
    child->isDragging = 1;
    for (const auto& row : rows) {
        for (HWND window : {Top()(), C()})
            SetWindowLongA(window, GWL_EXSTYLE, row.taker == window ? WS_EX_ACCEPTFILES : 0);
        EnableWindow(Top()(), row.enabled);
        Run({row.what, WM_MOUSEMOVE, 0, MAKELPARAM(40, 30), {},
             {"c.vDragFeedback(" + std::to_string(row.feedback) + ",(40,30))"}, false, 0});
    }
    child->isDragging = 0;
}

}  // namespace
