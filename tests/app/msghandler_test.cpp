#include <algorithm>

#include "app/appaccess.h"
#include "app/recorder.h"
#include "support/systemaccess.h"

using wintest::Log;
using wintest::RECORDER;
using Lines = std::vector<std::string>;

namespace {

// One message sent to the window under test: the answers its handlers give,
// the calls it must make, and whether the message then reaches the default
// processing or comes back with the result given.
struct ROW {
    const char* what;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    std::map<std::string, int> answers;
    Lines calls;
    bool toDefault;
    LRESULT result;
};

std::string DefaultLine(const std::string& name, UINT message)
{
    return name + " default " + std::to_string(message);
}

using wintest::TraceLevel;

// What the message loop of the application does for keys before it
// dispatches them: the keyboard state follows every key message.
void PumpKeys()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST)
            vSYSTEMACCESS::KeyEvent(message.message, message.wParam, message.lParam);
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void Key(WORD key, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

void Stroke(std::initializer_list<WORD> held, WORD key)
{
    for (WORD modifier : held)
        Key(modifier, 0);
    Key(key, 0);
    Key(key, KEYEVENTF_KEYUP);
    for (WORD modifier : held)
        Key(modifier, KEYEVENTF_KEYUP);
    PumpKeys();
}

void Button(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Puts the mouse on the screen point and reports a move there.
void MoveTo(POINT at)
{
    SetCursorPos(at.x, at.y);
    Button(MOUSEEVENTF_MOVE);
}

POINT OnScreen(HWND window, int x, int y)
{
    POINT at = {x, y};
    ClientToScreen(window, &at);
    return at;
}

Lines Only(const std::string& part)
{
    Lines kept;
    for (const std::string& line : Log())
        if (line.find(part) != std::string::npos)
            kept.push_back(line);
    return kept;
}

class DispatchTest : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        child = new RECORDER(Top(), vRECT(0, 0, 80, 60), "c", WF_NONE, 3);
        child->Show(1);
        UpdateWindow((*child)());
        Log().clear();
    }

    void TearDown() override
    {
        if (IsWindow((*child)()))
            DestroyWindow((*child)());
        vPOINTER::ActiveOwner(&Top());
        vPOINTER::Off();
        vWIN::fBorderDrag = 0;
        WindowTest::TearDown();
    }

    void Run(const ROW& row)
    {
        child->Reset();
        for (const auto& answer : row.answers)
            child->Answer(answer.first, answer.second);
        Log().clear();
        wintest::Watched() = {row.message};
        LRESULT result = SendMessageA((*child)(), row.message, row.wParam, row.lParam);
        Lines expected = row.calls;
        if (row.toDefault)
            expected.push_back(DefaultLine("c", row.message));
        EXPECT_EQ(Log(), expected) << row.what;
        if (!row.toDefault) {
            EXPECT_EQ(result, row.result) << row.what;
        }
    }

    RECORDER* child = nullptr;
};

TEST_F(DispatchTest, WindowMessagesFollowTheTable)
{
    HWND foreign = CreateWindowExA(0, "STATIC", nullptr, WS_CHILD, 0, 0, 5, 5, Top()(), nullptr, nullptr, nullptr);
    const ROW rows[] = {
        {"size", WM_SIZE, SIZE_RESTORED, MAKELPARAM(80, 60), {{"vSize", 1}}, {"c.vSize((0,0,80,60))"}, true, 0},
        {"minimised", WM_SIZE, SIZE_MINIMIZED, 0, {{"vIconize", 1}}, {"c.vIconize()"}, true, 0},
        {"focus", WM_SETFOCUS, 0, 0, {{"vGetFocus", 1}}, {"c.vGetFocus()"}, true, 0},
        {"focus to a library window", WM_KILLFOCUS, reinterpret_cast<WPARAM>(Top()()), 0, {{"vReleaseFocus", 1}},
         {"c.vReleaseFocus(top)"}, true, 0},
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
        {"set cursor", WM_SETCURSOR, reinterpret_cast<WPARAM>((*child)()), HTCLIENT, {}, {}, false, 1},
        {"palette", vSYSTEM::GetPaletteChangeMsg(), 0, 0, {}, {}, true, 0},
        {"palette in front", vSYSTEM::GetPaletteChangeMsg(), 1, 0, {}, {}, false, 0},
        {"family", vSYSTEMACCESS::GetTavikMessage(), 0, 0, {}, {}, false, 0x0B0B0B0B},
        {"kill without an application", vSYSTEM::GetZKKillMsg(), 0, 0, {}, {}, true, 0},
        {"anything else", WM_USER + 5, 0, 0, {}, {}, true, 0},
    };
    vPOINTER::ActiveOwner(child);
    vPOINTER::Off();
    child->Pointer()->On();
    for (const ROW& row : rows)
        Run(row);
    DestroyWindow(foreign);
}

TEST_F(DispatchTest, MouseMessagesCarrySignedClientPoints)
{
    const LPARAM at = MAKELPARAM(-3, 4);
    const ROW rows[] = {
        {"move", WM_MOUSEMOVE, 0, at, {}, {"c.vMouseMove((-3,4))"}, true, 0},
        {"move taken", WM_MOUSEMOVE, 0, at, {{"vMouseMove", 1}}, {"c.vMouseMove((-3,4))"}, false, 0},
        {"left press", WM_LBUTTONDOWN, 0, at, {}, {"c.vMouseLeftPress((-3,4))"}, true, 0},
        {"left press taken", WM_LBUTTONDOWN, 0, at, {{"vMouseLeftPress", 1}}, {"c.vMouseLeftPress((-3,4))"}, false, 0},
        {"left release", WM_LBUTTONUP, 0, at, {}, {"c.vMouseLeftRelease((-3,4))"}, true, 0},
        {"left release taken", WM_LBUTTONUP, 0, at, {{"vMouseLeftRelease", 1}}, {"c.vMouseLeftRelease((-3,4))"},
         false, 0},
        {"left double", WM_LBUTTONDBLCLK, 0, at, {{"vMouseLeftDoublePress", 1}}, {"c.vMouseLeftDoublePress((-3,4))"},
         true, 0},
        {"right press", WM_RBUTTONDOWN, 0, at, {{"vMouseRightPress", 1}}, {"c.vMouseRightPress((-3,4))"}, true, 0},
        {"right release", WM_RBUTTONUP, 0, at, {{"vMouseRightRelease", 1}}, {"c.vMouseRightRelease((-3,4))"}, true, 0},
        {"right double", WM_RBUTTONDBLCLK, 0, at, {{"vMouseRightDoublePress", 1}},
         {"c.vMouseRightDoublePress((-3,4))"}, true, 0},
        {"middle press", WM_MBUTTONDOWN, 0, at, {{"vMouseMiddlePress", 1}}, {"c.vMouseMiddlePress((-3,4))"}, true, 0},
        {"middle release", WM_MBUTTONUP, 0, at, {{"vMouseMiddleRelease", 1}}, {"c.vMouseMiddleRelease((-3,4))"},
         true, 0},
        {"middle double", WM_MBUTTONDBLCLK, 0, at, {{"vMouseMiddleDoublePress", 1}},
         {"c.vMouseMiddleDoublePress((-3,4))"}, true, 0},
    };
    for (const ROW& row : rows)
        Run(row);
}

TEST_F(DispatchTest, ActivationChoosesByTheLowWord)
{
    Run({"inactive", WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 1), 0, {{"vDeactivate", 1}}, {"c.vDeactivate()"}, true, 0});
    Log().clear();
    wintest::Watched() = {WM_ACTIVATE};
    child->Answer("vActivate", 1);
    SendMessageA((*child)(), WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 0), 0);
    ASSERT_GE(Log().size(), 2u);
    EXPECT_EQ(Log()[0], "c.vActivate()");
    EXPECT_EQ(Log()[1], DefaultLine("c", WM_ACTIVATE));
}

TEST_F(DispatchTest, KeysAreTranslatedByTheKeyboardsCode)
{
    struct KEYROW {
        WORD fed;
        WPARAM raw;
        const char* handler;
        bool toDefault;
    } rows[] = {
        {VK_BACK, VK_BACK, "c.vBackspaceKey()", true},
        {VK_TAB, VK_TAB, "c.vTabKey()", true},
        {VK_RETURN, VK_RETURN, "c.vEnterKey()", true},
        {VK_ESCAPE, VK_ESCAPE, "c.vEscapeKey()", true},
        {VK_PRIOR, VK_PRIOR, "c.vPageUpKey()", true},
        {VK_NEXT, VK_NEXT, "c.vPageDownKey()", true},
        {VK_END, VK_END, "c.vEndKey()", true},
        {VK_HOME, VK_HOME, "c.vHomeKey()", true},
        {VK_LEFT, VK_LEFT, "c.vArrowLeftKey()", true},
        {VK_UP, VK_UP, "c.vArrowUpKey()", true},
        {VK_RIGHT, VK_RIGHT, "c.vArrowRightKey()", true},
        {VK_DOWN, VK_DOWN, "c.vArrowDownKey()", true},
        {VK_INSERT, VK_INSERT, "c.vInsertKey()", true},
        {VK_DELETE, VK_DELETE, "c.vDeleteKey()", true},
        {VK_F1, VK_F1, "c.vFunctionKey(1)", false},
        {VK_F24, VK_F24, "c.vFunctionKey(24)", false},
        {136, 136, nullptr, true},
        {'A', 'A', nullptr, true},
        {VK_RETURN, VK_F2, "c.vEnterKey()", true},
        {'A', VK_F3, "c.vFunctionKey(3)", false},
    };
    wintest::Watched() = {WM_KEYDOWN};
    for (const KEYROW& row : rows) {
        vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, row.fed, 0);
        Log().clear();
        SendMessageA((*child)(), WM_KEYDOWN, row.raw, 0);
        Lines expected = {"c.vKeyDown()"};
        if (row.handler) {
            expected.push_back(row.handler);
        }
        if (row.toDefault)
            expected.push_back(DefaultLine("c", WM_KEYDOWN));
        EXPECT_EQ(Log(), expected) << row.fed << " " << row.raw;
    }
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_RETURN, 0);
    Run({"enter taken", WM_KEYDOWN, VK_RETURN, 0, {{"vEnterKey", 1}}, {"c.vKeyDown()", "c.vEnterKey()"}, false, 0});
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_F5, 0);
    Run({"function key refused", WM_KEYDOWN, VK_F5, 0, {{"vFunctionKey", 0}}, {"c.vKeyDown()", "c.vFunctionKey(5)"},
         true, 0});
    vSYSTEMACCESS::KeyReset();
}

TEST_F(DispatchTest, ControlTabFromTheKeyboardIsTheControlTab)
{
    child->GetFocus();
    ASSERT_EQ(GetFocus(), (*child)());
    Stroke({VK_CONTROL}, VK_TAB);
    EXPECT_EQ(Only("Tab"), Lines{"c.vCtrTab()"});
    Log().clear();
    Stroke({}, VK_TAB);
    EXPECT_EQ(Only("Tab"), Lines{"c.vTabKey()"});
    Log().clear();
    Stroke({}, VK_F1);
    EXPECT_EQ(Only("Function"), Lines{"c.vFunctionKey(1)"});
    vSYSTEMACCESS::KeyReset();
}

TEST_F(DispatchTest, PaintBracketsTheDrawingWithTheUpdateRectangle)
{
    wintest::Watched() = {WM_PAINT};
    RECT dirty = {2, 3, 12, 13};
    InvalidateRect((*child)(), &dirty, FALSE);
    UpdateWindow((*child)());
    EXPECT_EQ(Log(), (Lines{"c.vDraw((2,3,12,13))", DefaultLine("c", WM_PAINT)}));
    EXPECT_FALSE(GetUpdateRect((*child)(), nullptr, FALSE));

    Log().clear();
    child->Answer("vDraw", 1);
    InvalidateRect((*child)(), &dirty, FALSE);
    UpdateWindow((*child)());
    EXPECT_EQ(Log(), Lines{"c.vDraw((2,3,12,13))"});
    EXPECT_FALSE(GetUpdateRect((*child)(), nullptr, FALSE));
}

TEST_F(DispatchTest, TheBackgroundIsErasedInItsColour)
{
    child->Answer("vDraw", 1);
    vLINESPEC before = child->LineSpec();
    child->BackgroundColour(vCOLOUR(10, 200, 30));
    InvalidateRect((*child)(), nullptr, TRUE);
    UpdateWindow((*child)());
    EXPECT_EQ(Log(), (Lines{"c.vEraseBkg()", "c.vDraw((0,0,80,60))"}));
    HDC dc = GetDC((*child)());
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(10, 200, 30));
    EXPECT_EQ(GetPixel(dc, 79, 59), RGB(10, 200, 30));
    ReleaseDC((*child)(), dc);
    EXPECT_EQ(child->FillSpec().Colour(), vCOLOUR(10, 200, 30));
    EXPECT_TRUE(child->LineSpec() == before);
}

TEST_F(DispatchTest, WithoutEraseTheBackgroundCountsAsErased)
{
    wintest::Watched() = {WM_ERASEBKGND};
    HDC dc = GetDC((*child)());
    Run({"erase", WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0, {}, {"c.vEraseBkg()"}, false, 1});
    child->flags &= ~WINF_ERASE;
    Run({"no erase", WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0, {}, {}, false, 1});
    ReleaseDC((*child)(), dc);
}

TEST_F(DispatchTest, ARefusedCloseAlsoRefusesDroppedFiles)
{
    child->DropRegister(0);
    child->Answer("vQueryClose", 0);
    SendMessageA((*child)(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow((*child)()));
    EXPECT_EQ(GetWindowLongA((*child)(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0);
    child->Answer("vQueryClose", 1);
    SendMessageA((*child)(), WM_CLOSE, 0, 0);
    EXPECT_EQ(Only("c."), (Lines{"c.vQueryClose()", "c.vQueryClose()", "c.~RECORDER"}));
}

TEST_F(DispatchTest, DropRegisterReplacesEveryExtendedStyle)
{
    SetWindowLongA((*child)(), GWL_EXSTYLE, WS_EX_CLIENTEDGE);
    child->DropRegister(7);
    EXPECT_EQ(GetWindowLongA((*child)(), GWL_EXSTYLE), WS_EX_ACCEPTFILES);
}

TEST_F(DispatchTest, CommandsFromChildrenNotifyTheirPeers)
{
    RECORDER peer(*child, vRECT(0, 0, 5, 5), "peer", WF_NONE, 21);
    RECORDER source(*child, vRECT(10, 0, 15, 5), "source", WF_NONE, 20);
    peer.SetDepend(&source);
    Run({"from a library child", WM_COMMAND, MAKEWPARAM(20, 4), 0, {},
         {"peer.UpdateView(20)", "c.vCommand(20)"}, true, 0});
    Run({"from no child", WM_COMMAND, MAKEWPARAM(99, 0), 0, {}, {"c.vCommand(99)"}, true, 0});
    Run({"from a menu", WM_COMMAND, MAKEWPARAM(0, 0), 0, {}, {"c.vCommand(0)"}, true, 0});
    DestroyWindow(peer());
    DestroyWindow(source());
}

TEST_F(DispatchTest, PaletteChangesRepaintOnlyFromTheForeground)
{
    TraceLevel level(1);
    zktest::TraceCapture capture;
    ValidateRect((*child)(), nullptr);
    SendMessageA((*child)(), vSYSTEM::GetPaletteChangeMsg(), 0, 0);
    EXPECT_FALSE(GetUpdateRect((*child)(), nullptr, FALSE));
    SendMessageA((*child)(), vSYSTEM::GetPaletteChangeMsg(), 1, 0);
    EXPECT_TRUE(GetUpdateRect((*child)(), nullptr, FALSE));
    SendMessageA((*child)(), WM_DROPFILES, 0, 0);
    EXPECT_EQ(capture.Lines(), (Lines{"Trace: vWIN - DoPaletteChanged", "Trace: vWIN - DoPaletteChanged",
                                      "Trace: DoPaletteChanged - Invalidate", "Trace: vWIN::WM_DROPFILES"}));
}

TEST_F(DispatchTest, ThePointerIsClaimedOnMoveAndRefusedWhenOff)
{
    vPOINTER::ActiveOwner(&Top());
    vPOINTER::Off();
    SendMessageA((*child)(), WM_MOUSEMOVE, 0, MAKELPARAM(1, 1));
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), child);
    Run({"cursor of the claimed pointer", WM_SETCURSOR, reinterpret_cast<WPARAM>((*child)()), HTCLIENT, {}, {},
         false, 1});
    vPOINTER::Off();
    wintest::Watched() = {WM_SETCURSOR};
    Log().clear();
    SendMessageA((*child)(), WM_SETCURSOR, reinterpret_cast<WPARAM>((*child)()), HTCLIENT);
    EXPECT_EQ(Only("c "), Lines{DefaultLine("c", WM_SETCURSOR)});
}

TEST_F(DispatchTest, AFlaggedFailureSurfacesAtTheNextMessage)
{
    DEFEXCEP& failure = vSYSTEM::GetDefaultException();
    lstrcpyA(failure.MessageText(), "Window test out of memory");
    lstrcpyA(failure.CaptionText(), "Window Test Caption");
    zktest::BoxWatcher watcher("Window Test Caption", IDOK);
    vSYSTEM::SetExceptionFlag(1);
    wintest::Watched() = {WM_USER + 1};
    SendMessageA((*child)(), WM_USER + 1, 0, 0);
    EXPECT_EQ(Only("default"), Lines{DefaultLine("c", WM_USER + 1)});
    EXPECT_TRUE(watcher.Seen());
    EXPECT_EQ(watcher.Text(), "Window test out of memory");
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 0);
}

// Frame dragging, through the non-client messages.

TEST_F(DispatchTest, NonClientPressesOutsideTheFrameClearTheDrag)
{
    vWIN::fBorderDrag = 1;
    Run({"client press", WM_NCLBUTTONDOWN, HTCLIENT, 0, {}, {}, true, 0});
    EXPECT_EQ(vWIN::fBorderDrag, 0);
    Run({"release after no drag", WM_NCLBUTTONUP, HTCAPTION, 0, {}, {}, true, 0});
    Run({"non-client move", WM_NCMOUSEMOVE, HTCAPTION, 0, {}, {}, true, 0});
}

TEST_F(DispatchTest, APressWithoutMoveSizesTheWindowUnchanged)
{
    Run({"caption press", WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(110, 110), {},
         {"c.vBorderDrag((0,0,80,60),null)", "c.vBorderDrag((0,0,80,60),null)", "c.Size((0,0,80,60))"}, false, 0});
    EXPECT_EQ(vWIN::fBorderDrag, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DispatchTest, AReleaseDuringADragDrawsTheFrameOnceMore)
{
    vWIN::fBorderDrag = 1;
    Run({"release", WM_NCLBUTTONUP, HTCAPTION, 0, {}, {"c.vBorderDrag((0,0,80,60),null)"}, false, 0});
    EXPECT_EQ(vWIN::fBorderDrag, 0);
}

// Drags the right edge by the given distance with the real mouse, from a
// thread of its own, while the window runs its drag loop.
struct EDGEDRAG {
    POINT start;
    int distance;

    static DWORD WINAPI Drive(void* self)
    {
        EDGEDRAG& drag = *static_cast<EDGEDRAG*>(self);
        Sleep(100);
        MoveTo({drag.start.x + drag.distance, drag.start.y});
        Sleep(100);
        Button(MOUSEEVENTF_LEFTUP);
        return 0;
    }

    void Run(HWND window)
    {
        MoveTo(start);
        Button(MOUSEEVENTF_LEFTDOWN);
        HANDLE driver = CreateThread(nullptr, 0, Drive, this, 0, nullptr);
        SendMessageA(window, WM_NCLBUTTONDOWN, HTRIGHT, MAKELPARAM(start.x, start.y));
        WaitForSingleObject(driver, 5000);
        CloseHandle(driver);
        wintest::Pump();
    }
};

// The window starts wider than the platform's minimum, which every move of
// the frame applies.
TEST_F(DispatchTest, DraggingAnEdgeResizesThroughTheFrame)
{
    child->Size(vRECT(0, 0, 200, 60));
    Log().clear();
    EDGEDRAG drag = {OnScreen((*child)(), 199, 30), 20};
    drag.Run((*child)());
    Lines frames = Only("vBorderDrag");
    ASSERT_GE(frames.size(), 3u);
    EXPECT_EQ(frames.front(), "c.vBorderDrag((0,0,200,60),null)");
    EXPECT_NE(std::find(frames.begin(), frames.end(), "c.vBorderDrag((0,0,220,60),(0,0,200,60))"), frames.end());
    EXPECT_EQ(frames.back(), "c.vBorderDrag((0,0,220,60),null)");
    EXPECT_EQ(Only(".Size"), Lines{"c.Size((0,0,220,60))"});
    EXPECT_EQ(child->Width(), vINT(220));
    EXPECT_EQ(vWIN::fBorderDrag, 0);
}

TEST_F(DispatchTest, AnEdgeDraggedPastTheOtherStopsAtTheMinimum)
{
    child->Size(vRECT(0, 0, 200, 60));
    Log().clear();
    EDGEDRAG drag = {OnScreen((*child)(), 199, 30), -150};
    drag.Run((*child)());
    std::string minimum = std::to_string(GetSystemMetrics(SM_CXMIN));
    EXPECT_EQ(Only(".Size"), Lines{"c.Size((0,0," + minimum + ",60))"});
}

// Drags with the mouse, and the drop windows under it.

class MouseTest : public DispatchTest {
protected:
    void TearDown() override
    {
        SwapMouseButton(FALSE);
        Button(MOUSEEVENTF_LEFTUP);
        Button(MOUSEEVENTF_RIGHTUP);
        wintest::Pump();
        EnableWindow(Top()(), TRUE);
        DispatchTest::TearDown();
    }

    void Move(int x, int y)
    {
        MoveTo(OnScreen((*child)(), x, y));
        wintest::Pump();
    }
};

TEST_F(MouseTest, LeavingTheHotZoneWithTheButtonDownStartsADrag)
{
    vWIN::rectDragHotZone = vRECT(35, 25, 45, 35);
    Move(40, 30);
    Button(MOUSEEVENTF_LEFTDOWN);
    Move(42, 30);
    Move(50, 30);
    Button(MOUSEEVENTF_LEFTUP);
    wintest::Pump();
    Lines upToTheDrag(Log().begin(), std::find(Log().begin(), Log().end(), "c.vDragInit((50,30))") + 1);
    EXPECT_EQ(upToTheDrag, (Lines{"c.vMouseMove((40,30))", "c.vMouseLeftPress((40,30))", "c.vMouseMove((42,30))",
                                  "c.vDragInit((50,30))"}));
    EXPECT_EQ(Only("Drag"), Lines{"c.vDragInit((50,30))"});
    EXPECT_EQ(Only("Release"), Lines{"c.vMouseLeftRelease((50,30))"});
    EXPECT_EQ(child->isDragging, 0);
}

TEST_F(MouseTest, AnEmptyHotZoneStartsNoDrag)
{
    Move(40, 30);
    Button(MOUSEEVENTF_LEFTDOWN);
    Move(60, 50);
    Button(MOUSEEVENTF_LEFTUP);
    wintest::Pump();
    EXPECT_EQ(Only("Drag"), Lines{});
    EXPECT_EQ(Only("Move").back(), "c.vMouseMove((60,50))");
}

TEST_F(MouseTest, WithSwappedButtonsTheRightButtonDrags)
{
    vWIN::rectDragHotZone = vRECT(35, 25, 45, 35);
    SwapMouseButton(TRUE);
    Move(40, 30);
    Button(MOUSEEVENTF_RIGHTDOWN);
    Move(50, 30);
    EXPECT_EQ(Only("Drag"), Lines{"c.vDragInit((50,30))"});
}

TEST_F(MouseTest, MovesDuringADragAskForTheDropWindow)
{
    child->isDragging = 1;
    Run({"over nothing that takes files", WM_MOUSEMOVE, 0, MAKELPARAM(40, 30), {},
         {"c.vDragFeedback(0,(40,30))"}, false, 0});
    Top().DropRegister(0);
    Run({"over a child of a window that takes files", WM_MOUSEMOVE, 0, MAKELPARAM(40, 30), {},
         {"c.vDragFeedback(1,(40,30))"}, false, 0});
    EnableWindow(Top()(), FALSE);
    Run({"under a disabled window", WM_MOUSEMOVE, 0, MAKELPARAM(40, 30), {}, {"c.vDragFeedback(0,(40,30))"}, false,
         0});
    SetWindowLongA(Top()(), GWL_EXSTYLE, 0);
    child->DropRegister(0);
    Run({"a taker in a disabled window", WM_MOUSEMOVE, 0, MAKELPARAM(40, 30), {}, {"c.vDragFeedback(0,(40,30))"},
         false, 0});
    EnableWindow(Top()(), TRUE);
    Run({"a taker in an enabled window", WM_MOUSEMOVE, 0, MAKELPARAM(40, 30), {}, {"c.vDragFeedback(1,(40,30))"},
         false, 0});
    child->isDragging = 0;
}

// Windows of an application.

class ApplicationWindowTest : public apptest::FrameTest {};

TEST_F(ApplicationWindowTest, ATopLevelWindowStandsUnderTheFrame)
{
    TraceLevel level(1);
    zktest::TraceCapture capture;
    RECORDER* window = new RECORDER(*app, vRECT(1, 2, 41, 32), "w");
    EXPECT_EQ(GetParent((*window)()), frame);
    EXPECT_EQ(window->Application(), app);
    EXPECT_EQ(window->Parent(), nullptr);
    EXPECT_EQ(window->Size(), vRECT(1, 2, 41, 32));
    Lines lines = capture.Lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "Trace: vWIN::vWIN(...)");
    EXPECT_EQ(lines[1].rfind("Trace: CreateWindow ", 0), 0u);
}

TEST_F(ApplicationWindowTest, ABusyApplicationShowsTheWaitCursor)
{
    RECORDER* window = new RECORDER(*app, vRECT(0, 0, 40, 30), "w");
    app->BusyOn();
    SetCursor(nullptr);
    EXPECT_EQ(SendMessageA((*window)(), WM_SETCURSOR, reinterpret_cast<WPARAM>((*window)()), HTCLIENT), 1);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
    app->BusyOff();
}

TEST_F(ApplicationWindowTest, TheKillMessageClosesTheApplication)
{
    RECORDER* window = new RECORDER(*app, vRECT(0, 0, 40, 30), "w");
    wintest::Watched() = {vSYSTEM::GetZKKillMsg()};
    SendMessageA((*window)(), vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_EQ(Log(), Lines{DefaultLine("w", vSYSTEM::GetZKKillMsg())});
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, frame, WM_CLOSE, WM_CLOSE, PM_REMOVE));
}

}  // namespace
