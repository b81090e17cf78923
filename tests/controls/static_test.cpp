#include "controls/buttontest.h"

using namespace buttontest;

namespace {

// A shown parent that may hand out a font, and may stand for a template.
struct HOST : PARENT {
    HOST(const vWIN& parent, HFONT font, unsigned short form = 0) : PARENT(parent, vRECT(0, 0, 300, 200)), font(font)
    { resTemplate = vRESID(form, vSYSTEM::Pointer()), ShowWindow(hWnd, SW_SHOW); }
    HFONT font;
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    { return message == WM_GETFONT && font ? (result = reinterpret_cast<LRESULT>(font), 1) : PARENT::MsgHandler(message, wParam, lParam, result); }
};

// Hidden at first, even adopted from a shown item; a zero rectangle takes the text's width in the parent's font for
// both sides, and keeps its zero size without a font; the height is the width. The colour waits for the next drawing.
TEST_F(ControlTest, TextSizesByTheParentsFontAndColoursAtTheNextDrawing)
{
    HFONT font = CreateFontA(-24, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, NONANTIALIASED_QUALITY, 0, "Arial");
    unsigned long gdi = 0;  // counted once the platform's caches are warm
    for (HFONT given : {font, HFONT()})
        for (bool adopt : {false, true}) {
            HOST* host = new HOST(*parent, given, adopt ? 500 : 0);
            if (adopt) CreateWindowExA(0, "static", "", WS_CHILD | WS_VISIBLE, 5, 5, 195, 45, (*host)(), HMENU(5), nullptr, nullptr);
            vTEXT* text = new vTEXT(*host, vCTRLID(5), adopt ? vRECT(-1, -1, -1, -1) : vRECT(0, 0, 0, 0), vSTRING("Wide text"));
            HDC dc = GetDC(nullptr);
            SIZE extent;
            SelectObject(dc, font), GetTextExtentPoint32A(dc, "Wide text", 9, &extent), ReleaseDC(nullptr, dc);
            EXPECT_EQ(wintest::Placed((*text)()) + (IsWindowVisible((*text)()) ? " shown" : ""),
                      wintest::Text(adopt ? vRECT(5, 5, 200, 50) : vRECT(0, 0, given ? extent.cx : 0, given ? extent.cx : 0)));
            EXPECT_EQ(std::make_pair(text->GetTextHeight()(), text->GetTextWidth()() == extent.cx), std::make_pair(text->GetTextWidth()(), given != nullptr));
            text->Show(), ShowPainted((*text)()), text->SetTextColour(vCOLOUR(255, 0, 0));
            EXPECT_EQ(Shot((*text)()).Count(zktest::Red), 0);
            ShowPainted((*text)());
            zktest::Pixels shot = Shot((*text)());
            EXPECT_GE(shot.Count(zktest::Red), 40 * (adopt || given));
            if (adopt && given) shot.Save("text");
            DestroyWindow((*host)()), PumpFor(20);
            gdi = gdi ? gdi : zktest::LiveGdiObjects();
        }
    EXPECT_EQ(zktest::LiveGdiObjects(), gdi);
    DeleteObject(font);
}

// The icon goes on the parent's surface at the control's place; a number that names no icon draws nothing. A group box
// has an outer raised and an inner sunk frame on the face colour, and a title between them pushes the inner top down;
// adopted from a template item (made first, so on top), it is disabled and goes to the bottom.
TEST_F(ControlTest, IconAndGroupBoxDrawWhereTheyShould)
{
    for (int number : {32512, 31999}) {
        ShowPainted((*parent)());
        (new vICON(*parent, vCTRLID(6), vRESID(number, static_cast<const vMODULE*>(nullptr)), vRECT(20, 30, 20, 30)))->UpdateView(vCTRLID(0));
        zktest::Pixels after = Shot((*parent)());
        std::vector<long> ink = after.Ink(zktest::White);
        EXPECT_TRUE(number == 32512 ? ink[0] >= 20 && ink[1] >= 30 && ink[2] <= 52 && ink[3] <= 62 && ink[2] > ink[0] : !ink[2]) << number;
        if (number == 32512) after.Save("icon");
    }
    COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT), dark = GetSysColor(COLOR_BTNSHADOW), face = GetSysColor(COLOR_3DFACE);
    unsigned long gdi = 0;  // counted once the platform's caches are warm
    for (const char* title : {"Box", ""}) {
        vGROUPBOX* box = new vGROUPBOX(*parent, vCTRLID(8), vSTRING(title), vRECT(10, 10, 150, 90));
        ShowPainted((*box)());
        TEXTMETRICA metrics;
        HDC dc = GetDC((*box)());
        GetTextMetricsA(dc, &metrics), ReleaseDC((*box)(), dc);
        zktest::Pixels shot = Shot((*box)());
        EXPECT_EQ(std::vector<COLORREF>({shot.At(0, 40), shot.At(70, 0), shot.At(4, 40), shot.At(70, *title ? metrics.tmHeight + 3 : 4), shot.At(136, 40), shot.At(70, 76), shot.At(130, 40), shot.Count(0) > 0}),
                  std::vector<COLORREF>({light, light, dark, dark, light, light, face, *title != 0})) << title << ", the last is the title's ink";
        shot.Save(std::string("groupbox") + (*title ? "-titled" : ""));
        DestroyWindow((*box)()), PumpFor(20);
        gdi = gdi ? gdi : zktest::LiveGdiObjects();
    }
    EXPECT_EQ(zktest::LiveGdiObjects(), gdi);
    HOST* host = new HOST(*parent, nullptr, 500);
    HWND item = CreateWindowExA(0, "button", "Frame", WS_CHILD | BS_GROUPBOX, 5, 5, 90, 60, (*host)(), HMENU(8), nullptr, nullptr);
    CreateWindowExA(0, "button", "under", WS_CHILD, 5, 5, 20, 20, (*host)(), HMENU(9), nullptr, nullptr);
    vGROUPBOX* box = new vGROUPBOX(*host, vCTRLID(8), vSTRING(), vRECT(-1, -1, -1, -1));
    EXPECT_EQ(std::make_tuple((*box)(), IsWindowEnabled(item), GetWindow(item, GW_HWNDNEXT)), std::make_tuple(item, FALSE, HWND()));
}

}  // namespace
