#include "controls/control.h"

#include "app/pointer.h"
#include "base/memory.h"

#include <algorithm>
#include <iterator>

namespace {

// A line starts with this limit without telling the platform, whose own
// limit stays in force until MaxLength is set.
const unsigned short StartLength = 10;

// The most that GetLine reads of a line.
const WORD LineLimit = 200;

const DWORD LineStyle = WS_CHILD | WS_BORDER | WS_TABSTOP;
const DWORD BoxStyle = WS_BORDER | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL |
                       ES_AUTOHSCROLL;

// The messages by which the user's typing reaches the platform's edit.
const UINT TypingMessages[] = {WM_KEYDOWN, WM_CHAR, WM_CUT, WM_PASTE, WM_CLEAR, WM_UNDO};

int IsTyping(UINT message)
{
    return std::find(std::begin(TypingMessages), std::end(TypingMessages), message) != std::end(TypingMessages);
}

}  // namespace

// --------------------------------------------------------------- vEDITLINE

vEDITLINE::vEDITLINE(const vWIN& parent, const vCTRLID& controlId, const vSTRING& caption, const vRECT& rect,
                     vCLASSID classId)
    : vCONTROL(parent, controlId, rect, caption, classId), maxLength(StartLength), keyPending(1)
{
    lstrcpyA(CreateParams.szClassName, "edit");
    if (classId == CLASSID_EDITLINE) {
        // The field starts empty, not with the mnemonic a control's window
        // is otherwise titled with; Text puts the caption in.
        CreateParams.lpszTitle = nullptr;
        CreateOrAdopt(LineStyle);
        if (caption.Length())
            Text(caption);
    }
    Pointer()->Form(PF_IBEAM);
    FollowFont();
    keyPending = 1;
}

// The parent's font gives the size and the weight; without one the text
// takes two thirds of the line's height. The font stays the device's, which
// lets it go when the next one is made or the line dies.
void vEDITLINE::FollowFont()
{
    if (!hWnd)
        return;
    HFONT parentFont = reinterpret_cast<HFONT>(SendMessageA(GetParent(hWnd), WM_GETFONT, 0, 0));
    vFONTSTYLE style = vFONT_NORMAL;
    long size = (ClientSize().Height()() * 2 + 2) / 3;
    LOGFONTA described;
    if (parentFont && GetObjectA(parentFont, sizeof described, &described)) {
        style = described.lfWeight == FW_BOLD ? vFONT_BOLD : vFONT_NORMAL;
        size = described.lfHeight < 1 ? -described.lfHeight : described.lfHeight * 3 / 4;
    }
    FontSpec(vFONTSPEC(vSTRING("%s", "Helv"), style, size, vREAL(0), 100, vFONT_PIXELS, vANGLE(short(0))));
    HFONT font = ActivateFont();
    SelectObject(GetZKDC(), GetStockObject(SYSTEM_FONT));
    ReleaseDC();
    SendMessageA(hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

LRESULT vEDITLINE::Platform(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return CallWindowProcA(pfnOldProc, hWnd, message, wParam, lParam);
}

// The platform paints first and the recessed edge goes on top. A change
// reported while no key has gone down since the last one came from a program,
// and the view is left alone.
int vEDITLINE::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_PAINT) {
        result = Platform(message, wParam, lParam);
        DrawBorder(ClientSize(), 0);
        ReleaseDC();
    } else if (message == WM_KEYDOWN) {
        keyPending = 1;
    } else if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE && keyPending) {
        keyPending = 0;
        UpdateView(vCTRLID(0));
        return 1;
    }
    int handled = vCONTROL::MsgHandler(message, wParam, lParam, result);
    if (handled || !IsTyping(message))
        return handled;
    return PassWatchingChange(message, wParam, lParam, result);
}

// The platform reports a change of the text only to the parent. So that the
// line hears of the user's changes too, the platform's modified flag is
// watched over each typing message and the change is reported to the line
// itself as the parent got it; the flag is then left as the user's typing
// would leave it.
int vEDITLINE::PassWatchingChange(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    HWND self = hWnd;
    LRESULT modifiedBefore = Platform(EM_GETMODIFY);
    Platform(EM_SETMODIFY, FALSE);
    result = Platform(message, wParam, lParam);
    // A parent may destroy the line while it hears of the change.
    if (!IsWindow(self))
        return 1;
    LRESULT changed = Platform(EM_GETMODIFY);
    if (modifiedBefore)
        Platform(EM_SETMODIFY, TRUE);
    // Straight to the handler: the platform's edit takes a command it is sent
    // for one of its own menu's, by the identifier.
    LRESULT unused = 0;
    if (changed)
        MsgHandler(WM_COMMAND, MAKEWPARAM(id, EN_CHANGE), reinterpret_cast<LPARAM>(hWnd), unused);
    return 1;
}

// A derived class draws its view here; the line itself has none.
int vEDITLINE::vDraw(const vRECT&)
{
    return 0;
}

void vEDITLINE::Size(const vRECT& rect)
{
    vCONTROL::Size(rect);
    FollowFont();
}

vRECT vEDITLINE::Size() const
{
    return vCONTROL::Size();
}

void vEDITLINE::UpdateView(const vCTRLID&)
{
    vDraw(ClientSize());
}

void vEDITLINE::SetupView(char*, unsigned short) {}

void vEDITLINE::UpdateData(void*) {}

void vEDITLINE::Text(const vSTRING& shown)
{
    SetWindowTextA(hWnd, shown());
}

vSTRING vEDITLINE::Text()
{
    return vCONTROL::Text();
}

void vEDITLINE::ReadOnly(int readOnly)
{
    SendMessageA(hWnd, EM_SETREADONLY, readOnly, 0);
}

vINT vEDITLINE::MaxLength() const
{
    return maxLength;
}

// The limit reaches the platform through the parent, as a dialog item's
// message; a line without a parent keeps it only here.
void vEDITLINE::MaxLength(const vINT& length)
{
    maxLength = static_cast<unsigned short>(length());
    vWIN* parent = Parent();
    if (parent)
        SendDlgItemMessageA((*parent)(), id, EM_LIMITTEXT, static_cast<WPARAM>(length()), 0);
}

void vEDITLINE::Select(const vINT& from, const vINT& to)
{
    SendMessageA(hWnd, EM_SETSEL, static_cast<WPARAM>(from()), static_cast<LPARAM>(to()));
}

vINT vEDITLINE::Length() const
{
    return vINT(GetWindowTextLengthA(hWnd));
}

// The platform reads the limit from the first two bytes of the buffer and
// does not end what it copies.
vSTRING vEDITLINE::GetLine()
{
    char* buffer = vSYSTEM::GetBuffer();
    *reinterpret_cast<WORD*>(buffer) = LineLimit;
    LRESULT copied = SendMessageA(hWnd, EM_GETLINE, 0, reinterpret_cast<LPARAM>(buffer));
    buffer[std::min<LRESULT>(copied, LineLimit)] = 0;
    return vSTRING("%s", buffer);
}

// ---------------------------------------------------------------- vEDITBOX

// The window is made here rather than by the line, with its text as the
// title; the kept text is set last, as a control's text is.
vEDITBOX::vEDITBOX(const vWIN& parent, const vCTRLID& controlId, const vSTRING& caption, const vINT& rows,
                   const vRECT& rect, vCLASSID classId)
    : vEDITLINE(parent, controlId, caption, rect, classId), maxRows(static_cast<unsigned short>(rows()))
{
    if (classId != CLASSID_EDITBOX)
        return;
    lstrcpyA(CreateParams.szClassName, "edit");
    CreateParams.lpszTitle = caption();
    CreateOrAdopt(BoxStyle);
    vCONTROL::Text(caption);
}

// The kept text goes with the control.
vEDITBOX::~vEDITBOX() {}

void vEDITBOX::Text(char* newText)
{
    vMemFree(text);
    text = nullptr;
    if (newText) {
        text = static_cast<char*>(vMemAlloc(lstrlenA(newText) + 1));
        lstrcpyA(text, newText);
    }
    SetWindowTextA(hWnd, newText);
}

vINT vEDITBOX::MaxRows() const
{
    return vINT(static_cast<long>(SendMessageA(hWnd, EM_GETLINECOUNT, 0, 0)));
}

void vEDITBOX::MaxRows(vINT rows)
{
    maxRows = static_cast<unsigned short>(rows());
}

// The row numbers are handed to the platform where it expects a character
// position, and programs that place their views by the answer count on it
// as it is: the lengths summed are those of the rows holding the characters
// 0, 1, 2 and so on, not those of the rows themselves.
vINT vEDITBOX::ViewRow()
{
    unsigned short caret = LOWORD(SendMessageA(hWnd, EM_GETSEL, 0, 0));
    long rows = MaxRows()();
    long row = 0;
    unsigned short sum = static_cast<unsigned short>(SendMessageA(hWnd, EM_LINELENGTH, row, 0));
    while (sum < caret && row < rows) {
        ++row;
        sum += static_cast<unsigned short>(SendMessageA(hWnd, EM_LINELENGTH, row, 0));
    }
    return vINT(row);
}

// The caret goes to the sum of the starts of the rows before the one asked
// for, not to that row's start; kept as it is for the same programs.
void vEDITBOX::ViewRow(vINT row)
{
    if (row() > MaxRows()())
        return;
    long sum = 0;
    for (long before = 0; before < row(); ++before)
        sum += static_cast<long>(SendMessageA(hWnd, EM_LINEINDEX, before, 0));
    SendMessageA(hWnd, EM_SETSEL, sum, sum);
}
