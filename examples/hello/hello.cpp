// Hello: the example program. A frame holds one canvas that draws shapes,
// fills and text; a click moves the marker, the arrow keys nudge it and a
// letter key becomes the caption. Its Details button opens a standard dialog
// whose values land in the program's data and show on the canvas. Started
// with --screenshot FILE it fills in the dialog, saves a picture of it and
// one of the frame as PNGs, and closes itself.
#include <zkshell.h>

#include <cstddef>
#include <string>

#include "png.h"

namespace {

const vCOLOUR ink(20, 30, 60);
const vCOLOUR paper(250, 248, 240);
const vCOLOUR sky(90, 150, 220);
const vCOLOUR sun(245, 190, 40);
const vCOLOUR grass(60, 160, 80);
const vCOLOUR brick(190, 70, 50);

vPOINT At(long x, long y)
{
    return vPOINT(vINT(x), vINT(y));
}

vRECT Box(long left, long top, long right, long bottom)
{
    return vRECT(vINT(left), vINT(top), vINT(right), vINT(bottom));
}

vLINESPEC Line(const vCOLOUR& colour, long width, vDASHTYPE dash = vDASH_SOLID)
{
    return vLINESPEC(vLINE_SOLID, colour, vINT(width), vCORNER_ROUND, dash, nullptr);
}

vFILLSPEC Fill(vFILLTYPE type, const vCOLOUR& from, const vCOLOUR& to = vCOLOUR(255, 255, 255), short angle = 0)
{
    return vFILLSPEC(type, from, to, vANGLE(angle), vFILL_ALTERNATE);
}

vFONTSPEC Typeface(const char* name, vFONTSTYLE style, long points)
{
    return vFONTSPEC(vSTRING("%s", name), style, vINT(points), vREAL(1.0), 100, vFONT_POINTS, vANGLE(short(0)));
}

// What the details dialog fills in.
struct DETAILS_DATA {
    char name[32];
    char motto[64];
};

const unsigned short DETAILS_TEMPLATE = 100;
const unsigned short CMD_DETAILS = 200;

}  // namespace

// A line of text in the details dialog: it adopts the template's edit item
// and moves its value between the edit and the program's data.
class FIELD : public vCONTROL {
public:
    FIELD(vWIN& parent, vCTRLID& id)
        : vCONTROL(parent, id, Box(-1, -1, -1, -1), vSTRING(), CLASSID_CONTROL), value(nullptr), length(0)
    {
    }

    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID&) { return new FIELD(parent, id); }

    void SetupView(char* at, unsigned short size) override
    {
        value = at;
        length = size;
    }

    void UpdateView(const vCTRLID&) override
    {
        if (value)
            SetWindowTextA(hWnd, value);
    }

    void UpdateData(void*) override
    {
        if (value)
            GetWindowTextA(hWnd, value, length);
    }

protected:
    // The edit paints itself, before the library's painting would take its
    // update region away.
    int MsgHandler(unsigned int message, unsigned int wParam, long lParam, long& result) override
    {
        if (message != WM_PAINT)
            return vCONTROL::MsgHandler(message, wParam, lParam, result);
        result = CallWindowProcA(pfnOldProc, hWnd, message, wParam, lParam);
        return 1;
    }

private:
    char* value;
    unsigned short length;
};

namespace {

const vCONTROLMAP DetailsMap[] = {
    {FIELD::New, 101, 0, offsetof(DETAILS_DATA, name), sizeof DETAILS_DATA::name},
    {FIELD::New, 102, 0, offsetof(DETAILS_DATA, motto), sizeof DETAILS_DATA::motto},
    {nullptr, 101, 0, 0, 0},
};

}  // namespace

// The details dialog: OK takes the fields into the program's data, Cancel
// leaves the data as it was.
class DETAILS : public fSTDDIALOG {
public:
    DETAILS(const vWIN& parent, DETAILS_DATA& data)
        : fSTDDIALOG(parent, vRESID(DETAILS_TEMPLATE, parent.Application()), STD_OK | STD_CANCEL, DetailsMap, &data,
                     vSTRING("Your details"), 1)
    {
        Init();
    }

    int fOK() override
    {
        UpdateData(viewData);
        return fSTDDIALOG::fOK();
    }

    // The dialog that is up, for the screenshot tour.
    static DETAILS* open;
};

DETAILS* DETAILS::open = nullptr;

// The drawing: everything is drawn afresh from the marker and the caption.
class CANVAS : public vWIN {
public:
    explicit CANVAS(const vAPP& app)
        : vWIN(app, Box(0, 0, 640, 420)), marker(At(470, 300)), caption(vSTRING("Hello from ZKSHELL")),
          details{"Nobody yet", "Press Details to say who you are"}
    {
        vBUTTON* button = new vBUTTON(*this, vCTRLID(CMD_DETAILS), vSTRING("&Details..."), Box(500, 372, 620, 400));
        button->Show();
    }

    int vCommand(const vCTRLID& id) override
    {
        if (id != vCTRLID(CMD_DETAILS))
            return 0;
        DETAILS::open = new DETAILS(*this, details);
        DETAILS::open->Modal();
        DETAILS::open = nullptr;
        Invalidate();
        return 1;
    }

    int vDraw(const vRECT&) override
    {
        DrawScene();
        DrawMarker();
        DrawCaption();
        return 1;
    }

    int vMouseLeftPress(const vPOINT& point) override { return MoveMarker(point); }
    int vArrowLeftKey() override { return MoveMarker(marker - At(10, 0)); }
    int vArrowRightKey() override { return MoveMarker(marker + At(10, 0)); }
    int vArrowUpKey() override { return MoveMarker(marker - At(0, 10)); }
    int vArrowDownKey() override { return MoveMarker(marker + At(0, 10)); }

    int vCharacterKey(const vCHAR& character) override
    {
        caption = vSTRING("You pressed ") + character;
        Invalidate();
        return 1;
    }

private:
    int MoveMarker(const vPOINT& point)
    {
        marker = point;
        Invalidate();
        return 1;
    }

    void DrawScene()
    {
        vRECT area = ClientSize();
        LineSpec(Line(ink, 0));
        FillSpec(Fill(vFILL_GRADIENT_LINEAR, sky, paper, 90));
        DrawRect(area);
        FillSpec(Fill(vFILL_SOLID, sun));
        LineSpec(Line(brick, 3));
        DrawEllipse(Box(40, 30, 130, 120));
        FillSpec(Fill(vFILL_SOLID, grass));
        LineSpec(Line(grass, 1));
        DrawRect(Box(0, 300, area.Right()(), area.Bottom()()));
        FillSpec(Fill(vFILL_HATCH_DIAGCROSS, brick));
        LineSpec(Line(ink, 2));
        DrawRect(Box(200, 170, 360, 300));
        FillSpec(Fill(vFILL_SOLID, paper));
        DrawRoundRect(Box(250, 230, 300, 300), vSIZE(vINT(10), vINT(10)));
        LineSpec(Line(ink, 1, vDASH_DASH));
        DrawLine(At(20, 330), At(620, 330));
    }

    void DrawMarker()
    {
        LineSpec(Line(ink, 2));
        FillSpec(Fill(vFILL_HATCH_CROSS, sun));
        DrawEllipse(Box(marker.x() - 25, marker.y() - 25, marker.x() + 25, marker.y() + 25));
    }

    void DrawCaption()
    {
        Transparency(1);
        FontSpec(Typeface("Arial", vFONT_BOLD, 20));
        LineSpec(Line(ink, 1));
        DrawTextA(caption, Box(150, 40, 620, 90), vTEXT_CENTRE);
        FontSpec(Typeface("Arial", vFONT_ITALIC, 10));
        DrawTextA(vSTRING("Click to move the marker, arrows to nudge it, a letter to change the greeting"),
                  Box(150, 90, 620, 120), vTEXT_CENTRE);
        FontSpec(Typeface("Arial", vFONT_BOLD, 11));
        DrawTextA(vSTRING("%s", details.name), Box(20, 345, 480, 370), vTEXT_LEFT);
        FontSpec(Typeface("Arial", vFONT_ITALIC, 10));
        DrawTextA(vSTRING("\"%s\"", details.motto), Box(20, 370, 480, 395), vTEXT_LEFT);
    }

    vPOINT marker;
    vSTRING caption;
    DETAILS_DATA details;
};

// The application: a frame without documents whose canvas fills it.
class HELLO : public vAPP {
public:
    HELLO() : vAPP(vSTRING("HelloFrame"), vSTRING("Hello"), 0), canvas(nullptr) {}

    int vQueryClose() override { return 1; }

    int vSize(const vRECT&) override
    {
        if (canvas)
            canvas->Size(ClientSize());
        return 1;
    }

    void Build()
    {
        canvas = new CANVAS(*this);
        // Above the frame's document client, which a program without
        // documents leaves empty.
        SetWindowPos((*canvas)(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        Size(Box(40, 40, 700, 520));
        canvas->Show();
    }

    HWND Canvas() const { return (*canvas)(); }

private:
    CANVAS* canvas;
};

namespace {

HELLO* hello = nullptr;
std::string screenshot;

// "hello.png" gives "hello-dialog.png".
std::string DialogPicture()
{
    size_t dot = screenshot.rfind('.');
    return screenshot.substr(0, dot) + "-dialog" + screenshot.substr(dot);
}

// The frame's pixels as the window's own context holds them, children and
// all, as a PNG.
void SaveFrame(HWND frame, const char* path)
{
    RECT box;
    GetWindowRect(frame, &box);
    int width = box.right - box.left;
    int height = box.bottom - box.top;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HDC window = GetWindowDC(frame);
    HDC memory = CreateCompatibleDC(window);
    HBITMAP picture = CreateDIBSection(window, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(memory, picture);
    BitBlt(memory, 0, 0, width, height, window, 0, 0, SRCCOPY);
    GdiFlush();
    WritePng(path, static_cast<unsigned char*>(bits), width, height);
    SelectObject(memory, before);
    DeleteObject(picture);
    DeleteDC(memory);
    ReleaseDC(frame, window);
}

// Runs inside the dialog's own message loop: types as a user would, keeps a
// picture of the dialog and presses OK.
void CALLBACK FillInDetails(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    HWND dialog = (*DETAILS::open)();
    SetDlgItemTextA(dialog, 101, "Ada Lovelace");
    SetDlgItemTextA(dialog, 102, "That brain of mine is something more than merely mortal");
    RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    SaveFrame(dialog, DialogPicture().c_str());
    SendMessageA(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
}

void CALLBACK TakeScreenshot(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    SetTimer(nullptr, 0, 500, FillInDetails);
    SendMessageA(GetDlgItem(hello->Canvas(), CMD_DETAILS), BM_CLICK, 0, 0);
    HWND frame = vSYSTEM::GetFrameWindow();
    RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    SaveFrame(frame, screenshot.c_str());
    hello->Close();
}

std::string ScreenshotPath(const vSTRING& command)
{
    std::string line(command());
    const std::string flag = "--screenshot ";
    size_t at = line.find(flag);
    return at == std::string::npos ? std::string() : line.substr(at + flag.size());
}

}  // namespace

vAPP* vMain()
{
    hello = new HELLO;
    hello->Build();
    hello->Show();
    screenshot = ScreenshotPath(hello->GetSetCommand(vSTRING()));
    if (!screenshot.empty())
        SetTimer(nullptr, 0, 700, TakeScreenshot);
    return hello;
}
