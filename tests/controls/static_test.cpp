#include "controls/controltest.h"

using namespace controltest;

namespace {

// A shown parent that may hand out a font, and may stand for a template.
struct HOST : PARENT {
    HOST(const vWIN& parent, HFONT font, unsigned short form = 0) : PARENT(parent, vRECT(0, 0, 300, 200)), font(font) {
        resTemplate = vRESID(form, vSYSTEM::Pointer());
        ShowWindow(hWnd, SW_SHOW);
    }
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message != WM_GETFONT || !font)
            return PARENT::MsgHandler(message, wParam, lParam, result);
        result = reinterpret_cast<LRESULT>(font);
        return 1;
    }
    HFONT font;
};

// Lets a window die and counts the GDI objects left once the platform's caches are warm: the first count is taken after
// the first life.
void Gone(HWND window, unsigned long& gdi) {
    DestroyWindow(window);
    PumpFor(20);
    gdi = gdi ? gdi : zktest::LiveGdiObjects();
}

// Hidden at first, even adopted from a shown item; a zero rectangle takes the text's width in the parent's font for
// both sides, and keeps its zero size without a font; the height is the width. The colour waits for the next drawing.
TEST_F(ControlTest, TextSizesByTheParentsFontAndColoursAtTheNextDrawing) {
    HFONT font = CreateFontA(-24, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, NONANTIALIASED_QUALITY, 0, "Arial");
    HDC dc = GetDC(nullptr);
    SIZE extent;
    SelectObject(dc, font);
    GetTextExtentPoint32A(dc, "Wide text", 9, &extent);
    ReleaseDC(nullptr, dc);
    unsigned long gdi = 0;
    for (HFONT given : {font, HFONT()})
        for (bool adopt : {false, true}) {
            SCOPED_TRACE(std::to_string(given != nullptr) + (adopt ? " adopted" : ""));
            HOST* host = new HOST(*parent, given, adopt ? 500 : 0);
            if (adopt)
                CreateWindowExA(0, "static", "", WS_CHILD | WS_VISIBLE, 5, 5, 195, 45, (*host)(), HMENU(5), 0, 0);
            vRECT rect = adopt ? vRECT(-1, -1, -1, -1) : vRECT(0, 0, 0, 0);
            vTEXT* text = new vTEXT(*host, vCTRLID(5), rect, vSTRING("Wide text"));
            long side = given ? extent.cx : 0;
            vRECT placed = adopt ? vRECT(5, 5, 200, 50) : vRECT(0, 0, side, side);
            EXPECT_EQ(wintest::Placed((*text)()), wintest::Text(placed));
            EXPECT_FALSE(IsWindowVisible((*text)()));
            EXPECT_EQ(text->GetTextHeight()(), text->GetTextWidth()());
            EXPECT_EQ(text->GetTextWidth()() == extent.cx, given != nullptr);
            text->Show();
            ShowPainted((*text)());
            text->SetTextColour(vCOLOUR(255, 0, 0));
            EXPECT_EQ(Shot((*text)()).Count(zktest::Red), 0);
            ShowPainted((*text)());
            zktest::Pixels shot = Shot((*text)());
            EXPECT_GE(shot.Count(zktest::Red), 40 * (adopt || given));
            if (adopt && given)
                shot.Save("text");
            Gone((*host)(), gdi);
        }
    EXPECT_EQ(zktest::LiveGdiObjects(), gdi);
    DeleteObject(font);
}

// The icon goes on the parent's surface at the control's place; a number that names no icon draws nothing. A group box
// has an outer raised and an inner sunk frame on the face colour, and a title between them pushes the inner top down;
// adopted from a template item (made first, so on top), it is disabled and goes to the bottom.
TEST_F(ControlTest, IconAndGroupBoxDrawWhereTheyShould) {
    for (int number : {32512, 31999}) {
        ShowPainted((*parent)());
        vRESID icon(number, static_cast<const vMODULE*>(nullptr));
        (new vICON(*parent, vCTRLID(6), icon, vRECT(20, 30, 20, 30)))->UpdateView(vCTRLID(0));
        zktest::Pixels after = Shot((*parent)());
        std::vector<long> ink = after.Ink(zktest::White);
        bool within = ink[0] >= 20 && ink[1] >= 30 && ink[2] <= 52 && ink[3] <= 62 && ink[2] > ink[0];
        EXPECT_TRUE(number == 32512 ? within : ink[2] == 0) << number;
        if (number == 32512)
            after.Save("icon");
    }
    COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT), dark = GetSysColor(COLOR_BTNSHADOW);
    COLORREF face = GetSysColor(COLOR_3DFACE);
    unsigned long gdi = 0;
    for (const char* title : {"Box", ""}) {
        vGROUPBOX* box = new vGROUPBOX(*parent, vCTRLID(8), vSTRING(title), vRECT(10, 10, 150, 90));
        ShowPainted((*box)());
        TEXTMETRICA metrics;
        HDC dc = GetDC((*box)());
        GetTextMetricsA(dc, &metrics);
        ReleaseDC((*box)(), dc);
        zktest::Pixels shot = Shot((*box)());
        int innerTop = *title ? metrics.tmHeight + 3 : 4;
        // outer left and top, inner left and top, outer right and bottom, inner right, and the title's ink
        EXPECT_EQ(std::vector<COLORREF>({shot.At(0, 40), shot.At(70, 0), shot.At(4, 40), shot.At(70, innerTop),
                                         shot.At(136, 40), shot.At(70, 76), shot.At(130, 40), shot.Count(0) > 0}),
                  std::vector<COLORREF>({light, light, dark, dark, light, light, face, *title != 0})) << title;
        shot.Save(std::string("groupbox") + (*title ? "-titled" : ""));
        Gone((*box)(), gdi);
    }
    EXPECT_EQ(zktest::LiveGdiObjects(), gdi);
    HOST* host = new HOST(*parent, nullptr, 500);
    DWORD style = WS_CHILD | BS_GROUPBOX;
    HWND item = CreateWindowExA(0, "button", "Frame", style, 5, 5, 90, 60, (*host)(), HMENU(8), nullptr, nullptr);
    CreateWindowExA(0, "button", "under", WS_CHILD, 5, 5, 20, 20, (*host)(), HMENU(9), nullptr, nullptr);
    vGROUPBOX* box = new vGROUPBOX(*host, vCTRLID(8), vSTRING(), vRECT(-1, -1, -1, -1));
    EXPECT_EQ((*box)(), item);
    EXPECT_FALSE(IsWindowEnabled(item));
    EXPECT_EQ(GetWindow(item, GW_HWNDNEXT), nullptr);
}

}  // namespace
