#include <zkshell.h>

#include <string>
#include <vector>

#include "bench/bench.h"

namespace {

const unsigned long items = 10000;
const unsigned long pages = 200;
const int itemHeight = 16;
const vRECT ListArea(0, 0, 300, 460);

// The texts of the items, in a fixed shuffled order, so that a sorted list
// inserts all over and not always at the end.
std::vector<std::string> Texts()
{
    std::vector<std::string> texts;
    unsigned long state = 12345;
    for (unsigned long n = 0; n < items; ++n) {
        state = state * 1103515245 + 12345;
        texts.push_back("item " + std::to_string((state >> 8) % 100000));
    }
    return texts;
}

HWND PlatformList(HWND parent, DWORD style)
{
    return CreateWindowExA(0, "listbox", nullptr, WS_CHILD | WS_VSCROLL | LBS_HASSTRINGS | LBS_NOTIFY | style, 0, 0,
                           300, 460, parent, reinterpret_cast<HMENU>(2), GetModuleHandleA(nullptr), nullptr);
}

void Fill(const char* name, const char* baseline, unsigned short form, DWORD style, vWIN& holder)
{
    std::vector<std::string> texts = Texts();
    std::vector<vSTRING> ours;
    for (const std::string& text : texts)
        ours.push_back(vSTRING("%s", text.c_str()));
    zkbench::Record(name, baseline, zkbench::Compare([&] {
        vLISTBOX* list = new vLISTBOX(holder, vCTRLID(1), form, vSIZE(0, itemHeight), ListArea);
        for (const vSTRING& text : ours)
            list->Append(text, nullptr);
        DestroyWindow((*list)());
    }, [&] {
        HWND list = PlatformList(holder(), style);
        for (const std::string& text : texts)
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        DestroyWindow(list);
    }, items, 5));
}

// The drawing that the library's list does for a plain item, written as a
// window procedure of the list's parent: the background, then the text.
LRESULT CALLBACK DrawingParent(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_DRAWITEM)
        return DefWindowProcA(window, message, wParam, lParam);
    DRAWITEMSTRUCT* item = reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
    char text[256] = "";
    SendMessageA(item->hwndItem, LB_GETTEXT, item->itemID, reinterpret_cast<LPARAM>(text));
    FillRect(item->hDC, &item->rcItem, GetSysColorBrush(COLOR_WINDOW));
    SetTextColor(item->hDC, GetSysColor(COLOR_WINDOWTEXT));
    SetBkMode(item->hDC, TRANSPARENT);
    DrawTextA(item->hDC, text, -1, &item->rcItem, DT_LEFT);
    return TRUE;
}

HWND DrawingParentWindow(HWND frame)
{
    WNDCLASSA kind = {};
    kind.lpfnWndProc = DrawingParent;
    kind.hInstance = GetModuleHandleA(nullptr);
    kind.lpszClassName = "ZKBENCHDRAW";
    RegisterClassA(&kind);
    return CreateWindowExA(0, "ZKBENCHDRAW", nullptr, WS_CHILD | WS_VISIBLE, 330, 0, 320, 480, frame, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

void Repaint(HWND list)
{
    InvalidateRect(list, nullptr, TRUE);
    UpdateWindow(list);
}

// A full page of owner-drawn items, each painted by the list itself against
// the same page painted by a raw WM_DRAWITEM handler.
void Paint(vWIN& holder, HWND frame)
{
    std::vector<std::string> texts = Texts();
    vLISTBOX* ours = new vLISTBOX(holder, vCTRLID(1), 0, vSIZE(0, itemHeight), ListArea);
    HWND rawParent = DrawingParentWindow(frame);
    HWND theirs = PlatformList(rawParent, LBS_OWNERDRAWFIXED | WS_VISIBLE);
    SendMessageA(theirs, LB_SETITEMHEIGHT, 0, itemHeight);
    for (unsigned long n = 0; n < 40; ++n) {
        ours->Append(vSTRING("%s", texts[n].c_str()), nullptr);
        SendMessageA(theirs, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(texts[n].c_str()));
    }
    ours->Show();
    zkbench::Record("listbox.paint", "raw WM_DRAWITEM handler", zkbench::Compare([&] {
        for (unsigned long n = 0; n < pages; ++n)
            Repaint((*ours)());
    }, [&] {
        for (unsigned long n = 0; n < pages; ++n)
            Repaint(theirs);
    }, pages, 5));
    DestroyWindow((*ours)());
    DestroyWindow(rawParent);
}

}  // namespace

// The two pages stand side by side on a shown frame, so that both are
// really painted.
void BenchListBoxes(const vAPP& app, HWND frame)
{
    SetWindowPos(frame, nullptr, 0, 0, 700, 560, SWP_NOZORDER | SWP_SHOWWINDOW);
    vWIN* holder = new vWIN(app, vRECT(0, 0, 320, 480));
    ShowWindow((*holder)(), SW_SHOW);
    Fill("listbox.fill", "LB_ADDSTRING, plain list", 0, 0, *holder);
    Fill("listbox.sorted", "LB_ADDSTRING, sorted list", LBF_SORTED, LBS_SORT, *holder);
    Paint(*holder, frame);
    DestroyWindow((*holder)());
}
