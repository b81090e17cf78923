#include <string>
#include <vector>

#include "app/appaccess.h"
#include "app/docwin.h"
#include "app/recorder.h"
#include "support/zktest.h"

namespace {

typedef std::vector<std::string> LIST;

using wintest::TraceLevel;

vDOCWIN* NewDocument(const vAPP& app, const char* title)
{
    return new vDOCWIN(app, vRECT(vINT(10), vINT(10), vINT(210), vINT(160)), vSTRING("%s", title), WF_SIZING,
                       CF_MAXBOX | CF_MINBOX | CF_SYSMENU);
}

// What the frame's client is asked to destroy, seen from in front of its
// own procedure.
std::vector<HWND> destroyRequests;
WNDPROC clientProc = nullptr;

LRESULT CALLBACK WatchingClient(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_MDIDESTROY)
        destroyRequests.push_back(reinterpret_cast<HWND>(wParam));
    return CallWindowProcA(clientProc, window, message, wParam, lParam);
}

// A shown frame with documents serves every test of the group: destroying
// a shown top-level window is slow.
class DocWinTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite()
    {
        app = new vAPP(vSTRING("ZkDocWinFrame"), vSTRING("Documents"), 1);
        frame = vAPPACCESS::Frame(*app);
        app->Size(vRECT(vINT(0), vINT(0), vINT(640), vINT(480)));
        app->Show();
        vDEVICE::GetScreen().Colour(vSCREEN_WINDOW);
        vSYSTEM::GetKeyboard();
        delete NewDocument(*app, "warm");
        apptest::Pump();
    }

    static void TearDownTestSuite() { apptest::End(frame); }

    static vAPP* app;
    static HWND frame;
};

vAPP* DocWinTest::app = nullptr;
HWND DocWinTest::frame = nullptr;

TEST_F(DocWinTest, TheClientMakesTheDocumentHiddenUntilShown)
{
    zktest::TraceCapture trace;
    TraceLevel level(1);
    vDOCWIN* document = NewDocument(*app, "First");
    HWND window = (*document)();
    ASSERT_TRUE(IsWindow(window));
    char name[32] = {};
    GetClassNameA(window, name, sizeof name);
    EXPECT_STREQ(name, "MDICHILD");
    EXPECT_EQ(GetParent(window), vAPPACCESS::Client(*app));
    DWORD style = GetWindowLongA(window, GWL_STYLE);
    DWORD wanted = WS_CAPTION | WS_CLIPSIBLINGS | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_MINIMIZEBOX | WS_SYSMENU;
    EXPECT_EQ(style & wanted, wanted);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(document->Title(), vSTRING("First"));

    document->Show();
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(app->ActiveDocWin(), document);
    EXPECT_EQ(app->NoDocWin(), 1);
    document->Hide();
    EXPECT_FALSE(IsWindowVisible(window));
    delete document;
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(app->NoDocWin(), 0);

    LIST lines = trace.Lines();
    auto has = [&lines](const char* line) { return std::find(lines.begin(), lines.end(), line) != lines.end(); };
    EXPECT_TRUE(has("Trace: vDOCWIN::vDOCWIN(...)"));
    EXPECT_TRUE(has("Trace: vDOCWIN::~vDOCWIN()"));
}

// A newed document goes through the client's own destruction, and its
// object with it; closing it as a user would deletes the object too.
TEST_F(DocWinTest, ADeletedDocumentIsDestroyedByTheClient)
{
    HWND client = vAPPACCESS::Client(*app);
    destroyRequests.clear();
    clientProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(client, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchingClient)));
    vDOCWIN* first = NewDocument(*app, "Deleted");
    vDOCWIN* second = NewDocument(*app, "Closed");
    first->Show();
    second->Show();
    HWND firstWindow = (*first)();
    HWND secondWindow = (*second)();
    delete first;
    SendMessageA(secondWindow, WM_SYSCOMMAND, SC_CLOSE, 0);
    apptest::Pump();
    SetWindowLongPtrA(client, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(clientProc));
    EXPECT_EQ(destroyRequests, (std::vector<HWND>{firstWindow, secondWindow}));
    EXPECT_FALSE(IsWindow(firstWindow));
    EXPECT_FALSE(IsWindow(secondWindow));
}

TEST_F(DocWinTest, ActivatingAndMaximisingGoThroughTheClient)
{
    vDOCWIN* first = NewDocument(*app, "One");
    vDOCWIN* second = NewDocument(*app, "Two");
    first->Show();
    second->Show();
    EXPECT_EQ(app->ActiveDocWin(), second);
    first->Activate();
    EXPECT_EQ(app->ActiveDocWin(), first);
    first->Maximize();
    EXPECT_TRUE(IsZoomed((*first)()));
    EXPECT_TRUE(first->IsMaximised());
    first->Normalise();
    delete second;
    delete first;
}

// A tiled window cannot be dragged by its caption, and of its frame only
// the top edge reaches the library's frame dragging, which clears the drag
// mark that the test leaves set; a window out of the tiling is not held.
TEST_F(DocWinTest, ATiledWindowHoldsItsPlaceAgainstTheMouse)
{
    struct CASE {
        vMDIARRANGE mode;
        UINT message;
        WPARAM hit;
        bool swallowed;
    };
    const CASE cases[] = {
        {ARRANGE_COLUMNS, WM_NCMOUSEMOVE, HTLEFT, true},
        {ARRANGE_ROWS, WM_NCMOUSEMOVE, HTBOTTOM, true},
        {ARRANGE_COLUMNS, WM_NCMOUSEMOVE, HTTOP, false},
        {ARRANGE_CASCADE, WM_NCMOUSEMOVE, HTLEFT, false},
        {ARRANGE_COLUMNS, WM_NCLBUTTONDOWN, HTCAPTION, true},
    };
    vDOCWIN* document = NewDocument(*app, "Held");
    document->Show();
    for (const CASE& given : cases) {
        SCOPED_TRACE(std::to_string(given.mode) + " " + std::to_string(given.message) + " " +
                     std::to_string(given.hit));
        app->ArrangeDocWins(given.mode);
        vWIN::fBorderDrag = 1;
        LRESULT answer = SendMessageA((*document)(), given.message, given.hit, 0);
        EXPECT_EQ(vWIN::fBorderDrag, given.swallowed ? 1 : 0);
        if (given.swallowed) {
            EXPECT_EQ(answer, 0);
        }
    }
    vWIN::fBorderDrag = 0;
    app->ArrangeDocWins(ARRANGE_CASCADE);
    delete document;
}

// A program without a Window menu shows its one document filling the
// frame, with neither caption nor frame.
TEST_F(DocWinTest, ALoneDocumentIsUndecoratedAndMaximised)
{
    vAPP* single = new vAPP(vSTRING("ZkSingleDocFrame"), vSTRING("Single"), 0);
    HWND singleFrame = vAPPACCESS::Frame(*single);
    vDOCWIN* document = NewDocument(*single, "Only");
    DWORD style = GetWindowLongA((*document)(), GWL_STYLE);
    EXPECT_EQ(style & 0xCF0000, 0u);
    EXPECT_TRUE(style & WS_MAXIMIZE);
    delete document;
    apptest::End(singleFrame);
}

// The Window menu as a user works it: the item is found on the frame's bar
// by the texts the user reads, and its command is sent as the menu sends it.
struct LANGUAGECASE {
    unsigned short language;
    const char* rows;
    const char* columns;
    const char* cascade;
    LIST items;
    LIST bar;
};

class WindowMenuTest : public zktest::LeakFreeTest,
                       public ::testing::WithParamInterface<LANGUAGECASE> {};

// Chooses the item of that label from the bar's first menu, the Window menu.
void ChooseFromMenu(HWND frame, const char* label)
{
    HMENU window = GetSubMenu(GetMenu(frame), 0);
    for (int pos = 0; pos < GetMenuItemCount(window); ++pos) {
        char text[128] = {};
        GetMenuStringA(window, pos, text, sizeof text, MF_BYPOSITION);
        if (std::string(text) == label)
            PostMessageA(frame, WM_COMMAND, MAKEWPARAM(GetMenuItemID(window, pos), 0), 0);
    }
    apptest::Pump();
}

TEST_P(WindowMenuTest, ItsCommandsActInTheProgramsLanguage)
{
    const LANGUAGECASE& given = GetParam();
    vAPP* app = new vAPP(vSTRING("ZkWindowMenuFrame"), vSTRING("Window menu"), 1);
    HWND frame = vAPPACCESS::Frame(*app);
    app->Language(given.language);
    app->Size(vRECT(vINT(0), vINT(0), vINT(640), vINT(480)));
    vAPPACCESS::FillWindowMenu(*app);
    app->SetMenuBar(*app->Menu());
    app->Show();
    SetForegroundWindow(frame);
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(vAPPACCESS::WindowMenu(*app))), given.items);
    EXPECT_EQ(apptest::Items(GetMenu(frame)), given.bar);

    std::vector<vDOCWIN*> documents;
    for (const char* title : {"A", "B", "C"}) {
        documents.push_back(NewDocument(*app, title));
        documents.back()->Show();
    }
    ChooseFromMenu(frame, given.rows);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_ROWS);
    EXPECT_EQ(vAPPACCESS::TileCount(*app), 3);
    ChooseFromMenu(frame, given.columns);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_COLUMNS);
    EXPECT_EQ(vAPPACCESS::TileCount(*app), 3);
    ChooseFromMenu(frame, given.cascade);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_CASCADE);
    EXPECT_EQ(vAPPACCESS::TileCount(*app), 0);

    // The application takes the documents with it, a hidden one too.
    documents[0]->Hide();
    apptest::End(frame);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, WindowMenuTest,
    ::testing::Values(LANGUAGECASE{2057, "Arrange in &rows", "Arrange in co&lumns", "&Cascade",
                                   LIST{"30003 &New window", "-", "30004 &Cascade", "30005 &Tile", "-",
                                        "30007 Arrange in &rows", "30006 Arrange in co&lumns"},
                                   LIST{"popup:&Window", "popup:&Help"}},
                      LANGUAGECASE{1031, "In &Zeilen anordnen", "In &Spalten anordnen", "\334ber&lappend",
                                   LIST{"30003 &Neues Fenster", "-", "30004 \334ber&lappend", "30005 &Nebeneinander",
                                        "-", "30007 In &Zeilen anordnen", "30006 In &Spalten anordnen"},
                                   LIST{"popup:&Fenster", "popup:&Hilfe"}}));

}  // namespace
