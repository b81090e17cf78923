// Hello: the example program. A frame of documents: File > New opens a
// sketch that draws shapes, fills and text, where a click moves the marker,
// the arrow keys nudge it and a letter key becomes the caption. The Window
// menu cascades, tiles and arranges the sketches in rows or columns, Help >
// About shows a message box, and File > Details... opens a standard dialog
// whose values land in the program's data and show on every sketch. Started
// with --screenshot FILE it opens three sketches in columns, saves a picture
// of the frame and one of the filled-in dialog as PNGs, and closes itself.
#include <zkshell.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
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

// What the details dialog fills in: who draws, and how the marker looks.
struct DETAILS_DATA {
    char name[32];
    char motto[64];
    int showMotto;
    int markerColour;
    double markerSize;
};

// The details dialog's template and its items. The number field's stepping
// keys take the identifiers 100 and 101 on the dialog, so nothing else may.
const unsigned short DETAILS_TEMPLATE = 100;
const unsigned short NAME_ITEM = 111;
const unsigned short MOTTO_ITEM = 112;
const unsigned short OPTIONS_BOX = 113;
const unsigned short MOTTO_CHECK = 114;
const unsigned short FIRST_COLOUR = 115;
const unsigned short SIZE_LABEL = 118;
const unsigned short SIZE_FIELD = 119;
const unsigned short SIZE_UP_KEY = 100;
const int ColourCount = 3;
const unsigned short CMD_DETAILS = 200;
// The Window menu's "Arrange in columns".
const unsigned short MENU_COLUMNS = 30006;

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
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
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
    {FIELD::New, NAME_ITEM, 0, offsetof(DETAILS_DATA, name), sizeof DETAILS_DATA::name},
    {FIELD::New, MOTTO_ITEM, 0, offsetof(DETAILS_DATA, motto), sizeof DETAILS_DATA::motto},
    {nullptr, NAME_ITEM, 0, 0, 0},
};

}  // namespace

// The marker's fills, as the radio buttons name them.
const vCOLOUR MarkerColours[ColourCount] = {sun, grass, sky};
const char* const MarkerColourNames[ColourCount] = {"S&un", "&Grass", "S&ky"};

// The details dialog: OK takes the fields into the program's data, Cancel
// leaves the data as it was. The template holds the two text fields; the
// marker's options are made here, in a group box below them, in the
// dialog's own units.
class DETAILS : public fSTDDIALOG {
public:
    DETAILS(const vWIN& parent, DETAILS_DATA& data)
        : fSTDDIALOG(parent, vRESID(DETAILS_TEMPLATE, parent.Application()), STD_OK | STD_CANCEL, DetailsMap, &data,
                     vSTRING("Your details"), 1),
          data(data)
    {
        Init();
        mottoCheck = new vCHECKBOX(*this, vCTRLID(MOTTO_CHECK), vSTRING("Show the &motto"), Box(16, 60, 120, 72));
        for (int n = 0; n < ColourCount; ++n)
            colours[n] = new vRADIOBTN(*this, vCTRLID(FIRST_COLOUR + n), vSTRING("%s", MarkerColourNames[n]),
                                       Box(16 + 54 * n, 78, 66 + 54 * n, 90));
        colours[0]->SetGroup(*colours[0], *colours[ColourCount - 1]);
        new vTEXT(*this, vCTRLID(SIZE_LABEL), Box(16, 100, 62, 110), vSTRING("Size:"));
        size = new vNUDGE(*this, vCTRLID(SIZE_FIELD), Box(64, 98, 108, 110));
        size->Range(10, 40);
        size->Increment(5);
        ShowChoices();
        // Last, as each new control goes below those made before it, and the
        // box must lie below what it holds.
        new vGROUPBOX(*this, vCTRLID(OPTIONS_BOX), vSTRING("Marker"), Box(8, 46, 184, 120));
        for (unsigned short id = OPTIONS_BOX; id <= SIZE_FIELD; ++id)
            ShowWindow(GetDlgItem(hWnd, id), SW_SHOW);
        ShowWindow(GetDlgItem(hWnd, SIZE_UP_KEY), SW_SHOW);
        ShowWindow(GetDlgItem(hWnd, SIZE_UP_KEY + 1), SW_SHOW);
    }

    int fOK() override
    {
        UpdateData(viewData);
        data.showMotto = mottoCheck->Checked();
        for (int n = 0; n < ColourCount; ++n)
            if (colours[n]->Selected())
                data.markerColour = n;
        size->UpdateView(vCTRLID(0));
        data.markerSize = atof(size->GetLine()());
        return fSTDDIALOG::fOK();
    }

    // The dialog that is up, for the screenshot tour.
    static DETAILS* open;

private:
    // The number field reads what it shows when asked to take up a typed
    // value, which is how it learns the size it starts from.
    void ShowChoices()
    {
        data.showMotto ? mottoCheck->Check() : mottoCheck->Uncheck();
        colours[data.markerColour]->Select();
        size->Text(vSTRING(vREAL(data.markerSize)));
        size->UpdateView(vCTRLID(0));
    }

    DETAILS_DATA& data;
    vCHECKBOX* mottoCheck = nullptr;
    vRADIOBTN* colours[ColourCount] = {};
    vNUDGE* size = nullptr;
};

DETAILS* DETAILS::open = nullptr;

// A document: a drawing of its own, drawn afresh from the marker and the
// caption, with the program's details under it.
class SKETCH : public vDOCWIN {
public:
    SKETCH(const vAPP& app, const vSTRING& title, const DETAILS_DATA& details, int number)
        : vDOCWIN(app, Box(0, 0, 640, 420), title, WF_SIZING, CF_MAXBOX | CF_MINBOX | CF_SYSMENU),
          marker(At(80 + 60 * (number % 4), 210)), caption(vSTRING("Hello, sketch %d", number)),
          details(details), view(At(0, 0))
    {
    }

    int vDraw(const vRECT&) override
    {
        Origin(view);
        DrawScene();
        DrawMarker();
        DrawCaption();
        return 1;
    }

    ~SKETCH() override;

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

    // A window smaller than the canvas shows its own scroll bars. The library
    // names a horizontal step by the way the picture moves, so the left arrow
    // asks for vScrollIncRight; the vertical steps are named by the view.
    int vSize(const vRECT&) override { return ScrollBy(0, 0); }
    int vScrollIncRight() override { return ScrollBy(-LineStep, 0); }
    int vScrollIncLeft() override { return ScrollBy(LineStep, 0); }
    int vScrollPageRight() override { return ScrollBy(-PageStep, 0); }
    int vScrollPageLeft() override { return ScrollBy(PageStep, 0); }
    int vScrollIncUp() override { return ScrollBy(0, -LineStep); }
    int vScrollIncDown() override { return ScrollBy(0, LineStep); }
    int vScrollPageUp() override { return ScrollBy(0, -PageStep); }
    int vScrollPageDown() override { return ScrollBy(0, PageStep); }

private:
    static constexpr long CanvasWidth = 640;
    static constexpr long CanvasHeight = 420;
    static constexpr long LineStep = 16;
    static constexpr long PageStep = 160;

    // Moves the view, kept on the canvas, and sets each bar to what is left
    // to see; a bar with nothing to show goes away.
    int ScrollBy(long dx, long dy)
    {
        RECT client;
        GetClientRect(hWnd, &client);
        long x = Within(view.x() + dx, CanvasWidth - client.right);
        long y = Within(view.y() + dy, CanvasHeight - client.bottom);
        SetScrollRange(hWnd, SB_HORZ, 0, std::max(0L, CanvasWidth - client.right), FALSE);
        SetScrollPos(hWnd, SB_HORZ, x, TRUE);
        SetScrollRange(hWnd, SB_VERT, 0, std::max(0L, CanvasHeight - client.bottom), FALSE);
        SetScrollPos(hWnd, SB_VERT, y, TRUE);
        if (x != view.x() || y != view.y()) {
            view = At(x, y);
            Invalidate();
        }
        return 1;
    }

    static long Within(long value, long most) { return std::max(0L, std::min(value, most)); }

    int MoveMarker(const vPOINT& point)
    {
        marker = point;
        Invalidate();
        return 1;
    }

    void DrawScene()
    {
        vRECT seen = ClientSize();
        vRECT area = Box(0, 0, std::max(CanvasWidth, seen.Right()()), std::max(CanvasHeight, seen.Bottom()()));
        LineSpec(Line(ink, 0));
        FillSpec(Fill(vFILL_GRADIENT_LINEAR, sky, paper, 90));
        DrawRect(area);
        FillSpec(Fill(vFILL_SOLID, sun));
        LineSpec(Line(brick, 3));
        DrawEllipse(Box(20, 20, 80, 80));
        FillSpec(Fill(vFILL_SOLID, grass));
        LineSpec(Line(grass, 1));
        DrawRect(Box(0, 230, area.Right()(), area.Bottom()()));
        FillSpec(Fill(vFILL_HATCH_DIAGCROSS, brick));
        LineSpec(Line(ink, 2));
        DrawRect(Box(100, 130, 200, 230));
        FillSpec(Fill(vFILL_SOLID, paper));
        DrawRoundRect(Box(135, 180, 165, 230), vSIZE(vINT(10), vINT(10)));
        LineSpec(Line(ink, 1, vDASH_DASH));
        DrawLine(At(10, 250), At(area.Right()() - 10, 250));
    }

    void DrawMarker()
    {
        long radius = static_cast<long>(details.markerSize);
        LineSpec(Line(ink, 2));
        FillSpec(Fill(vFILL_HATCH_CROSS, MarkerColours[details.markerColour]));
        DrawEllipse(Box(marker.x() - radius, marker.y() - radius, marker.x() + radius, marker.y() + radius));
    }

    void DrawCaption()
    {
        Transparency(1);
        FontSpec(Typeface("Arial", vFONT_BOLD, 12));
        LineSpec(Line(ink, 1));
        DrawTextA(caption, Box(90, 30, 290, 60), vTEXT_LEFT);
        FontSpec(Typeface("Arial", vFONT_BOLD, 10));
        DrawTextA(vSTRING("%s", details.name), Box(10, 260, 290, 280), vTEXT_LEFT);
        if (!details.showMotto)
            return;
        FontSpec(Typeface("Arial", vFONT_ITALIC, 9));
        DrawTextA(vSTRING("\"%s\"", details.motto), Box(10, 280, 290, 300), vTEXT_LEFT);
    }

    vPOINT marker;
    vSTRING caption;
    const DETAILS_DATA& details;
    vPOINT view;
};

// The open sketches, one item each with a swatch of its own colour: choosing
// one brings it to the front.
class SKETCHES : public vDOCWIN {
public:
    explicit SKETCHES(const vAPP& app)
        : vDOCWIN(app, Box(0, 0, 240, 300), vSTRING("Sketches"), WF_SIZING, CF_SYSMENU), list(new CHOOSER(*this))
    {
        shown = this;
        vSize(ClientSize());
    }

    ~SKETCHES() override { shown = nullptr; }

    int vSize(const vRECT& client) override
    {
        if (list)
            list->Size(client);
        return 1;
    }

    void Add(vDOCWIN& sketch, const vSTRING& title) { list->Append(title, &sketch); }
    void Drop(vDOCWIN& sketch) { list->Remove(sketch, 1); }

    // Chooses as a click would: the selection moves and its sketch comes up.
    void Choose(unsigned short index)
    {
        list->Select(index, 1);
        list->vSelectionChange(index);
    }

    static SKETCHES* shown;

private:
    class CHOOSER : public vLISTBOX {
    public:
        explicit CHOOSER(const vWIN& parent) : vLISTBOX(parent, vCTRLID(1), 0, vSIZE(0, 24), Box(0, 0, 240, 300))
        {
            Show();
        }

        void vSelectionChange(unsigned short index) override
        {
            if (vDOCWIN* sketch = static_cast<vDOCWIN*>(GetData(index)))
                sketch->Activate();
        }

        int vDrawNormal(unsigned short index, const vSTRING& text, const vRECT& rect) override
        {
            return Swatch(index, rect) && vLISTBOX::vDrawNormal(index, text, Beside(rect));
        }

        int vDrawSelected(unsigned short index, const vSTRING& text, const vRECT& rect) override
        {
            return vLISTBOX::vDrawSelected(index, vSTRING(), rect) && Swatch(index, rect) &&
                   vLISTBOX::vDrawSelected(index, text, Beside(rect));
        }

    private:
        int Swatch(unsigned short index, const vRECT& rect)
        {
            static const vCOLOUR colours[] = {sun, grass, brick, sky};
            LineSpec(Line(ink, 1));
            FillSpec(Fill(vFILL_SOLID, colours[index % 4]));
            return DrawRect(vRECT(rect.Left() + 4, rect.Top() + 4, rect.Left() + 20, rect.Bottom() - 4));
        }

        static vRECT Beside(const vRECT& rect)
        {
            return vRECT(rect.Left() + 28, rect.Top() + 4, rect.Right(), rect.Bottom());
        }
    };

    CHOOSER* list = nullptr;
};

SKETCHES* SKETCHES::shown = nullptr;

SKETCH::~SKETCH()
{
    if (SKETCHES::shown)
        SKETCHES::shown->Drop(*this);
}

namespace {

const unsigned short CMD_NEW = 201;
const unsigned short CMD_EXIT = 202;
const unsigned short CMD_ABOUT = 203;

}  // namespace

// The application: a frame of documents with File, Window and Help menus.
// The details that the dialog fills in are the program's, and every
// document shows them.
class HELLO : public vAPP {
public:
    HELLO()
        : vAPP(vSTRING("HelloFrame"), vSTRING("Hello"), 1), opened(0),
          details{"Nobody yet", "Who? See File > Details", 1, 0, 20.0}
    {
    }

    int vQueryClose() override { return 1; }

    int vNewWindow() override
    {
        vSTRING title("Sketch %d", ++opened);
        SKETCH* sketch = new SKETCH(*this, title, details, opened);
        sketch->Show();
        if (SKETCHES::shown)
            SKETCHES::shown->Add(*sketch, title);
        return 1;
    }

    int vCommand(const vCTRLID& id) override
    {
        switch (static_cast<unsigned short>(id)) {
        case CMD_NEW:
            return vNewWindow();
        case CMD_DETAILS:
            return AskDetails();
        case CMD_EXIT:
            Close();
            return 1;
        case CMD_ABOUT:
            Message().Info(vSTRING("Hello: a small document program built on ZKSHELL."), vSTRING("About Hello"));
            return 1;
        }
        return 0;
    }

    void Build()
    {
        file.Append(vCTRLID(CMD_NEW), vSTRING("&New"));
        file.Append(vCTRLID(CMD_DETAILS), vSTRING("&Details..."));
        file.Append();
        file.Append(vCTRLID(CMD_EXIT), vSTRING("E&xit"));
        Help().Append(vCTRLID(CMD_ABOUT), vSTRING("&About Hello..."));
        vMENU* bar = Menu();
        bar->Append(file, vSTRING("&File"));
        SetMenuBar(*bar);
        Size(Box(40, 40, 940, 600));
    }

private:
    // The dialog belongs to the active document; with none open there is
    // nothing to show the details on.
    int AskDetails()
    {
        vWIN* owner = ActiveDocWin();
        if (!owner)
            return 0;
        DETAILS::open = new DETAILS(*owner, details);
        DETAILS::open->Modal();
        DETAILS::open = nullptr;
        RedrawWindow(vSYSTEM::GetFrameWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
        return 1;
    }

    vMENU file;
    int opened;
    DETAILS_DATA details;
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
    SetDlgItemTextA(dialog, NAME_ITEM, "Ada Lovelace");
    SetDlgItemTextA(dialog, MOTTO_ITEM, "That brain of mine is something more than merely mortal");
    SendMessageA(GetDlgItem(dialog, FIRST_COLOUR + 2), BM_CLICK, 0, 0);
    HWND up = GetDlgItem(dialog, SIZE_UP_KEY);
    for (int step = 0; step < 2; ++step)
        SendMessageA(dialog, WM_COMMAND, SIZE_UP_KEY, reinterpret_cast<LPARAM>(up));
    RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    SaveFrame(dialog, DialogPicture().c_str());
    SendMessageA(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
}

// Opens documents and lays them out in columns through the menu's own
// commands, fills in the details, and keeps a picture of the frame with the
// details on every document.
void CALLBACK TakeScreenshot(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    HWND frame = vSYSTEM::GetFrameWindow();
    for (int n = 0; n < 3; ++n)
        SendMessageA(frame, WM_COMMAND, CMD_NEW, 0);
    SendMessageA(frame, WM_COMMAND, MENU_COLUMNS, 0);
    SKETCHES::shown->Choose(2);
    SetTimer(nullptr, 0, 500, FillInDetails);
    SendMessageA(frame, WM_COMMAND, CMD_DETAILS, 0);
    RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN | RDW_FRAME);
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
    (new SKETCHES(*hello))->Show();
    hello->vNewWindow();
    screenshot = ScreenshotPath(hello->GetSetCommand(vSTRING()));
    if (!screenshot.empty())
        SetTimer(nullptr, 0, 700, TakeScreenshot);
    return hello;
}
