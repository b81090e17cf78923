#include "controls/controltest.h"

using namespace controltest;

namespace {

// A window that shows which bars point at it, and a bar that shows its places and thumb size.
class VIEW : public wintest::RECORDER {
public:
    using RECORDER::RECORDER, vWIN::pHorzScroll, vWIN::pVertScroll;
};
class BAR : public vVERTSCRLBAR {
public:
    using vVERTSCRLBAR::vVERTSCRLBAR, vSCROLLBAR::attached, vSCROLLBAR::thumbSize;
};

// A real press on one part of a bar (0 first arrow, 1 page before the thumb, 2 thumb, 3 page after, 4 last arrow) and a
// release on another, queued before the bar's own tracking loop takes them.
void Drag(HWND window, LONG object, int from, int to) {
    SCROLLBARINFO info = {sizeof info, {}, 0, 0, 0, 0, {}};
    GetScrollBarInfo(window, object, &info);
    const RECT& r = info.rcScrollBar;
    bool vertical = r.bottom - r.top > r.right - r.left;
    long length = vertical ? r.bottom - r.top : r.right - r.left, arrow = info.dxyLineButton;
    long top = info.xyThumbTop, bottom = info.xyThumbBottom, end = length - arrow / 2;
    long along[] = {arrow / 2, (arrow + top) / 2, (top + bottom) / 2, (bottom + length - arrow) / 2, end};
    POINT middle = {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    auto moveTo = [&](int part) {
        SetCursorPos(vertical ? middle.x : r.left + along[part], vertical ? r.top + along[part] : middle.y);
        Mouse(MOUSEEVENTF_MOVE);
    };
    moveTo(from);
    PumpFor(30);
    Log().clear();
    Mouse(MOUSEEVENTF_LEFTDOWN);
    moveTo(to);
    Mouse(MOUSEEVENTF_LEFTUP);
    PumpFor(150);
}

// Every part clicked for real on a range of 0 to 3, thumb at 1. Attached windows hear all as horizontal with the thumb
// position for the code; a window's own bars keep their codes, left and right crossed, and their thumb reaches nobody.
TEST_F(ControlTest, EveryPartOfABarReachesTheHandlersItsRulesName) {
    const Lines rows[5][3] = {
        // attached, own horizontal, own vertical
        {{"IncRight", "IncRight"}, {"IncRight"}, {"IncUp"}},
        {{"IncRight", "IncRight"}, {"PageRight"}, {"PageUp"}},
        {{"IncLeft", "PageLeft", "PageLeft", "IncRight"}, {}, {}},
        {{"IncRight", "IncRight"}, {"PageLeft"}, {"PageDown"}},
        {{"IncRight", "IncRight"}, {"IncLeft"}, {"IncDown"}},
    };
    VIEW* a = new VIEW(*parent, vRECT(0, 0, 9, 9), "a");
    VIEW* b = new VIEW(*parent, vRECT(0, 0, 9, 9), "b");
    VIEW* own = new VIEW(*parent, vRECT(60, 40, 200, 130), "own");
    vSCROLLBAR* bars[] = {new vVERTSCRLBAR(*parent, vCTRLID(3), vRECT(1, 10, 20, 190)),
                          new vHORZSCRLBAR(*parent, vCTRLID(4), vRECT(30, 150, 290, 170))};
    for (vSCROLLBAR* bar : bars) {
        bar->AttachWindow(a);
        bar->AttachWindow(b);
        bar->ScrollRange(vRANGE(vINT(0), vINT(3)));
        bar->ThumbPos(vINT(1));
        bar->Show();
    }
    for (int side : {SB_HORZ, SB_VERT}) {
        ShowScrollBar((*own)(), side, TRUE);
        SetScrollRange((*own)(), side, 0, 3, FALSE);
        SetScrollPos((*own)(), side, 1, TRUE);
    }
    ShowWindow((*own)(), SW_SHOW);
    const std::pair<HWND, LONG> targets[] = {{(*bars[0])(), OBJID_CLIENT}, {(*bars[1])(), OBJID_CLIENT},
                                             {(*own)(), OBJID_HSCROLL},    {(*own)(), OBJID_VSCROLL}};
    for (int at = 0; at < 4; ++at)
        for (int part = 0; part < 5; ++part) {
            Drag(targets[at].first, targets[at].second, part, part == 2 ? 4 : part);
            Lines expected;
            for (const std::string& call : rows[part][std::max(0, at - 1)])
                for (std::string name : at < 2 ? Lines{"a.", "b."} : Lines{"own."})
                    expected.push_back(name + "vScroll" + call + "()");
            EXPECT_EQ(Only(".vScroll"), expected) << "part " << part << " of bar " << at;
            EXPECT_EQ(bars[at % 2]->ThumbPos()(), 1) << "the bar leaves its thumb to the program";
        }
    for (vSCROLLBAR* bar : bars) {
        bar->DetachWindow(a);
        bar->DetachWindow(b);
    }
}

// A zero left (vertical) or top (horizontal) takes the standard thickness at the far edge; the thumb size's product
// keeps its low 16 bits; positions outside the range and crossed ends are the platform's to settle. Of three places,
// filled in order, a window may take two, a fourth is left out; the bar's end tells only the first window it finds.
TEST_F(ControlTest, ABarsPlaceNumbersAndWindowsFollowTheirRules) {
    int wide = GetSystemMetrics(SM_CXVSCROLL), high = GetSystemMetrics(SM_CXHSCROLL);
    const struct { bool vertical; vRECT given, placed; } places[] = {
        {true, vRECT(0, 10, 100, 60), vRECT(100 - wide, 10, 100, 60)},
        {true, vRECT(1, 10, 100, 60), vRECT(1, 10, 100, 60)},
        {false, vRECT(10, 0, 100, 60), vRECT(10, 60 - high, 100, 60)},
        {false, vRECT(10, 1, 100, 60), vRECT(10, 1, 100, 60)},
    };
    unsigned long gdi = 0;  // counted once the platform's caches are warm
    for (const auto& row : places) {
        vSCROLLBAR* bar = row.vertical ? static_cast<vSCROLLBAR*>(new vVERTSCRLBAR(*parent, vCTRLID(3), row.given))
                                       : new vHORZSCRLBAR(*parent, vCTRLID(3), row.given);
        EXPECT_EQ(wintest::Placed((*bar)()), wintest::Text(row.placed));
        EXPECT_EQ(GetWindowLongA((*bar)(), GWL_STYLE), LONG(WS_CHILD | WS_TABSTOP | row.vertical));
        bar->Show();
        ShowPainted((*bar)());
        DestroyWindow((*bar)());
        PumpFor(20);
        gdi = gdi ? gdi : zktest::LiveGdiObjects();
    }
    EXPECT_EQ(zktest::LiveGdiObjects(), gdi);
    BAR* bar = new BAR(*parent, vCTRLID(3), vRECT(1, 0, 20, 100));
    auto sized = [&](long high, long percent) {
        bar->ScrollRange(vRANGE(vINT(0), vINT(high)));
        bar->ThumbSizeRation(vINT(percent));
        return bar->thumbSize();
    };
    EXPECT_EQ(std::vector<long>({sized(100, 50), sized(1000, 100), sized(30, 3), sized(30000, 3)}),
              std::vector<long>({50, 344, 0, 244}));
    auto moved = [&](long pos) {
        bar->ThumbPos(vINT(pos));
        return bar->ThumbPos()();
    };
    EXPECT_EQ(std::make_pair(moved(-5), moved(70000)), std::make_pair(0L, 30000L));
    bar->ScrollRange(vRANGE(vINT(9), vINT(2)));
    bar->ThumbPos(vINT(5));
    bar->ThumbSizeRation(vINT(50));
    EXPECT_TRUE(bar->ScrollRange() == vRANGE(vINT(0), vINT(0))) << "the platform's answer to crossed ends";
    // attach or detach which window; then the places, and which windows point at the bar
    const struct { bool attach; int window; const char* state; } rows[] = {
        {true, 0, "0-- 1000"}, {true, 1, "01- 1100"}, {true, 0, "010 1100"}, {true, 3, "010 1100"},
        {false, 2, "010 1100"}, {false, 0, "-10 0100"}, {true, 2, "210 0110"},
    };
    VIEW* views[4];
    for (VIEW*& view : views)
        view = new VIEW(*parent, vRECT(0, 0, 5, 5), "v");
    vHORZSCRLBAR* across = new vHORZSCRLBAR(*parent, vCTRLID(4), vRECT(0, 1, 20, 100));
    bar->AttachWindow(nullptr);
    bar->DetachWindow(nullptr);
    across->AttachWindow(views[3]);
    for (const auto& row : rows) {
        row.attach ? bar->AttachWindow(views[row.window]) : bar->DetachWindow(views[row.window]);
        std::string state, pointing = " ";
        for (vWIN* place : bar->attached)
            state += place ? char('0' + (std::find(views, views + 4, place) - views)) : '-';
        for (VIEW* view : views)
            pointing += view->pVertScroll == bar ? '1' : '0';
        EXPECT_EQ(state + pointing, row.state) << row.attach << row.window;
    }
    EXPECT_EQ(views[3]->pHorzScroll, across);
    DestroyWindow((*bar)());
    DestroyWindow((*across)());
    EXPECT_EQ(views[2]->pVertScroll, nullptr);
    EXPECT_EQ(views[1]->pVertScroll, bar) << "the second is left dangling, as it always was";
    EXPECT_EQ(views[3]->pHorzScroll, nullptr);
}

}  // namespace
