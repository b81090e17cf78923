#include <algorithm>

#include "app/appaccess.h"
#include "app/docwin.h"

using namespace wintest;
using DOCS = std::vector<vDOCWIN*>;
using Breadths = std::vector<long>;

namespace {

const long clientWidth = 600, clientHeight = 400;

// A document of the tests' own class, which therefore creates its window itself. The platform refuses to make a
// captioned window narrower than its minimum tracking size; this one lets any size through, so that the library's
// placing is seen as it is.
class DOCUMENT : public vDOCWIN {
public:
    DOCUMENT(const vAPP& app, const char* title)
        : vDOCWIN(app, vRECT(10, 10, 210, 160), vSTRING("%s", title), WF_SIZING, CF_MAXBOX | CF_MINBOX | CF_SYSMENU,
                  static_cast<vCLASSID>(3)) { vDOCWIN::CreateWin(); }
    using vDOCWIN::Instance;

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message != WM_GETMINMAXINFO)
            return vDOCWIN::MsgHandler(message, wParam, lParam, result);
        return reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = POINT{1, 1}, 1;
    }
};

// Shares an amount out over the windows in order, the remainder of each truncating division falling to the later ones.
Breadths Shares(long amount, size_t count) {
    Breadths shares;
    for (long left = static_cast<long>(count); left > 0; amount -= shares.back(), --left)
        shares.push_back(amount / left);
    return shares;
}

long Frame(bool rows) { return GetSystemMetrics(rows ? SM_CYFRAME : SM_CXFRAME); }

// The breadths that fill the extent, one frame between neighbours.
Breadths Filling(size_t count, bool rows, long extent) { return Shares(extent - long(count - 1) * Frame(rows), count); }

// The outer frames hang one frame outside the client; each window is its breadth plus two frames less one pixel, and
// the next starts one frame after the last one's breadth.
Lines Layout(const Breadths& breadths, bool rows, long across = 0) {
    long step = Frame(rows), pos = -step, side = Frame(!rows);
    across = across ? across : rows ? clientWidth : clientHeight;
    Lines rects;
    for (long breadth : breadths) {
        long end = pos + breadth + 2 * step - 1;
        rects.push_back(rows ? Text(vRECT(-side, pos, across + side, end))
                             : Text(vRECT(pos, -side, end, across + side)));
        pos += breadth + step;
    }
    return rects;
}

// One shown frame with a client of a known size serves every test: destroying a shown top-level window is slow.
class MdiTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite() {
        app = new vAPP(vSTRING("ZkMdiFrame"), vSTRING("Documents"), 1);
        app->Size(vRECT(0, 0, 720, 560)), app->Show();
        RECT inner;
        GetClientRect(vAPPACCESS::Frame(*app), &inner);
        app->Margins(vRECT(0, 0, inner.right - clientWidth, inner.bottom - clientHeight));
        vDEVICE::GetScreen().Colour(vSCREEN_WINDOW), vSYSTEM::GetKeyboard(), Open(1), Close();
    }
    static void TearDownTestSuite() { apptest::End(vAPPACCESS::Frame(*app)); }
    void SetUp() override { zktest::LeakFreeTest::SetUp(); app->ArrangeDocWins(ARRANGE_CASCADE); }
    void TearDown() override { Close(); zktest::LeakFreeTest::TearDown(); }

    // Opens documents while no tiling is in force, so that only the arrangement under test places them.
    static DOCS Open(size_t count) {
        for (size_t n = 0; n < count; ++n)
            documents.push_back(new DOCUMENT(*app, "Document")), documents.back()->Show();
        return DOCS(documents.end() - count, documents.end());
    }
    // Closes one document, or all of them.
    static void Close(vDOCWIN* document = nullptr) {
        for (vDOCWIN* open : DOCS(documents))
            if (!document || open == document)
                documents.erase(std::find(documents.begin(), documents.end(), open)), delete open;
        Pump();
    }
    // The documents from the topmost down, as the platform stacks them.
    static DOCS TopmostFirst() {
        DOCS order;
        for (HWND child = GetWindow(vAPPACCESS::Client(*app), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (vWIN* document = DOCUMENT::Instance(child))
                order.push_back(static_cast<vDOCWIN*>(document));
        return order;
    }
    static DOCS TileList() {
        DOCS list;
        for (vDOCWIN* member = vAPPACCESS::TileHead(*app); member; member = vDOCWINACCESS::Next(*member))
            list.push_back(member);
        return list;
    }
    // The breadths the library keeps, and where the windows stand.
    static Breadths BreadthsOf(const DOCS& windows) {
        Breadths breadths;
        for (vDOCWIN* window : windows) breadths.push_back(vDOCWINACCESS::Breadth(*window));
        return breadths;
    }
    static Lines Rects(const DOCS& windows) {
        Lines rects;
        for (vDOCWIN* window : windows) rects.push_back(Placed((*window)()));
        return rects;
    }

    static vAPP* app;
    static DOCS documents;
};

vAPP* MdiTest::app = nullptr;
DOCS MdiTest::documents;

// A tiled window cannot be dragged by its caption, and of its frame only the top edge reaches the library's frame
// dragging, which clears the drag mark that the test leaves set; a window out of the tiling is not held.
TEST_F(MdiTest, ATiledWindowHoldsItsPlaceAgainstTheMouse) {
    const struct { vMDIARRANGE mode; UINT message; WPARAM hit; bool swallowed; } rows[] = {
        {ARRANGE_COLUMNS, WM_NCMOUSEMOVE, HTLEFT, true},     {ARRANGE_ROWS, WM_NCMOUSEMOVE, HTBOTTOM, true},
        {ARRANGE_COLUMNS, WM_NCMOUSEMOVE, HTTOP, false},     {ARRANGE_CASCADE, WM_NCMOUSEMOVE, HTLEFT, false},
        {ARRANGE_COLUMNS, WM_NCLBUTTONDOWN, HTCAPTION, true},
    };
    vDOCWIN* document = Open(1)[0];
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.mode) + " " + std::to_string(row.message) + " " + std::to_string(row.hit));
        app->ArrangeDocWins(row.mode), vWIN::fBorderDrag = 1;
        LRESULT answer = SendMessageA((*document)(), row.message, row.hit, 0);
        EXPECT_EQ(vWIN::fBorderDrag, row.swallowed ? 1 : 0);
        EXPECT_TRUE(!row.swallowed || answer == 0);
    }
    vWIN::fBorderDrag = 0;
}

// Rows and columns fill the client edge to edge, topmost window first; a window closed leaves its breadth and its frame
// to the others; arranging again fills afresh.
TEST_F(MdiTest, RowsAndColumnsPlaceEveryWindowToThePixel) {
    for (size_t count : {1u, 2u, 3u, 5u, 12u}) {
        for (bool rows : {true, false}) {
            SCOPED_TRACE(std::to_string(count) + (rows ? " rows" : " columns"));
            vMDIARRANGE mode = rows ? ARRANGE_ROWS : ARRANGE_COLUMNS;
            long extent = rows ? clientHeight : clientWidth;
            app->ArrangeDocWins(ARRANGE_CASCADE), Open(count);
            DOCS order = TopmostFirst();
            app->ArrangeDocWins(mode);
            EXPECT_EQ(vAPPACCESS::Arrange(*app), mode);
            EXPECT_EQ(TileList(), order);
            EXPECT_EQ(vAPPACCESS::TileCount(*app), count);
            Breadths breadths = Filling(count, rows, extent);
            EXPECT_EQ(BreadthsOf(order), breadths);
            EXPECT_EQ(Rects(order), Layout(breadths, rows));
            if (count >= 3) {
                Breadths shares = Shares(breadths[1] + Frame(rows), count - 1);
                Close(order[1]), order.erase(order.begin() + 1), breadths.erase(breadths.begin() + 1);
                for (size_t n = 0; n < breadths.size(); ++n)
                    breadths[n] += shares[n];
                EXPECT_EQ(TileList(), order);
                EXPECT_EQ(BreadthsOf(order), breadths);
                EXPECT_EQ(Rects(order), Layout(breadths, rows));
                app->ArrangeDocWins(mode), order = TopmostFirst();
                EXPECT_EQ(Rects(order), Layout(Filling(count - 1, rows, extent), rows));
            }
            Close();
            EXPECT_EQ(vAPPACCESS::TileHead(*app), nullptr);
        }
    }
}

// Only visible windows that are not minimised are tiled; with none the mode is kept all the same. A window minimised
// under the tiling leaves it and gives its breadth away; restored, it comes back at the head; one shown under the
// tiling joins at the head with the size it has.
TEST_F(MdiTest, OnlyShownWindowsThatAreNotMinimisedAreTiled) {
    app->ArrangeDocWins(ARRANGE_ROWS);
    EXPECT_TRUE(vAPPACCESS::Arrange(*app) == ARRANGE_ROWS && vAPPACCESS::TileHead(*app) == nullptr);
    app->ArrangeDocWins(ARRANGE_CASCADE);
    DOCS opened = Open(4);
    opened[0]->Hide(), ShowWindow((*opened[1])(), SW_MINIMIZE), app->ArrangeDocWins(ARRANGE_COLUMNS);
    DOCS order = TileList();
    EXPECT_EQ(order, (DOCS{opened[3], opened[2]}));
    EXPECT_EQ(vDOCWINACCESS::Breadth(*opened[1]), 0);

    ShowWindow((*order[0])(), SW_MINIMIZE);
    EXPECT_TRUE(TileList() == DOCS{order[1]} && BreadthsOf({order[1]}) == Breadths{clientWidth});
    EXPECT_EQ(Rects({order[1]}), Layout({clientWidth}, false));
    ShowWindow((*order[0])(), SW_RESTORE);
    EXPECT_EQ(TileList(), order);
    Breadths breadths = BreadthsOf(order);
    EXPECT_EQ(breadths[0] + breadths[1] + Frame(false), clientWidth);

    vDOCWIN* added = Open(1)[0];
    EXPECT_EQ(TileList(), (DOCS{added, order[0], order[1]}));
    breadths = BreadthsOf(TileList());
    EXPECT_EQ(breadths[0] + breadths[1] + breadths[2] + 2 * Frame(false), clientWidth);
    EXPECT_EQ(app->ActiveDocWin(), added);
}

// The user widens a tiled window: it keeps the width given, the windows on each side share what is left, the remainder
// to those nearest it; a move that keeps the breadth changes nothing.
TEST_F(MdiTest, ResizingOneWindowSharesTheRestOnEachSide) {
    Open(5), app->ArrangeDocWins(ARRANGE_COLUMNS);
    DOCS order = TileList();
    Lines before = Rects(order);
    HWND middle = (*order[2])();
    RECT box;
    GetWindowRect(middle, &box);
    MapWindowPoints(nullptr, vAPPACCESS::Client(*app), reinterpret_cast<POINT*>(&box), 2);
    SetWindowPos(middle, nullptr, box.left + 3, box.top, 0, 0, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
    EXPECT_TRUE(Rects(order)[0] == before[0] && Rects(order)[4] == before[4]);
    long fw = Frame(false), left = box.left - 20, right = box.right + 40;
    SetWindowPos(middle, nullptr, left, box.top, right - left, box.bottom - box.top, SWP_NOZORDER | SWP_NOACTIVATE);
    Breadths sideBefore = Shares(left - fw, 2), sideAfter = Shares(clientWidth - right - fw, 2);
    Breadths expected = {sideBefore[0], sideBefore[1], right - left - 2 * fw, sideAfter[1], sideAfter[0]};
    EXPECT_EQ(BreadthsOf(order), expected);
    EXPECT_EQ(Rects(order), Layout(expected, false));
}

}  // namespace
