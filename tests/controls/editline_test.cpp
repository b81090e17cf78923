#include <functional>

#include "controls/controltest.h"

using namespace controltest;

namespace {

// A line that notes when its view is drawn.
struct LINE : vEDITLINE {
    using vEDITLINE::vEDITLINE, vEDITLINE::keyPending;
    int vDraw(const vRECT& area) override {
        Note("line.vDraw");
        return vEDITLINE::vDraw(area);
    }
};

LOGFONTA FontOf(HWND window) {
    LOGFONTA font = {};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    return font;
}

using EditLine = ControlTest;

// A parent's font height below 1 is the size as it stands, one above counts 3/4, only weight 700 is bold; without a
// parent's font the size is 2/3 of the client height (the platform's frame is inside), 40 and then 22. The face is
// "Helv". The recessed edge goes over the left and top of what the platform painted, and an empty line shows no
// mnemonic.
TEST_F(EditLine, TheFontFollowsTheParentsFontOrTheHeightAndTheEdgeFollowsThePlatformsPaint) {
    const struct { LONG height, weight, size, bold, resized; } rows[] = {
        {0, 0, 27, 0, 15}, {-13, 700, 13, 1, 13}, {16, 400, 12, 0, 12}, {20, 800, 15, 0, 15}};
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW), field = GetSysColor(COLOR_WINDOW);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.height);
        HWND holder = CreateWindowExA(0, "static", "", WS_CHILD | WS_VISIBLE, 0, 0, 200, 100, (*parent)(), 0, 0, 0);
        HFONT font = nullptr;
        if (row.height)
            font = CreateFontA(row.height, 0, 0, 0, row.weight, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
        SendMessageA(holder, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
        wintest::RECORDER owner(holder, "holder");
        LINE line(owner, vCTRLID(5), vSTRING(), vRECT(0, 0, 100, 40));
        LOGFONTA made = FontOf(line());
        line.Size(vRECT(0, 0, 100, 22));
        ShowPainted(line());
        zktest::Pixels edged = Shot(line());
        EXPECT_EQ(std::vector<LONG>({made.lfHeight, made.lfWeight >= FW_BOLD, FontOf(line()).lfHeight}),
                  std::vector<LONG>({row.size, row.bold, row.resized}));
        EXPECT_EQ(line.Length()(), 0);
        EXPECT_STREQ(made.lfFaceName, "Helv");
        EXPECT_EQ(std::vector<COLORREF>({edged.At(0, 11), edged.At(50, 0), edged.At(50, 11)}),
                  std::vector<COLORREF>({shadow, shadow, field}));
        edged.Save("editline-edge");
        DestroyWindow(holder);
        DeleteObject(font);
    }
}

// A change updates the view once if a key went down since the last one, never for a program's text, which Text() never
// gives back. The platform's own limit holds until MaxLength sets one; typing then stops there, and a line reads at
// most 200 characters.
TEST_F(EditLine, TypedChangesUpdateTheViewAndTheLimitStopsTyping) {
    LINE* line = new LINE(*parent, vCTRLID(5), vSTRING("ab"), vRECT(10, 10, 150, 34));
    HWND h = (*line)();
    ShowPainted(h);
    SetFocus(h);
    EXPECT_NE(SendMessageA(h, EM_GETLIMITTEXT, 0, 0), line->MaxLength()());
    auto send = [h](UINT message, WPARAM wParam) { return [=] { SendMessageA(h, message, wParam, 0); }; };
    auto text = [line](const std::string& s) { return [=] { line->Text(vSTRING("%s", s.c_str())); }; };
    auto type = [line](const char* keys) {
        return [=] {
            line->Select(line->Length(), line->Length());
            Type(keys);
        };
    };
    auto limited = [=] {
        line->MaxLength(vINT(5));
        type("345")();
    };
    const WPARAM change = MAKEWPARAM(5, EN_CHANGE);
    const struct { const char* input; std::function<void()> act; long pending; size_t views; std::string shown; }
    rows[] = {
        {"a change with a key pending", send(WM_COMMAND, change), 0, 1, "ab"},
        {"a change with none pending", send(WM_COMMAND, change), 0, 0, "ab"},
        {"a key that changes nothing", send(WM_KEYDOWN, VK_SHIFT), 1, 0, "ab"},
        {"a program's text", text("cd"), 1, 0, "cd"},
        {"two typed keys", type("12"), 0, 2, "cd12"},
        {"typed past a limit of 5", limited, 0, 3, "cd123"},
        {"a program's long text", text(std::string(300, 'x')), 0, 0, std::string(200, 'x')}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.input);
        Log().clear();
        row.act();
        EXPECT_EQ(line->keyPending, row.pending);
        EXPECT_EQ(Only("vDraw").size(), row.views);
        EXPECT_EQ(line->GetLine()(), row.shown);
    }
    EXPECT_EQ(SendMessageA(h, EM_GETLIMITTEXT, 0, 0), 5);
    EXPECT_STREQ(line->Text()(), "ab");
}

// ViewRow sums the lengths of the rows holding the characters 0, 1, 2..., so it answers a later row than the caret's
// (truly 0, 0, 0, 1, 2 below); ViewRow(row) puts the caret at the sum of the starts of the rows before.
TEST_F(EditLine, AnEditBoxsViewRowsCountByCharactersAndSumTheRowStarts) {
    vEDITBOX* box = new vEDITBOX(*parent, vCTRLID(5), vSTRING("abc\r\ndefgh\r\nij"), vINT(9), vRECT(10, 10, 200, 100));
    HWND h = (*box)();
    auto held = [box] { return std::to_string(box->Length()()) + box->Text()() + std::to_string(box->MaxRows()()); };
    EXPECT_EQ(held(), "14abc\r\ndefgh\r\nij3");
    const struct { int caret, row, row2, caret2; } rows[] = {
        {0, 0, 0, 0}, {3, 0, 1, 0}, {4, 1, 2, 5}, {7, 2, 3, 14}, {13, 3, 4, 9}};
    for (const auto& row : rows) {
        SendMessageA(h, EM_SETSEL, row.caret, row.caret);
        EXPECT_EQ(box->ViewRow()(), row.row) << row.caret;
        SendMessageA(h, EM_SETSEL, 9, 9);
        box->ViewRow(vINT(row.row2));
        EXPECT_EQ(SendMessageA(h, EM_GETSEL, 0, 0), MAKELONG(row.caret2, row.caret2)) << row.row2;
    }
    box->Text(static_cast<char*>(nullptr));
    EXPECT_EQ(held(), "01");
}

}  // namespace
