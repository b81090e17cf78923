#include <cstdio>
#include <new>
#include <optional>

#include "app/recorder.h"

using wintest::Log;
using wintest::RECORDER;
using wintest::WindowTest;
using Lines = std::vector<std::string>;

namespace {

RECORDER* Bound(HWND window)
{
    return static_cast<RECORDER*>(RECORDER::Instance(window));
}

// The window's rectangle in its parent's client coordinates.
RECT PlacedAt(HWND window)
{
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
    return box;
}

std::string Hex(HWND window)
{
    char text[32];
    unsigned handle = static_cast<unsigned>(reinterpret_cast<UINT_PTR>(window));
    std::snprintf(text, sizeof text, "Trace: CreateWindow %x", handle);
    return text;
}

// Puts the windows in the platform's child list in the order given, which
// is the order in which the update pass meets them.
void Order(std::initializer_list<RECORDER*> windows)
{
    for (RECORDER* window : windows)
        SetWindowPos((*window)(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

using wintest::TraceLevel;

}  // namespace

// Construction, binding and subclassing.

TEST_F(WindowTest, ParentConstructorMakesABoundSubclassedChild)
{
    RECORDER child(Top(), vRECT(10, 20, 110, 100), "c", WF_NONE, 7);

    ASSERT_TRUE(IsWindow(child()));
    EXPECT_EQ(GetParent(child()), Top()());
    EXPECT_EQ(Bound(child()), &child);
    EXPECT_EQ(GetWindowLongPtrA(child(), GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(GenericProc));
    EXPECT_EQ(child.pfnOldProc, wintest::RecordingDefault);
    EXPECT_EQ(child.pParent, &Top());
    EXPECT_EQ(child.Parent(), &Top());
    EXPECT_EQ(child.Application(), nullptr);
    EXPECT_EQ(child.Width(), vINT(100));
    EXPECT_EQ(child.Height(), vINT(80));
    RECT placed = PlacedAt(child());
    EXPECT_EQ(placed.left, 10);
    EXPECT_EQ(placed.top, 20);
    EXPECT_EQ(placed.right, 110);
    EXPECT_EQ(placed.bottom, 100);
    EXPECT_EQ(child.Size(), vRECT(10, 20, 110, 100));
    EXPECT_EQ(child.flags, WINF_ERASE);
    EXPECT_EQ(child.updateFlags, 0);
    EXPECT_EQ(child.DrawMode(), vDRAW_COPY);
    EXPECT_EQ(child.BackgroundColour().PackedRGB(), vDEVICE::GetScreen().Colour(vSCREEN_WINDOW).PackedRGB());
    EXPECT_EQ(vWIN::NewedThis, nullptr);
    EXPECT_NE(child.Pointer(), nullptr);
    DestroyWindow(child());
}

TEST_F(WindowTest, WindowFlagsChooseTheStyle)
{
    struct ROW {
        vWNDFLAGS flags;
        DWORD style;
    } rows[] = {
        {WF_NONE, 0x46000000},
        {WF_BORDER, 0x46800000},
        {WF_SIZING, 0x46040000},
        {WF_BORDER | WF_SIZING, 0x46840000},
        {WF_POPUP, 0x80840000},
    };
    for (const ROW& row : rows) {
        vWIN window(Top(), vRECT(0, 0, 50, 40), row.flags);
        EXPECT_EQ(vWIN::CreateParams.dwStyle, row.style) << row.flags;
        EXPECT_STREQ(vWIN::CreateParams.szClassName, "GENERIC");
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongA(window(), GWL_STYLE)) & row.style, row.style) << row.flags;
        DestroyWindow(window());
    }
}

TEST_F(WindowTest, OnlyTheMatchingClassIdentifierCreates)
{
    vWIN deferred(Top(), vRECT(0, 0, 50, 40), WF_NONE, CLASSID_CAPWIN);
    EXPECT_EQ(deferred(), nullptr);
    EXPECT_EQ(deferred.Width(), vINT(50));
    EXPECT_EQ(vWIN::CreateParams.hParent, Top()());
}

TEST_F(WindowTest, ConstructionTracesAroundCreation)
{
    TraceLevel level(1);
    zktest::TraceCapture capture;
    HWND made;
    {
        vWIN window(Top(), vRECT(0, 0, 20, 20));
        made = window();
        DestroyWindow(made);
    }
    EXPECT_EQ(capture.Lines(), (Lines{Hex(made), "Trace: vWIN::vWIN(...)", "Trace: vWIN::~vWIN()"}));
}

TEST_F(WindowTest, CreateParamsCopyEveryField)
{
    vCREATEPARAMS fresh;
    EXPECT_EQ(fresh.rect, vRECT(0, 0, 0, 0));
    vCREATEPARAMS filled;
    lstrcpyA(filled.szClassName, "button");
    filled.pfnClassProc = DefMDIChildProcA;
    filled.lpszTitle = "title";
    filled.dwStyle = 0x1234;
    filled.rect = vRECT(1, 2, 3, 4);
    filled.hMenuOrId = reinterpret_cast<HMENU>(9);
    filled.hParent = Top()();
    fresh = filled;
    EXPECT_STREQ(fresh.szClassName, "button");
    EXPECT_EQ(fresh.pfnClassProc, DefMDIChildProcA);
    EXPECT_STREQ(fresh.lpszTitle, "title");
    EXPECT_EQ(fresh.dwStyle, 0x1234u);
    EXPECT_EQ(fresh.rect, vRECT(1, 2, 3, 4));
    EXPECT_EQ(fresh.hMenuOrId, reinterpret_cast<HMENU>(9));
    EXPECT_EQ(fresh.hParent, Top()());
}

TEST_F(WindowTest, WrappingConstructorNeitherBindsNorSubclasses)
{
    HWND window = CreateWindowExA(0, "ZKRECORD", nullptr, WS_CHILD, 0, 0, 10, 10, Top()(), nullptr,
                                  vSYSTEM::Pointer()->GetInstance(), nullptr);
    vWIN::NewedThis = &Top();
    vWIN::fBorderDrag = 1;
    {
        vWIN wrapped(window, vRESID(5, vSYSTEM::Pointer()));
        EXPECT_EQ(wrapped(), window);
        EXPECT_EQ(Bound(window), nullptr);
        EXPECT_EQ(GetWindowLongPtrA(window, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(wintest::RecordingDefault));
        EXPECT_EQ(wrapped.ResTemplate()(), 5);
        EXPECT_EQ(wrapped.Width(), vINT(0));
        EXPECT_EQ(wrapped.Application(), nullptr);
        EXPECT_EQ(vWIN::NewedThis, nullptr);
        EXPECT_EQ(vWIN::fBorderDrag, 0);
    }
    EXPECT_TRUE(IsWindow(window));
    DestroyWindow(window);
}

// Ownership and destruction.

TEST_F(WindowTest, NewedWindowIsDeletedWhenItsPlatformWindowDies)
{
    wintest::Watched() = {WM_DESTROY};
    RECORDER* child = new RECORDER(Top(), vRECT(0, 0, 30, 30), "n");
    EXPECT_EQ(child->flags, WINF_ERASE | WINF_NEWED);
    EXPECT_EQ(vWIN::IsNewed, 0);
    HWND window = (*child)();
    DestroyWindow(window);
    EXPECT_EQ(Log(), (Lines{"n.~RECORDER", "n default 2"}));
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(WindowTest, DeletingNewedWindowDestroysItsPlatformWindowOnce)
{
    wintest::Watched() = {WM_DESTROY};
    RECORDER* child = new RECORDER(Top(), vRECT(0, 0, 30, 30), "n");
    HWND window = (*child)();
    delete child;
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(Log(), (Lines{"n.~RECORDER", "n default 2"}));
}

TEST_F(WindowTest, MemberWindowSurvivesItsPlatformWindow)
{
    wintest::Watched() = {WM_DESTROY};
    RECORDER member(Top(), vRECT(0, 0, 30, 30), "m");
    HWND window = member();
    DestroyWindow(window);
    EXPECT_EQ(Log(), Lines{"m default 2"});
    EXPECT_EQ(member(), window);
    EXPECT_EQ(Bound(window), nullptr);
    EXPECT_EQ(member.flags, WINF_ERASE);
}

TEST_F(WindowTest, NewedChildrenGoWithTheirParentAndMembersStay)
{
    RECORDER middle(Top(), vRECT(0, 0, 100, 100), "middle");
    new RECORDER(middle, vRECT(0, 0, 10, 10), "newed");
    RECORDER member(middle, vRECT(20, 0, 30, 10), "member");
    DestroyWindow(middle());
    EXPECT_EQ(Log(), Lines{"newed.~RECORDER"});
}

TEST_F(WindowTest, CopyIsASecondViewOfTheSameWindow)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c", WF_NONE, 4);
    // The copy holds the original's owned objects without owning them, so
    // it is never destroyed here.
    alignas(vWIN) unsigned char storage[sizeof(vWIN)];
    vWIN* copy = ::new (storage) vWIN(child);
    EXPECT_EQ((*copy)(), child());
    EXPECT_EQ(copy->Pointer(), child.Pointer());
    EXPECT_EQ(copy->GetID(), child.GetID());
    EXPECT_EQ(copy->Width(), child.Width());
    EXPECT_EQ(copy->Parent(), &Top());
    EXPECT_EQ(Bound(child()), &child);
    DestroyWindow(child());
}

// Geometry, visibility and the one-line operations.

TEST_F(WindowTest, SizeMovesAChildInItsParentsUnits)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c");
    child.Size(vRECT(5, 6, 65, 46));
    RECT placed = PlacedAt(child());
    EXPECT_EQ(placed.left, 5);
    EXPECT_EQ(placed.top, 6);
    EXPECT_EQ(placed.right, 65);
    EXPECT_EQ(placed.bottom, 46);
    EXPECT_EQ(child.Width(), vINT(60));
    EXPECT_EQ(child.Height(), vINT(40));
    EXPECT_EQ(child.Size(), vRECT(5, 6, 65, 46));
    EXPECT_EQ(child.ClientSize(), vRECT(0, 0, 60, 40));
    DestroyWindow(child());
}

TEST_F(WindowTest, SizePlacesAPopupFromItsOwnersClientCorner)
{
    RECORDER popup(Top(), vRECT(0, 0, 30, 20), "p", WF_POPUP);
    popup.Size(vRECT(10, 15, 210, 175));
    POINT origin = {0, 0};
    ClientToScreen(Top()(), &origin);
    RECT box;
    GetWindowRect(popup(), &box);
    EXPECT_EQ(box.left, origin.x + 10);
    EXPECT_EQ(box.top, origin.y + 15);
    EXPECT_EQ(box.right - box.left, 200);
    EXPECT_EQ(box.bottom - box.top, 160);
    EXPECT_EQ(popup.Width(), vINT(200));
    EXPECT_EQ(popup.Height(), vINT(160));
    DestroyWindow(popup());
}

TEST_F(WindowTest, ShowHideAndEnable)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c");
    EXPECT_TRUE(child.IsHidden());
    child.Show(1);
    EXPECT_TRUE(child.IsVisible());
    EXPECT_FALSE(child.IsHidden());
    child.Hide();
    EXPECT_TRUE(child.IsHidden());
    Lines shown;
    for (const std::string& line : Log())
        if (line.find("Show") != std::string::npos)
            shown.push_back(line);
    EXPECT_EQ(shown, (Lines{"c.Show(1)", "c.Show(0)"}));

    EXPECT_TRUE(child.Enabled());
    EXPECT_EQ(child.Disable(), 0);
    EXPECT_FALSE(child.Enabled());
    EXPECT_NE(child.Enable(1), 0);
    EXPECT_TRUE(child.Enabled());
    DestroyWindow(child());
}

TEST_F(WindowTest, CloseAsksAndTheDefaultClosesTheWindow)
{
    RECORDER* child = new RECORDER(Top(), vRECT(0, 0, 30, 20), "c");
    child->Close();
    EXPECT_EQ(Log(), (Lines{"c.vQueryClose()", "c.~RECORDER"}));
}

TEST_F(WindowTest, ChildFindsOnlyLibraryWindowsByIdentifier)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c", WF_NONE, 12);
    HWND foreign = CreateWindowExA(0, "STATIC", nullptr, WS_CHILD, 0, 0, 5, 5, Top()(),
                                   reinterpret_cast<HMENU>(13), nullptr, nullptr);
    EXPECT_EQ(Top().Child(12), &child);
    EXPECT_EQ(Top().Child(13), nullptr);
    EXPECT_EQ(Top().Child(0), nullptr);
    DestroyWindow(foreign);
    DestroyWindow(child());
}

TEST_F(WindowTest, FocusedAndActiveWindowsAreFoundThroughTheBinding)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c");
    child.Show(1);
    child.GetFocus();
    EXPECT_EQ(GetFocus(), child());
    EXPECT_EQ(vWIN::FocusedWindow(), &child);
    EXPECT_EQ(vWIN::ActiveWindow(), &Top());
    HWND foreign = CreateWindowExA(0, "STATIC", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, Top()(), nullptr, nullptr,
                                   nullptr);
    SetFocus(foreign);
    EXPECT_EQ(GetFocus(), foreign);
    EXPECT_EQ(vWIN::FocusedWindow(), nullptr);
    DestroyWindow(foreign);
    DestroyWindow(child());
}

TEST_F(WindowTest, PointsConvertBetweenClientAndScreen)
{
    RECORDER child(Top(), vRECT(20, 30, 80, 90), "c");
    POINT origin = {0, 0};
    ClientToScreen(child(), &origin);
    EXPECT_EQ(child.ClientToScreen(vPOINT(3, 4)), vPOINT(origin.x + 3, origin.y + 4));
    EXPECT_EQ(child.ScreenToClient(vPOINT(origin.x - 2, origin.y + 7)), vPOINT(-2, 7));
    DestroyWindow(child());
}

TEST_F(WindowTest, InvalidateMarksTheRectangleForErasing)
{
    RECORDER child(Top(), vRECT(0, 0, 80, 60), "c");
    child.Show(1);
    ValidateRect(child(), nullptr);
    child.Invalidate(vRECT(5, 6, 25, 16));
    RECT pending;
    ASSERT_TRUE(GetUpdateRect(child(), &pending, FALSE));
    EXPECT_EQ(pending.left, 5);
    EXPECT_EQ(pending.top, 6);
    EXPECT_EQ(pending.right, 25);
    EXPECT_EQ(pending.bottom, 16);
    DestroyWindow(child());
}

TEST_F(WindowTest, TheOneTimerIsIdentifierOne)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c");
    EXPECT_EQ(child.SetTimer(5), 1);
    MSG message;
    DWORD deadline = GetTickCount() + 5000;
    while (Log().empty() && GetTickCount() < deadline && GetMessageA(&message, nullptr, 0, 0))
        DispatchMessageA(&message);
    child.KillTimer();
    ASSERT_FALSE(Log().empty());
    EXPECT_EQ(Log().front(), "c.vTimer(1)");
    DestroyWindow(child());
}

TEST_F(WindowTest, BackgroundColourAndDrawModeReachTheContext)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c");
    child.BackgroundColour(vCOLOUR(10, 20, 30));
    EXPECT_EQ(child.BackgroundColour(), vCOLOUR(10, 20, 30));
    EXPECT_EQ(GetBkColor(vDEVICE::GetZKDC()), RGB(10, 20, 30));
    child.DrawMode(vDRAW_XOR);
    EXPECT_EQ(child.DrawMode(), vDRAW_XOR);
    EXPECT_EQ(GetROP2(vDEVICE::GetZKDC()), R2_XORPEN);
    child.DrawMode(vDRAW_COPY);
    EXPECT_EQ(GetROP2(vDEVICE::GetZKDC()), R2_COPYPEN);
    child.ReleaseDC();
    DestroyWindow(child());
}

TEST_F(WindowTest, APopupMaximisesAndComesBack)
{
    RECORDER popup(Top(), vRECT(0, 0, 200, 160), "p", WF_POPUP);
    popup.Maximise();
    EXPECT_TRUE(popup.IsMaximised());
    popup.Normalise();
    EXPECT_FALSE(popup.IsMaximised());
    EXPECT_FALSE(popup.IsIconized());
    DestroyWindow(popup());
}

TEST_F(WindowTest, BordersAndIconComeFromThePlatform)
{
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c");
    EXPECT_EQ(child.BorderWidth(), vINT(GetSystemMetrics(SM_CXFRAME)));
    EXPECT_EQ(child.BorderHeight(), vINT(GetSystemMetrics(SM_CYFRAME)));
    HICON before = reinterpret_cast<HICON>(GetClassLongPtrA(child(), GCLP_HICON));
    child.SetIcon(vRESID(32516, static_cast<const vMODULE*>(nullptr)));
    EXPECT_EQ(reinterpret_cast<HICON>(GetClassLongPtrA(child(), GCLP_HICON)), LoadIconA(nullptr, IDI_ASTERISK));
    SetClassLongPtrA(child(), GCLP_HICON, reinterpret_cast<LONG_PTR>(before));
    DestroyWindow(child());
}

TEST_F(WindowTest, ABorderIsLitFromTheTopLeft)
{
    RECORDER child(Top(), vRECT(0, 0, 60, 40), "c");
    child.Answer("vDraw", 1);
    child.BackgroundColour(vCOLOUR(0, 0, 128));
    child.Show(1);
    child.Invalidate();
    UpdateWindow(child());
    child.DrawBorder(vRECT(5, 5, 30, 20), 1);
    child.DrawBorder(vRECT(35, 5, 55, 20), 0);
    child.ReleaseDC();
    COLORREF light = vDEVICE::GetScreen().Colour(vSCREEN_BUTTONHIGHLIGHT).PackedRGB();
    COLORREF dark = vDEVICE::GetScreen().Colour(vSCREEN_BUTTONSHADOW).PackedRGB();
    HDC dc = GetDC(child());
    EXPECT_EQ(GetPixel(dc, 5, 12), light);
    EXPECT_EQ(GetPixel(dc, 15, 5), light);
    EXPECT_EQ(GetPixel(dc, 30, 12), dark);
    EXPECT_EQ(GetPixel(dc, 15, 20), dark);
    EXPECT_EQ(GetPixel(dc, 35, 12), dark);
    EXPECT_EQ(GetPixel(dc, 45, 5), dark);
    EXPECT_EQ(GetPixel(dc, 55, 12), light);
    EXPECT_EQ(GetPixel(dc, 45, 20), light);
    EXPECT_EQ(GetPixel(dc, 15, 12), RGB(0, 0, 128));
    ReleaseDC(child(), dc);
    DestroyWindow(child());
}

// The rubber frame is drawn on the screen in exclusive-or, so each pixel it
// paints is the one before with the frame's grey toggled in.
class FrameRingTest : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        child.emplace(Top(), vRECT(0, 0, 10, 10), "c");
        screen = GetDC(nullptr);
        for (POINT at : probes)
            before.push_back(At(at));
    }

    void TearDown() override
    {
        ReleaseDC(nullptr, screen);
        DestroyWindow((*child)());
        child.reset();
        vDEVICE::GetScreen().DrawMode(vDRAW_COPY);
        WindowTest::TearDown();
    }

    // A pixel of the screen, the point given in the parent's client units.
    COLORREF At(POINT at)
    {
        ClientToScreen(Top()(), &at);
        return GetPixel(screen, at.x, at.y);
    }

    // Which of the probes now differ from what the screen showed at first.
    std::vector<bool> Toggled()
    {
        std::vector<bool> toggled;
        for (size_t i = 0; i < probes.size(); ++i) {
            COLORREF now = At(probes[i]);
            EXPECT_TRUE(now == before[i] || now == (before[i] ^ RGB(0x55, 0x55, 0x55))) << i;
            toggled.push_back(now != before[i]);
        }
        return toggled;
    }

    // The left edge of the first frame, the top edge both frames share, the
    // inside of both, and the left edge of the second frame.
    const std::vector<POINT> probes = {{20, 50}, {70, 20}, {70, 50}, {60, 50}};
    std::vector<COLORREF> before;
    std::optional<RECORDER> child;
    HDC screen = nullptr;
};

TEST_F(FrameRingTest, TheRingTogglesAndAMoveRepaintsOnlyTheDifference)
{
    vRECT first(20, 20, 120, 100);
    vRECT second(60, 20, 160, 100);
    child->DrawWinFrame(&first, nullptr);
    EXPECT_EQ(Toggled(), (std::vector<bool>{true, true, false, false}));
    child->DrawWinFrame(&first, &first);
    EXPECT_EQ(Toggled(), (std::vector<bool>{true, true, false, false}));
    child->DrawWinFrame(&second, &first);
    EXPECT_EQ(Toggled(), (std::vector<bool>{false, true, false, true}));
    child->DrawWinFrame(&second, nullptr);
    EXPECT_EQ(Toggled(), (std::vector<bool>{false, false, false, false}));
    EXPECT_EQ(vDEVICE::GetScreen().FillSpec().Colour().PackedRGB(), RGB(0x55, 0x55, 0x55));
}

// Dependencies and the update pass.

class DependencyTest : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        for (unsigned short id = 1; id <= 4; ++id)
            windows.push_back(new RECORDER(Top(), vRECT(0, 0, 5, 5), std::string(1, 'a' + id - 1), WF_NONE, id));
        a = windows[0];
        b = windows[1];
        c = windows[2];
        d = windows[3];
        Log().clear();
    }

    void TearDown() override
    {
        for (RECORDER* window : windows)
            DestroyWindow((*window)());
        Log().clear();
        WindowTest::TearDown();
    }

    std::vector<RECORDER*> windows;
    RECORDER* a = nullptr;
    RECORDER* b = nullptr;
    RECORDER* c = nullptr;
    RECORDER* d = nullptr;
};

TEST_F(DependencyTest, SetDependListsAndMarksTheOther)
{
    EXPECT_EQ(b->SetDepend(nullptr), 0);
    EXPECT_EQ(b->pDepends->NoItems(), 0);
    EXPECT_EQ(b->SetDepend(a), 1);
    EXPECT_EQ(a->flags & WINF_HASDEPENDENTS, WINF_HASDEPENDENTS);
    EXPECT_EQ(b->flags & WINF_HASDEPENDENTS, 0);
    EXPECT_EQ(b->GetDependOnWindow(1), a);
    EXPECT_EQ(b->GetDependOnWindow(3), nullptr);
    EXPECT_EQ(a->GetDependOnWindow(1), nullptr);
}

TEST_F(DependencyTest, AMissingListIsMadeOnDemand)
{
    delete c->pDepends;
    c->pDepends = nullptr;
    EXPECT_EQ(c->GetDependOnWindow(1), nullptr);
    EXPECT_EQ(c->SetDepend(a), 1);
    EXPECT_EQ(c->GetDependOnWindow(1), a);
}

TEST_F(DependencyTest, AChangeUpdatesTheChainButNotItsSource)
{
    b->SetDepend(a);
    c->SetDepend(b);
    Order({a, b, c, d});
    a->NotifyPeerControls(1);
    EXPECT_EQ(Log(), (Lines{"b.UpdateView(1)", "c.UpdateView(1)"}));
    for (RECORDER* window : windows)
        EXPECT_EQ(window->updateFlags, 0) << window->name;
}

TEST_F(DependencyTest, AWindowReachedTwiceUpdatesOnce)
{
    b->SetDepend(a);
    c->SetDepend(a);
    d->SetDepend(b);
    d->SetDepend(c);
    Order({a, b, c, d});
    a->NotifyPeerControls(1);
    EXPECT_EQ(Log(), (Lines{"b.UpdateView(1)", "d.UpdateView(1)", "c.UpdateView(1)"}));
    for (RECORDER* window : windows)
        EXPECT_EQ(window->updateFlags, 0) << window->name;
}

TEST_F(DependencyTest, ASiblingWaitingForTwoEndsTheWalk)
{
    b->SetDepend(a);
    c->SetDepend(a);
    d->SetDepend(b);
    d->SetDepend(c);
    Order({a, d, b, c});
    a->NotifyPeerControls(1);
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(a->updateFlags, 0);
    EXPECT_EQ(b->updateFlags, WINUPD_MARKED);
    EXPECT_EQ(c->updateFlags, WINUPD_MARKED);
    EXPECT_EQ(d->updateFlags, WINUPD_MARKED);
}

TEST_F(DependencyTest, AnUnrelatedSiblingWaitingForTwoAlsoEndsTheWalk)
{
    b->SetDepend(a);
    d->SetDepend(b);
    d->SetDepend(c);
    c->updateFlags = WINUPD_MARKED;
    Order({a, d, b, c});
    a->NotifyPeerControls(1);
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(b->updateFlags, WINUPD_MARKED);
}

TEST_F(DependencyTest, AParentThatDependsOnTheSourceUpdatesToo)
{
    Top().SetDepend(a);
    b->SetDepend(a);
    Order({a, b, c, d});
    a->NotifyPeerControls(1);
    EXPECT_EQ(Log(), (Lines{"b.UpdateView(1)", "top.UpdateView(1)"}));
}
