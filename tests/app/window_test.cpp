#include "app/recorder.h"

using namespace wintest;

namespace {

RECORDER* Bound(HWND window) { return static_cast<RECORDER*>(RECORDER::Instance(window)); }

// A child is bound and subclassed over the class procedure, and stands in
// its parent's logical units: a parent whose origin is moved shifts it.
TEST_F(WindowTest, AChildIsBoundSubclassedAndPlacedInItsParentsUnits) {
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "p");
    parent.Origin(vPOINT(5, -7));
    RECORDER child(parent, vRECT(10, 20, 110, 100), "c", WF_NONE, 7);
    EXPECT_EQ(GetParent(child()), parent());
    EXPECT_EQ(Bound(child()), &child);
    EXPECT_EQ(GetWindowLongPtrA(child(), GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(GenericProc));
    EXPECT_EQ(child.pfnOldProc, RecordingDefault);
    EXPECT_TRUE(child.Parent() == &parent && child.Application() == nullptr);
    EXPECT_EQ(Placed(child()), "(5,27,105,107)");
    EXPECT_EQ(child.flags, WINF_ERASE);
    EXPECT_EQ(child.BackgroundColour().PackedRGB(), vDEVICE::GetScreen().Colour(vSCREEN_WINDOW).PackedRGB());
    EXPECT_EQ(vWIN::NewedThis, nullptr);

    child.Size(vRECT(15, 16, 75, 56));
    EXPECT_EQ(Placed(child()), "(10,23,70,63)");
    EXPECT_TRUE(child.Width() == vINT(60) && child.ClientSize() == vRECT(0, 0, 60, 40));
    POINT origin = {0, 0};
    ClientToScreen(child(), &origin);
    EXPECT_EQ(child.ClientToScreen(vPOINT(3, 4)), vPOINT(origin.x + 3, origin.y + 4));
    EXPECT_EQ(child.ScreenToClient(vPOINT(origin.x - 2, origin.y + 7)), vPOINT(-2, 7));

    DestroyWindow(parent());
}

TEST_F(WindowTest, WindowFlagsChooseTheStyleAndOnlyTheBaseClassCreates) {
    const struct { vWNDFLAGS flags; DWORD style; } rows[] = {
        {WF_NONE, 0x46000000}, {WF_BORDER, 0x46800000}, {WF_SIZING, 0x46040000}, {WF_BORDER | WF_SIZING, 0x46840000},
        {WF_POPUP, 0x80840000}};
    for (const auto& row : rows) {
        vWIN window(Top(), vRECT(0, 0, 50, 40), row.flags);
        EXPECT_EQ(vWIN::CreateParams.dwStyle, row.style) << row.flags;
        EXPECT_STREQ(vWIN::CreateParams.szClassName, "GENERIC");
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongA(window(), GWL_STYLE)) & row.style, row.style) << row.flags;
        DestroyWindow(window());
    }
    vWIN deferred(Top(), vRECT(0, 0, 50, 40), WF_NONE, CLASSID_CAPWIN);
    EXPECT_TRUE(deferred() == nullptr && vWIN::CreateParams.hParent == Top()());
}

// A window made with new goes with its platform window, and its platform
// window with it; a member outlives its platform window, unbound.
TEST_F(WindowTest, NewedWindowsGoWithTheirPlatformWindowsAndMembersStay) {
    Watched() = {WM_DESTROY};
    RECORDER* newed = new RECORDER(Top(), vRECT(0, 0, 30, 30), "n");
    EXPECT_EQ(newed->flags, WINF_ERASE | WINF_NEWED);
    DestroyWindow((*newed)());
    RECORDER* deleted = new RECORDER(Top(), vRECT(0, 0, 30, 30), "d");
    HWND window = (*deleted)();
    delete deleted;
    EXPECT_FALSE(IsWindow(window));
    RECORDER member(Top(), vRECT(0, 0, 30, 30), "m");
    new RECORDER(member, vRECT(0, 0, 10, 10), "inner");
    DestroyWindow(member());
    EXPECT_EQ(Bound(member()), nullptr);
    EXPECT_EQ(Log(), (Lines{"n.~RECORDER", "n default 2", "d.~RECORDER", "d default 2", "m default 2",
                            "inner.~RECORDER", "inner default 2"}));

    RECORDER* closed = new RECORDER(Top(), vRECT(0, 0, 30, 20), "c");
    Log().clear(), closed->Close();
    EXPECT_EQ(Log(), (Lines{"c.vQueryClose()", "c.~RECORDER", "c default 2"}));
}

// Children, the focus and the active window are found through the binding: a foreign window is none of the library's.
TEST_F(WindowTest, WindowsAreFoundOnlyThroughTheBinding) {
    RECORDER child(Top(), vRECT(0, 0, 30, 20), "c", WF_NONE, 12);
    HWND foreign = CreateWindowExA(0, "STATIC", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, Top()(),
                                   reinterpret_cast<HMENU>(13), nullptr, nullptr);
    EXPECT_TRUE(Top().Child(12) == &child && Top().Child(13) == nullptr && Top().Child(0) == nullptr);
    child.Show(1), child.GetFocus();
    EXPECT_TRUE(vWIN::FocusedWindow() == &child && vWIN::ActiveWindow() == &Top());
    SetFocus(foreign);
    EXPECT_EQ(vWIN::FocusedWindow(), nullptr);
    DestroyWindow(foreign);

    // The one timer is identifier one.
    EXPECT_EQ(child.SetTimer(5), 1);
    MSG message;
    Log().clear();
    const DWORD end = GetTickCount() + 5000;
    while (Only("vTimer").empty() && GetTickCount() < end && GetMessageA(&message, 0, 0, 0))
        DispatchMessageA(&message);
    child.KillTimer();
    DestroyWindow(child());
    EXPECT_EQ(Only("vTimer"), Lines{"c.vTimer(1)"});
}

// A change of a updates the windows that depend on it, each once, in the order of the platform's child list; a window
// still waiting for another marked one ends the walk, leaving the marks. "ba" reads "b depends on a".
TEST_F(WindowTest, AChangeUpdatesItsDependantsOnceEach) {
    const struct {
        const char *depends, *order, *premarked;
        Lines updates;
        const char* marked;
    } rows[] = {
        {"ba cb", "abcd", "", {"b.UpdateView(1)", "c.UpdateView(1)"}, ""},
        {"ba ca db dc", "abcd", "", {"b.UpdateView(1)", "d.UpdateView(1)", "c.UpdateView(1)"}, ""},
        {"ba ca db dc", "adbc", "", {}, "bcd"},
        {"ba db dc", "adbc", "c", {}, "bcd"},
        {"ta ba", "abcd", "", {"b.UpdateView(1)", "top.UpdateView(1)"}, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.depends + std::string(" ") + row.order);
        std::map<char, RECORDER*> w = {{'t', &Top()}};
        for (char name : std::string("abcd"))
            w[name] = new RECORDER(Top(), vRECT(0, 0, 5, 5), std::string(1, name), WF_NONE, name - 'a' + 1);
        for (const char* at = row.depends; *at; at += at[2] ? 3 : 2)
            EXPECT_EQ(w[at[0]]->SetDepend(w[at[1]]), 1);
        EXPECT_EQ(w['a']->flags & WINF_HASDEPENDENTS, WINF_HASDEPENDENTS);
        EXPECT_TRUE(w['b']->GetDependOnWindow(1) == w['a'] && w['b']->GetDependOnWindow(3) == nullptr);
        for (const char* at = row.premarked; *at; ++at)
            w[*at]->updateFlags = WINUPD_MARKED;
        for (const char* at = row.order; *at; ++at)
            SetWindowPos((*w[*at])(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        Log().clear(), w['a']->NotifyPeerControls(1);
        EXPECT_EQ(Log(), row.updates);
        for (char name : std::string("abcd")) {
            bool marked = std::string(row.marked).find(name) != std::string::npos;
            EXPECT_EQ(w[name]->updateFlags, marked ? WINUPD_MARKED : 0) << name;
            DestroyWindow((*w[name])());
        }
        while (!Top().pDepends->IsEmpty()) Top().pDepends->Remove(*Top().pDepends->First());
    }
}

}  // namespace
