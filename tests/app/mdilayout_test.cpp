#include <algorithm>
#include <string>
#include <vector>

#include "app/appaccess.h"
#include "app/docwin.h"
#include "support/zktest.h"

namespace {

const long clientWidth = 600;
const long clientHeight = 400;

// What the rows and columns are laid out on: the client's extent and the
// frame thickness of a document window.
struct GEOMETRY {
    long width;
    long height;
    long frameWidth;
    long frameHeight;
};

GEOMETRY Measured()
{
    return GEOMETRY{clientWidth, clientHeight, GetSystemMetrics(SM_CXFRAME), GetSystemMetrics(SM_CYFRAME)};
}

long Separator(const GEOMETRY& geometry, bool rows)
{
    return rows ? geometry.frameHeight : geometry.frameWidth;
}

// Shares an amount out over the windows in order, the remainder of each
// truncating division falling to the later ones.
std::vector<long> Shares(long amount, size_t count)
{
    std::vector<long> shares;
    for (long left = static_cast<long>(count); left > 0; --left) {
        long share = amount / left;
        amount -= share;
        shares.push_back(share);
    }
    return shares;
}

// The breadths that fill the client, one frame between neighbours.
std::vector<long> FillingBreadths(size_t count, bool rows, const GEOMETRY& geometry)
{
    long extent = rows ? geometry.height : geometry.width;
    return Shares(extent - static_cast<long>(count - 1) * Separator(geometry, rows), count);
}

// The outer frames hang one frame outside the client; each window is its
// breadth plus two frames less one pixel, and the next starts one frame
// after the last one's breadth.
std::vector<std::string> Placed(const std::vector<long>& breadths, bool rows, const GEOMETRY& geometry)
{
    long step = Separator(geometry, rows);
    long pos = -step;
    std::vector<std::string> rects;
    for (long breadth : breadths) {
        long end = pos + breadth + 2 * step - 1;
        long left = rows ? -geometry.frameWidth : pos;
        long top = rows ? pos : -geometry.frameHeight;
        long right = rows ? geometry.width + geometry.frameWidth : end;
        long bottom = rows ? end : geometry.height + geometry.frameHeight;
        rects.push_back(std::to_string(left) + "," + std::to_string(top) + "," + std::to_string(right) + "," +
                        std::to_string(bottom));
        pos += breadth + step;
    }
    return rects;
}

std::string PlatformRect(HWND window)
{
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
    return std::to_string(box.left) + "," + std::to_string(box.top) + "," + std::to_string(box.right) + "," +
           std::to_string(box.bottom);
}

// A document of the tests' own class, which therefore creates its window
// itself. The platform refuses to make a captioned window narrower than its
// minimum tracking size; this one lets any size through, so that the
// library's placing is seen as it is.
class DOCUMENT : public vDOCWIN {
public:
    DOCUMENT(const vAPP& app, const vSTRING& title)
        : vDOCWIN(app, vRECT(vINT(0), vINT(0), vINT(200), vINT(150)), title, WF_SIZING,
                  CF_MAXBOX | CF_MINBOX | CF_SYSMENU, static_cast<vCLASSID>(3))
    {
        vDOCWIN::CreateWin();
    }

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        if (message != WM_GETMINMAXINFO)
            return vDOCWIN::MsgHandler(message, wParam, lParam, result);
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = POINT{1, 1};
        result = 0;
        return 1;
    }
};

// One frame with a client of a known size serves every test: destroying a
// shown top-level window is slow.
class MdiLayoutTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite()
    {
        app = new vAPP(vSTRING("ZkMdiLayoutFrame"), vSTRING("Layout"), 1);
        frame = vAPPACCESS::Frame(*app);
        app->Size(vRECT(vINT(0), vINT(0), vINT(720), vINT(560)));
        app->Show();
        RECT inner;
        GetClientRect(frame, &inner);
        app->Margins(vRECT(vINT(0), vINT(0), vINT(inner.right - clientWidth), vINT(inner.bottom - clientHeight)));
        vDEVICE::GetScreen().Colour(vSCREEN_WINDOW);
        vSYSTEM::GetKeyboard();
        Close(Open(1)[0]);
        apptest::Pump();
    }

    static void TearDownTestSuite() { apptest::End(frame); }

    void SetUp() override
    {
        zktest::LeakFreeTest::SetUp();
        app->ArrangeDocWins(ARRANGE_CASCADE);
    }

    void TearDown() override
    {
        CloseAll();
        zktest::LeakFreeTest::TearDown();
    }

    // Opens documents while no tiling is in force, so that only the
    // arrangement under test places them.
    static std::vector<vDOCWIN*> Open(size_t count)
    {
        std::vector<vDOCWIN*> opened;
        for (size_t n = 0; n < count; ++n) {
            vDOCWIN* document = new DOCUMENT(*app, vSTRING("Document %d", static_cast<int>(n)));
            document->Show();
            opened.push_back(document);
        }
        documents.insert(documents.end(), opened.begin(), opened.end());
        return opened;
    }

    static void Close(vDOCWIN* document)
    {
        documents.erase(std::find(documents.begin(), documents.end(), document));
        delete document;
    }

    static void CloseAll()
    {
        while (!documents.empty())
            Close(documents.back());
        apptest::Pump();
    }

    // The documents from the topmost down, as the platform stacks them.
    static std::vector<vDOCWIN*> TopmostFirst()
    {
        std::vector<vDOCWIN*> order;
        HWND client = vAPPACCESS::Client(*app);
        for (HWND child = GetWindow(client, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            for (vDOCWIN* document : documents)
                if ((*document)() == child)
                    order.push_back(document);
        return order;
    }

    static std::vector<vDOCWIN*> TileList()
    {
        std::vector<vDOCWIN*> list;
        for (vDOCWIN* member = vAPPACCESS::TileHead(*app); member; member = vDOCWINACCESS::Next(*member))
            list.push_back(member);
        return list;
    }

    static std::vector<long> Breadths(const std::vector<vDOCWIN*>& windows)
    {
        std::vector<long> breadths;
        for (vDOCWIN* window : windows)
            breadths.push_back(vDOCWINACCESS::Breadth(*window));
        return breadths;
    }

    static std::vector<std::string> Rects(const std::vector<vDOCWIN*>& windows)
    {
        std::vector<std::string> rects;
        for (vDOCWIN* window : windows)
            rects.push_back(PlatformRect((*window)()));
        return rects;
    }

    static vAPP* app;
    static HWND frame;
    static std::vector<vDOCWIN*> documents;
};

vAPP* MdiLayoutTest::app = nullptr;
HWND MdiLayoutTest::frame = nullptr;
std::vector<vDOCWIN*> MdiLayoutTest::documents;

TEST_F(MdiLayoutTest, TheClientHasTheSizeTheTestsLayOutOn)
{
    RECT client;
    GetClientRect(vAPPACCESS::Client(*app), &client);
    EXPECT_EQ(client.right, clientWidth);
    EXPECT_EQ(client.bottom, clientHeight);
}

// Rows and columns fill the client edge to edge, topmost window first; a
// window closed leaves its breadth and its frame to the others; arranging
// again fills afresh.
TEST_F(MdiLayoutTest, RowsAndColumnsPlaceEveryWindowToThePixel)
{
    const GEOMETRY geometry = Measured();
    for (size_t count : {1u, 2u, 3u, 5u, 12u}) {
        for (vMDIARRANGE mode : {ARRANGE_ROWS, ARRANGE_COLUMNS}) {
            SCOPED_TRACE(std::to_string(count) + (mode == ARRANGE_ROWS ? " rows" : " columns"));
            bool rows = mode == ARRANGE_ROWS;
            app->ArrangeDocWins(ARRANGE_CASCADE);
            Open(count);
            std::vector<vDOCWIN*> order = TopmostFirst();
            ASSERT_EQ(order.size(), count);
            app->ArrangeDocWins(mode);
            EXPECT_EQ(vAPPACCESS::Arrange(*app), mode);
            EXPECT_EQ(TileList(), order);
            EXPECT_EQ(vAPPACCESS::TileCount(*app), count);
            std::vector<long> breadths = FillingBreadths(count, rows, geometry);
            EXPECT_EQ(Breadths(order), breadths);
            EXPECT_EQ(Rects(order), Placed(breadths, rows, geometry));

            if (count >= 3) {
                vDOCWIN* gone = order[1];
                long freed = breadths[1] + Separator(geometry, rows);
                order.erase(order.begin() + 1);
                breadths.erase(breadths.begin() + 1);
                std::vector<long> shares = Shares(freed, order.size());
                for (size_t n = 0; n < breadths.size(); ++n)
                    breadths[n] += shares[n];
                Close(gone);
                EXPECT_EQ(TileList(), order);
                EXPECT_EQ(Breadths(order), breadths);
                EXPECT_EQ(Rects(order), Placed(breadths, rows, geometry));

                app->ArrangeDocWins(mode);
                order = TopmostFirst();
                breadths = FillingBreadths(order.size(), rows, geometry);
                EXPECT_EQ(Breadths(order), breadths);
                EXPECT_EQ(Rects(order), Placed(breadths, rows, geometry));
            }
            CloseAll();
            EXPECT_EQ(vAPPACCESS::TileHead(*app), nullptr);
            EXPECT_EQ(app->NoDocWin(), 0);
        }
    }
}

// The platform's own arrangements leave the library's list empty and every
// breadth at 0; cascading staggers the windows, tiling lets none overlap.
TEST_F(MdiLayoutTest, CascadeAndTileAreThePlatformsAndEmptyTheList)
{
    std::vector<vDOCWIN*> opened = Open(5);
    app->ArrangeDocWins(ARRANGE_COLUMNS);
    ASSERT_EQ(vAPPACCESS::TileCount(*app), 5);

    app->ArrangeDocWins(ARRANGE_CASCADE);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_CASCADE);
    EXPECT_EQ(vAPPACCESS::TileHead(*app), nullptr);
    EXPECT_EQ(vAPPACCESS::TileTail(*app), nullptr);
    EXPECT_EQ(vAPPACCESS::TileCount(*app), 0);
    EXPECT_EQ(Breadths(opened), std::vector<long>(5, 0));
    for (vDOCWIN* window : opened) {
        EXPECT_EQ(vDOCWINACCESS::Next(*window), nullptr);
        EXPECT_EQ(vDOCWINACCESS::Prev(*window), nullptr);
    }
    std::vector<RECT> boxes;
    for (vDOCWIN* window : opened) {
        RECT box;
        GetWindowRect((*window)(), &box);
        boxes.push_back(box);
    }
    std::sort(boxes.begin(), boxes.end(), [](const RECT& a, const RECT& b) { return a.left < b.left; });
    for (size_t n = 1; n < boxes.size(); ++n) {
        EXPECT_GT(boxes[n].left, boxes[n - 1].left);
        EXPECT_GT(boxes[n].top, boxes[n - 1].top);
    }

    app->ArrangeDocWins(ARRANGE_TILE);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_TILE);
    EXPECT_EQ(vAPPACCESS::TileCount(*app), 0);
    for (vDOCWIN* a : opened)
        for (vDOCWIN* b : opened) {
            RECT first, second, overlap;
            GetWindowRect((*a)(), &first);
            GetWindowRect((*b)(), &second);
            if (a != b) {
                EXPECT_FALSE(IntersectRect(&overlap, &first, &second));
            }
        }
}

// Only visible windows that are not minimised are tiled; with none the
// mode is kept all the same. A window minimised under the tiling leaves it
// and gives its breadth away; restored, it comes back at the head.
TEST_F(MdiLayoutTest, HiddenAndMinimisedWindowsStayOutOfTheTiling)
{
    app->ArrangeDocWins(ARRANGE_ROWS);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_ROWS);
    EXPECT_EQ(vAPPACCESS::TileHead(*app), nullptr);

    app->ArrangeDocWins(ARRANGE_CASCADE);
    std::vector<vDOCWIN*> opened = Open(4);
    opened[0]->Hide();
    ShowWindow((*opened[1])(), SW_MINIMIZE);
    app->ArrangeDocWins(ARRANGE_COLUMNS);
    EXPECT_EQ(vAPPACCESS::TileCount(*app), 2);
    std::vector<vDOCWIN*> tiled = TileList();
    EXPECT_EQ(std::count(tiled.begin(), tiled.end(), opened[0]), 0);
    EXPECT_EQ(vDOCWINACCESS::Breadth(*opened[1]), 0);

    const GEOMETRY geometry = Measured();
    std::vector<vDOCWIN*> order = TileList();
    ShowWindow((*order[0])(), SW_MINIMIZE);
    EXPECT_EQ(TileList(), std::vector<vDOCWIN*>{order[1]});
    EXPECT_EQ(vDOCWINACCESS::Breadth(*order[1]), clientWidth);
    EXPECT_EQ(Rects({order[1]}), Placed({clientWidth}, false, geometry));

    ShowWindow((*order[0])(), SW_RESTORE);
    std::vector<vDOCWIN*> back = TileList();
    ASSERT_EQ(back.size(), 2u);
    EXPECT_EQ(back[0], order[0]);
    long filled = vDOCWINACCESS::Breadth(*back[0]) + vDOCWINACCESS::Breadth(*back[1]) + geometry.frameWidth;
    EXPECT_EQ(filled, clientWidth);
}

// A window shown while the columns are in force joins them at the head with
// the size it has, and the others fill what is left.
TEST_F(MdiLayoutTest, AWindowShownUnderTheTilingJoinsAtTheHead)
{
    const GEOMETRY geometry = Measured();
    Open(2);
    app->ArrangeDocWins(ARRANGE_COLUMNS);
    std::vector<vDOCWIN*> added = Open(1);
    std::vector<vDOCWIN*> list = TileList();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0], added[0]);
    long sum = 0;
    for (long breadth : Breadths(list))
        sum += breadth;
    EXPECT_EQ(sum + 2 * geometry.frameWidth, clientWidth);
    EXPECT_EQ(app->ActiveDocWin(), added[0]);
}

// The user widens a tiled window: it keeps the width given, the windows on
// each side share what is left, the remainder to those nearest it; a move
// that keeps the breadth changes nothing.
TEST_F(MdiLayoutTest, ResizingOneWindowSharesTheRestOnEachSide)
{
    const GEOMETRY geometry = Measured();
    Open(5);
    app->ArrangeDocWins(ARRANGE_COLUMNS);
    std::vector<vDOCWIN*> order = TileList();
    std::vector<std::string> before = Rects(order);

    HWND middle = (*order[2])();
    RECT box;
    GetWindowRect(middle, &box);
    MapWindowPoints(nullptr, vAPPACCESS::Client(*app), reinterpret_cast<POINT*>(&box), 2);
    SetWindowPos(middle, nullptr, box.left + 3, box.top, box.right - box.left, box.bottom - box.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
    EXPECT_EQ(Rects(order)[0], before[0]);
    EXPECT_EQ(Rects(order)[4], before[4]);

    long fw = geometry.frameWidth;
    long left = box.left - 20;
    long right = box.right + 40;
    SetWindowPos(middle, nullptr, left, box.top, right - left, box.bottom - box.top, SWP_NOZORDER | SWP_NOACTIVATE);
    long breadth = right - left - 2 * fw;
    std::vector<long> sideBefore = Shares(left - 0 - (2 - 1) * fw, 2);
    std::vector<long> sideAfter = Shares(clientWidth - right - (2 - 1) * fw, 2);
    std::vector<long> expected = {sideBefore[0], sideBefore[1], breadth, sideAfter[1], sideAfter[0]};
    EXPECT_EQ(Breadths(order), expected);
    EXPECT_EQ(Rects(order), Placed(expected, false, geometry));
}

// Shares of a negative amount truncate towards zero, so the last window
// takes the whole of -1; 100 over three gives 33, 33, 34.
TEST_F(MdiLayoutTest, DistributionTruncatesAndLeavesTheRemainderToTheLast)
{
    Open(3);
    app->ArrangeDocWins(ARRANGE_ROWS);
    std::vector<vDOCWIN*> order = TileList();
    for (vDOCWIN* window : order)
        vDOCWINACCESS::Breadth(*window, 0);
    vAPPACCESS::DistMDIBreadth(*app, 100);
    EXPECT_EQ(Breadths(order), (std::vector<long>{33, 33, 34}));
    vAPPACCESS::DistMDIBreadth(*app, -1);
    EXPECT_EQ(Breadths(order), (std::vector<long>{33, 33, 33}));
    vAPPACCESS::DistMDIBreadth(*app, 0);
    EXPECT_EQ(Breadths(order), (std::vector<long>{33, 33, 33}));
}

// When the client changes size the difference is shared out and the
// windows placed again; a platform arrangement is left alone.
TEST_F(MdiLayoutTest, NewMarginsRetileTheRowsButNotThePlatformsArrangements)
{
    const GEOMETRY geometry = Measured();
    Open(3);
    app->ArrangeDocWins(ARRANGE_ROWS);
    std::vector<vDOCWIN*> order = TileList();
    std::vector<long> breadths = Breadths(order);
    vRECT kept = app->Margins();
    app->Margins(vRECT(kept.Left(), kept.Top(), kept.Right(), kept.Bottom() + vINT(30)));
    std::vector<long> shares = Shares(-30, 3);
    for (size_t n = 0; n < 3; ++n)
        breadths[n] += shares[n];
    EXPECT_EQ(Breadths(order), breadths);
    GEOMETRY smaller = geometry;
    smaller.height -= 30;
    EXPECT_EQ(Rects(order), Placed(breadths, true, smaller));

    app->ArrangeDocWins(ARRANGE_CASCADE);
    std::vector<std::string> cascaded = Rects(order);
    app->Margins(kept);
    EXPECT_EQ(Rects(order), cascaded);
    EXPECT_TRUE(app->Margins() == kept);
}

}  // namespace
