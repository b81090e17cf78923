#include "graphics/device.h"

#include <algorithm>
#include <cstdarg>
#include <vector>

#include "base/memory.h"
#include "graphics/dib.h"

namespace {

const int UsualUnitsPerInch = 96;
const unsigned short PatternBytes = 6;
const int JoinShift = 12;
const int DeepestColour = 24;

vLINESPEC DefaultLine()
{
    return vLINESPEC(vLINE_SOLID, vCOLOUR(), 1, vCORNER_ROUND, vDASH_SOLID, nullptr);
}

vFILLSPEC DefaultFill()
{
    return vFILLSPEC(vFILL_HOLLOW, vCOLOUR(), vCOLOUR(255, 255, 255), vANGLE(), vFILL_ALTERNATE);
}

// The value converted from one count of units per inch to another, exactly
// in 16.16 so that the caller chooses how it lands.
vREAL Scale(const vINT& value, const vINT& to, const vINT& from)
{
    return (value * to) / vREAL(from);
}

HRGN CopyRegion(HRGN region)
{
    if (!region)
        return nullptr;
    HRGN copy = CreateRectRgn(0, 0, 0, 0);
    if (copy)
        CombineRgn(copy, region, nullptr, RGN_COPY);
    return copy;
}

RECT Platform(const vRECT& rect)
{
    RECT platform = {rect.Left()(), rect.Top()(), rect.Right()(), rect.Bottom()()};
    return platform;
}

POINT Platform(const vPOINT& point)
{
    POINT platform = {point.x(), point.y()};
    return platform;
}

// Sets a pen's run from the six pattern bytes, stopping at the first 0.
DWORD UserStyle(const vLINESPEC& spec, DWORD* run)
{
    unsigned short count = 0;
    for (; count < PatternBytes && spec.Pattern(count); ++count)
        run[count] = spec.Pattern(count);
    return count;
}

// A line one device unit wide is cosmetic, so that its dashes keep their
// length; a wider one is geometric, and a solid one keeps inside the figures
// it outlines.
HPEN MakePen(const vLINESPEC& spec, int width)
{
    LOGBRUSH ink = {BS_SOLID, spec.Colour().PackedRGB(), 0};
    DWORD run[PatternBytes];
    DWORD runLength = 0;
    DWORD style = static_cast<DWORD>(spec.DashType());
    if (spec.DashType() == vDASH_PATTERN) {
        style = PS_USERSTYLE;
        runLength = UserStyle(spec, run);
    }
    const DWORD* pattern = runLength ? run : nullptr;
    if (width <= 1)
        return ExtCreatePen(PS_COSMETIC | style, 1, &ink, runLength, pattern);
    DWORD join = static_cast<DWORD>(spec.CornerType()) << JoinShift;
    DWORD body = style == PS_SOLID ? PS_INSIDEFRAME : style;
    return ExtCreatePen(PS_GEOMETRIC | body | PS_ENDCAP_FLAT | join, width, &ink, runLength, pattern);
}

// The classic three passes: what lies under the key colour is flipped by the
// picture, cleared elsewhere by the mask, and flipped back.
int MaskedBlit(HDC target, const POINT& at, HDC picture, int width, int height, const vCOLOUR& key)
{
    HDC masking = CreateCompatibleDC(target);
    HBITMAP mask = CreateBitmap(width, height, 1, 1, nullptr);
    HGDIOBJ previous = SelectObject(masking, mask);
    SetBkColor(picture, key.PackedRGB());
    BitBlt(masking, 0, 0, width, height, picture, 0, 0, SRCCOPY);
    SetTextColor(target, RGB(0, 0, 0));
    SetBkColor(target, RGB(255, 255, 255));
    BitBlt(target, at.x, at.y, width, height, picture, 0, 0, SRCINVERT);
    BitBlt(target, at.x, at.y, width, height, masking, 0, 0, SRCAND);
    int done = BitBlt(target, at.x, at.y, width, height, picture, 0, 0, SRCINVERT);
    SelectObject(masking, previous);
    DeleteObject(mask);
    DeleteDC(masking);
    return done;
}

// The largest rectangle of the source's proportions, centred in the target.
RECT Fitted(const RECT& source, const RECT& target)
{
    int sourceWidth = source.right - source.left;
    int sourceHeight = source.bottom - source.top;
    int width = target.right - target.left;
    int height = target.bottom - target.top;
    if (static_cast<long long>(width) * sourceHeight <= static_cast<long long>(height) * sourceWidth)
        height = MulDiv(sourceHeight, width, sourceWidth);
    else
        width = MulDiv(sourceWidth, height, sourceHeight);
    int left = target.left + (target.right - target.left - width) / 2;
    int top = target.top + (target.bottom - target.top - height) / 2;
    return RECT{left, top, left + width, top + height};
}

// Paints a band of 24-bit lines, bottom up, into the target; with a key
// colour through a picture of its own, so that the key can be masked out.
int PaintBand(HDC dc, const RECT& target, const RECT& source, const BITMAPINFO& info, const void* bits,
              const vCOLOUR* key)
{
    int width = target.right - target.left;
    int height = target.bottom - target.top;
    int sourceWidth = source.right - source.left;
    int sourceHeight = source.bottom - source.top;
    if (!key)
        return StretchDIBits(dc, target.left, target.top, width, height, source.left, source.top, sourceWidth,
                             sourceHeight, bits, &info, DIB_RGB_COLORS, SRCCOPY) != 0;
    HDC picture = CreateCompatibleDC(dc);
    HBITMAP bitmap = CreateCompatibleBitmap(dc, width, height);
    HGDIOBJ previous = SelectObject(picture, bitmap);
    SetStretchBltMode(picture, COLORONCOLOR);
    StretchDIBits(picture, 0, 0, width, height, source.left, source.top, sourceWidth, sourceHeight, bits, &info,
                  DIB_RGB_COLORS, SRCCOPY);
    int done = MaskedBlit(dc, POINT{target.left, target.top}, picture, width, height, *key);
    SelectObject(picture, previous);
    DeleteObject(bitmap);
    DeleteDC(picture);
    return done;
}

// What a rectangle drawn without a pen fills when given one pixel more each
// way: the corners are put in order first, and the right and bottom pixels
// are left out after.
RECT PenlessFill(const RECT& area)
{
    RECT box{std::min(area.left, area.right + 1), std::min(area.top, area.bottom + 1),
             std::max(area.left, area.right + 1), std::max(area.top, area.bottom + 1)};
    --box.right;
    --box.bottom;
    return box;
}

int MixReadsThePen(int mix)
{
    unsigned table = static_cast<unsigned>(mix - 1);
    return (table >> 2 & 3) != (table & 3);
}

// The raster operation that paints a pattern as a pen would be drawn in the
// context's mix mode. A mix is a table over pen and destination, bit
// pen * 2 + destination of the mode less one; the operation's table also runs
// over the source, which a pattern paint never reads, so each entry goes to
// both of its places.
DWORD PatternRop(int mix)
{
    unsigned table = static_cast<unsigned>(mix - 1);
    unsigned rop = 0;
    for (unsigned pen = 0; pen < 2; ++pen)
        for (unsigned destination = 0; destination < 2; ++destination)
            if (table >> (pen * 2 + destination) & 1)
                rop |= (1u << (pen * 4 + destination)) | (1u << (pen * 4 + 2 + destination));
    return rop << 16;
}

int PaintPattern(HDC dc, const RECT& box, int mix)
{
    if (box.right <= box.left || box.bottom <= box.top)
        return 1;
    return PatBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, PatternRop(mix));
}

// Without a pen the platform leaves out the right and bottom pixels of the
// area once more, so the rectangle is given one pixel extra each way.
int PenlessRectangle(HDC dc, const RECT& area)
{
    HGDIOBJ pen = SelectObject(dc, GetStockObject(NULL_PEN));
    int done = Rectangle(dc, area.left, area.top, area.right + 1, area.bottom + 1);
    SelectObject(dc, pen);
    return done;
}

// Selects an object into a context only if it holds another; no object
// asked for leaves the context's as it is.
void Keep(HDC dc, UINT kind, HGDIOBJ object)
{
    if (object && GetCurrentObject(dc, kind) != object)
        SelectObject(dc, object);
}

// Sets a value of a context only if it holds another: reading is cheaper.
template <typename VALUE>
void Change(HDC dc, VALUE(WINAPI* get)(HDC), VALUE(WINAPI* set)(HDC, VALUE), VALUE value)
{
    if (get(dc) != value)
        set(dc, value);
}

}  // namespace

// One entry of the state stack: a copy of what was saved and which part of
// it a pop restores.
class vDEVICE::SAVEDSTATE : public vOBJECT {
public:
    SAVEDSTATE(const vDEVICE& device, int what)
        : what(what), line(device.lineSpec), fill(device.fillSpec), font(device.FontSpec()),
          clip(CopyRegion(device.clip)), origin(device.origin), transparent(device.transparent)
    {
    }
    SAVEDSTATE(const SAVEDSTATE& other)
        : what(other.what), line(other.line), fill(other.fill), font(other.font),
          clip(CopyRegion(other.clip)), origin(other.origin), transparent(other.transparent)
    {
    }
    SAVEDSTATE& operator=(const SAVEDSTATE&) = delete;
    ~SAVEDSTATE()
    {
        if (clip)
            DeleteObject(clip);
    }

    int what;
    vLINESPEC line;
    vFILLSPEC fill;
    vFONTSPEC font;
    HRGN clip;
    vPOINT origin;
    vINT transparent;
};

HDC vDEVICE::current = nullptr;

vDEVICE::vDEVICE()
    : dc(nullptr), clip(nullptr), fontRatio(1), font(nullptr), painting(0), pFontDetail(nullptr),
      pen(nullptr), transparent(1), brush(nullptr), lineSpec(DefaultLine()), fillSpec(DefaultFill()),
      lastPoint(), keptIn(nullptr), firstPen(nullptr), firstBrush(nullptr)
{
}

vDEVICE::vDEVICE(const vDEVICE& other)
    : vOBJECT(other), dc(nullptr), clip(nullptr), font(nullptr), painting(0), pFontDetail(nullptr),
      pen(nullptr), brush(nullptr), lineSpec(other.lineSpec), fillSpec(other.fillSpec), keptIn(nullptr),
      firstPen(nullptr), firstBrush(nullptr)
{
    CopyFrom(other);
}

vDEVICE& vDEVICE::operator=(const vDEVICE& other)
{
    if (this != &other) {
        Clear();
        lineSpec = other.lineSpec;
        fillSpec = other.fillSpec;
        CopyFrom(other);
    }
    return *this;
}

vDEVICE::~vDEVICE()
{
    Clear();
}

void vDEVICE::CopyFrom(const vDEVICE& other)
{
    clip = CopyRegion(other.clip);
    fontRatio = other.fontRatio;
    if (other.pFontDetail)
        pFontDetail = new vFONTDETAIL(*other.pFontDetail, *this);
    logHorz = other.logHorz;
    logVert = other.logVert;
    devHorz = other.devHorz;
    devVert = other.devVert;
    transparent = other.transparent;
    origin = other.origin;
    lastPoint = other.lastPoint;
    CopyStack(other.stateStack, other.stateStack.Next(nullptr));
}

// The bottom entry is pushed first, so the copy stacks in the same order.
void vDEVICE::CopyStack(const fSTACK& from, const fLINK* link)
{
    if (!link)
        return;
    CopyStack(from, from.Next(link));
    SAVEDSTATE* copy = new SAVEDSTATE(*static_cast<SAVEDSTATE*>(link->Object()));
    if (copy && !stateStack.Push(*copy))
        delete copy;
}

void vDEVICE::Clear()
{
    while (vOBJECT* saved = stateStack.Pop())
        delete static_cast<SAVEDSTATE*>(saved);
    DropObjects();
    if (clip)
        DeleteObject(clip);
    clip = nullptr;
    delete pFontDetail;
    pFontDetail = nullptr;
}

vDEV_TYPE vDEVICE::DeviceType()
{
    return vDEV_UNKNOWN;
}

int vDEVICE::DisplayMode(vDISPLAY_MODE mode, vCOLOUR& colour, int numerator, int denominator)
{
    if (mode == vDISPLAY_ASIS)
        return 1;
    if (mode == vDISPLAY_SHADE) {
        if (denominator == 0)
            return 0;
        colour = vCOLOUR(static_cast<unsigned char>(colour.Red() * numerator / denominator),
                         static_cast<unsigned char>(colour.Green() * numerator / denominator),
                         static_cast<unsigned char>(colour.Blue() * numerator / denominator));
        return 1;
    }
    if (mode != vDISPLAY_NEAREST)
        return 0;
    int held;
    HDC context = Borrow(held);
    if (context)
        colour = vCOLOUR(static_cast<long>(GetNearestColor(context, colour.PackedRGB())), 0);
    GiveBack(held);
    return context != nullptr;
}

void vDEVICE::LogUnitsPerHorzInch(const vINT& units)
{
    logHorz = units > 0 ? units : vINT(0);
    DropObjects();
}

vINT vDEVICE::LogUnitsPerHorzInch()
{
    return logHorz > 0 ? logHorz : DevUnitsPerHorzInch();
}

void vDEVICE::LogUnitsPerVertInch(const vINT& units)
{
    logVert = units > 0 ? units : vINT(0);
    DropObjects();
}

vINT vDEVICE::LogUnitsPerVertInch()
{
    return logVert > 0 ? logVert : DevUnitsPerVertInch();
}

vINT vDEVICE::DevUnitsPerHorzInch()
{
    if (!devHorz)
        devHorz = Measure(LOGPIXELSX);
    return devHorz() ? devHorz : vINT(UsualUnitsPerInch);
}

vINT vDEVICE::DevUnitsPerVertInch()
{
    if (!devVert)
        devVert = Measure(LOGPIXELSY);
    return devVert() ? devVert : vINT(UsualUnitsPerInch);
}

// A device of more than 256 colours reports -1; its count follows from its depth.
vINT vDEVICE::GetNoColours()
{
    long colours = Measure(NUMCOLORS);
    if (colours > 0)
        return colours;
    long depth = Measure(BITSPIXEL) * Measure(PLANES);
    return 1L << (depth < DeepestColour ? depth : DeepestColour);
}

int vDEVICE::PushState()
{
    return Push(SAVED_ALL);
}

int vDEVICE::PopState()
{
    return Pop(SAVED_ALL);
}

void vDEVICE::LineSpec(const vLINESPEC& spec)
{
    lineSpec = spec;
    DropPen();
}

const vLINESPEC& vDEVICE::LineSpec() const
{
    return lineSpec;
}

int vDEVICE::PushLineSpec()
{
    return Push(SAVED_LINE);
}

int vDEVICE::PopLineSpec()
{
    return Pop(SAVED_LINE);
}

void vDEVICE::FillSpec(const vFILLSPEC& spec)
{
    fillSpec = spec;
    DropBrush();
}

const vFILLSPEC& vDEVICE::FillSpec() const
{
    return fillSpec;
}

int vDEVICE::PushFillSpec()
{
    return Push(SAVED_FILL);
}

int vDEVICE::PopFillSpec()
{
    return Pop(SAVED_FILL);
}

vFONTDETAIL* vDEVICE::GetCurFontDetail()
{
    if (!pFontDetail)
        pFontDetail = new vFONTDETAIL(vFONTSPEC(), *this);
    if (pFontDetail)
        pFontDetail->Init();
    return pFontDetail;
}

void vDEVICE::FontSpec(const vFONTSPEC& spec)
{
    vFONTDETAIL* detail = new vFONTDETAIL(spec, *this);
    if (!detail)
        return;
    delete pFontDetail;
    pFontDetail = detail;
    DropFont();
}

vFONTSPEC vDEVICE::FontSpec() const
{
    return pFontDetail ? vFONTSPEC(*pFontDetail) : vFONTSPEC();
}

int vDEVICE::PushFontSpec()
{
    return Push(SAVED_FONT);
}

int vDEVICE::PopFontSpec()
{
    return Pop(SAVED_FONT);
}

int vDEVICE::ClipArea(const vSHAPE& shape)
{
    int held;
    HDC context = Borrow(held);
    HRGN region = context && TracePath(context, shape) ? PathToRegion(context) : nullptr;
    GiveBack(held);
    if (!region)
        return 0;
    ClearClipArea();
    clip = region;
    return 1;
}

int vDEVICE::ClipArea(const vRECT& rect)
{
    RECT area = Platform(LPtoDP(rect));
    HRGN region = CreateRectRgnIndirect(&area);
    if (!region)
        return 0;
    ClearClipArea();
    clip = region;
    return 1;
}

vRECT vDEVICE::ClipArea()
{
    RECT box = {0, 0, 0, 0};
    PASS pass;
    if (Open(pass, GetStockObject(NULL_PEN), GetStockObject(NULL_BRUSH))) {
        GetClipBox(pass.dc, &box);
        Close(pass);
    }
    return DPtoLP(vRECT(box.left, box.top, box.right, box.bottom));
}

void vDEVICE::ClearClipArea()
{
    if (clip)
        DeleteObject(clip);
    clip = nullptr;
}

int vDEVICE::PushClipArea()
{
    return Push(SAVED_CLIP);
}

int vDEVICE::PopClipArea()
{
    return Pop(SAVED_CLIP);
}

int vDEVICE::ClipAreaIntersect(const vPOINT& point)
{
    vPOINT at = LPtoDP(point);
    return !clip || PtInRegion(clip, at.x(), at.y());
}

int vDEVICE::ClipAreaIntersect(const vRECT& rect)
{
    RECT area = Platform(LPtoDP(rect));
    return !clip || RectInRegion(clip, &area);
}

int vDEVICE::DrawLine(const vPOINT& from, const vPOINT& to)
{
    POINT ends[2] = {Platform(LPtoDP(from)), Platform(LPtoDP(to))};
    PASS pass;
    if (!Open(pass, Pen(), GetStockObject(NULL_BRUSH)))
        return 0;
    int done = Polyline(pass.dc, ends, 2);
    lastPoint = ends[1];
    Close(pass);
    return done;
}

int vDEVICE::DrawLine(vINT count, ...)
{
    std::vector<vPOINT> points;
    va_list arguments;
    va_start(arguments, count);
    for (long i = 0; i < count(); ++i)
        points.push_back(va_arg(arguments, vPOINT));
    va_end(arguments);
    vCOLLECTION collection(points.data(), points.size());
    return DrawLine(count, collection);
}

int vDEVICE::DrawLine(vINT count, vCOLLECTION& points)
{
    const vPOINT* given = points.Points();
    unsigned long total = count() < 0 ? 0 : count();
    if (!given || total < 2 || total > points.Count())
        return 0;
    std::vector<POINT> line;
    for (unsigned long i = 0; i < total; ++i)
        line.push_back(Platform(LPtoDP(given[i])));
    PASS pass;
    if (!Open(pass, Pen(), GetStockObject(NULL_BRUSH)))
        return 0;
    int done = Polyline(pass.dc, line.data(), static_cast<int>(total));
    lastPoint = line.back();
    Close(pass);
    return done;
}

int vDEVICE::DrawRect(const vRECT& rect)
{
    int filled = FillRect(rect);
    return LineRect(rect) && filled;
}

int vDEVICE::DrawRoundRect(const vRECT& rect, const vSIZE& corner)
{
    RECT area = Platform(LPtoDP(rect));
    int width = LHtoDH(corner.Width())();
    int height = LVtoDV(corner.Height())();
    PASS pass;
    if (!Open(pass, Pen(), Brush()))
        return 0;
    int done = RoundRect(pass.dc, area.left, area.top, area.right, area.bottom, width, height);
    Close(pass);
    return done;
}

int vDEVICE::DrawEllipse(const vRECT& rect)
{
    int filled = FillEllipse(rect);
    return LineEllipse(rect) && filled;
}

int vDEVICE::DrawArc(const vRECT& rect, const vPOINT& start, const vPOINT& end)
{
    return Curve(rect, start, end, ::Arc, GetStockObject(NULL_BRUSH));
}

int vDEVICE::DrawPie(const vRECT& rect, const vPOINT& start, const vPOINT& end)
{
    return Curve(rect, start, end, ::Pie, Brush());
}

int vDEVICE::DrawChord(const vRECT& rect, const vPOINT& start, const vPOINT& end)
{
    return Curve(rect, start, end, ::Chord, Brush());
}

int vDEVICE::DrawShape(const vSHAPE& shape)
{
    int filled = FillShape(shape);
    return LineShape(shape) && filled;
}

int vDEVICE::DrawTextA(const vSTRING& text, const vRECT& rect, vTEXTALIGN align)
{
    int filled = transparent() || FillText(text, rect, align);
    return LineText(text, rect, align) && filled;
}

int vDEVICE::DrawChar(const vCHAR& character, const vPOINT& at)
{
    char symbol = character();
    return DrawTextOnLine(vSTRING("%c", symbol), at, nullptr);
}

int vDEVICE::DrawTextOnLine(const vSTRING& text, const vPOINT& at, const short* advances)
{
    POINT start = Platform(LPtoDP(at));
    std::vector<INT> steps;
    for (unsigned short i = 0; advances && i < text.Length(); ++i)
        steps.push_back(LHtoDH(advances[i])());
    PASS pass;
    if (!Open(pass, GetStockObject(NULL_PEN), GetStockObject(NULL_BRUSH)))
        return 0;
    SelectFont(pass);
    int done = ExtTextOutA(pass.dc, start.x, start.y, 0, nullptr, text(), text.Length(),
                           advances ? steps.data() : nullptr);
    Close(pass);
    return done;
}

void vDEVICE::Transparency(int on)
{
    transparent = on != 0;
}

int vDEVICE::DrawBitmap(const vBITMAP& bitmap, const vRECT& source, const vRECT& target)
{
    return Blit(bitmap, Platform(source), Platform(LPtoDP(target)));
}

int vDEVICE::DrawBitmap(const vBITMAP& bitmap, const vRECT& target)
{
    return DrawBitmap(bitmap, bitmap.Size(), target);
}

int vDEVICE::DrawBitmap(const vBITMAP& bitmap, const vPOINT& at)
{
    RECT whole = Platform(bitmap.Size());
    POINT start = Platform(LPtoDP(at));
    RECT target = {start.x, start.y, start.x + whole.right - whole.left, start.y + whole.bottom - whole.top};
    return Blit(bitmap, whole, target);
}

int vDEVICE::DrawDIB(const oDIB& dib, const vRECT& target, vCOLOUR* key)
{
    vRECT place = target;
    return DrawDIB(dib, nullptr, key, 0, -1, &place, 0, nullptr);
}

int vDEVICE::DrawDIB(const oDIB& dib, vRECT* source, vCOLOUR* key, int first, int last, vRECT* target,
                     int keepAspect, vCOLOUR* background)
{
    const oDIBHEADER& header = *dib.GetHeader();
    RECT whole = {0, 0, static_cast<LONG>(header.Width()), static_cast<LONG>(header.Height())};
    RECT from = whole;
    if (source) {
        RECT asked = Platform(*source);
        IntersectRect(&from, &asked, &whole);
    }
    long top = last < 0 || last >= whole.bottom ? whole.bottom - 1 : last;
    if (IsRectEmpty(&from) || first < 0 || first > top)
        return 0;
    POINT at = Platform(LPtoDP(vPOINT(0, 0)));
    RECT to = target ? Platform(LPtoDP(*target))
                     : RECT{at.x, at.y, at.x + from.right - from.left, at.y + from.bottom - from.top};
    PASS pass;
    if (!Open(pass, GetStockObject(NULL_PEN), GetStockObject(NULL_BRUSH)))
        return 0;
    if (background) {
        HBRUSH fill = CreateSolidBrush(background->PackedRGB());
        ::FillRect(pass.dc, &to, fill);
        DeleteObject(fill);
    }
    int done = DrawBand(pass.dc, dib, from, keepAspect ? Fitted(from, to) : to, static_cast<unsigned long>(first),
                        static_cast<unsigned long>(top), key);
    Close(pass);
    return done;
}

int vDEVICE::DrawTransparentBitmap(const vBITMAP& bitmap, const vPOINT& at, const vCOLOUR& key)
{
    POINT start = Platform(LPtoDP(at));
    vRECT size = bitmap.Size();
    PASS pass;
    if (!bitmap.handle || !Open(pass, GetStockObject(NULL_PEN), GetStockObject(NULL_BRUSH)))
        return 0;
    HDC picture = CreateCompatibleDC(pass.dc);
    HGDIOBJ previous = SelectObject(picture, bitmap.handle);
    int done = MaskedBlit(pass.dc, start, picture, size.Width()(), size.Height()(), key);
    SelectObject(picture, previous);
    DeleteDC(picture);
    Close(pass);
    return done;
}

int vDEVICE::vDraw(const vRECT&)
{
    return 0;
}

int vDEVICE::ReleaseDC() const
{
    if (!dc || painting)
        return 0;
    current = dc;
    const_cast<vDEVICE*>(this)->DeselectFont();
    // Letting the context go changes nothing that the device's users see.
    int released = const_cast<vDEVICE*>(this)->ReleaseWinDC();
    dc = nullptr;
    current = nullptr;
    return released;
}

HDC vDEVICE::GetZKDC()
{
    return current;
}

vSCREEN& vDEVICE::GetScreen()
{
    static vSCREEN screen;
    return screen;
}

void vDEVICE::BeginDraw(HDC given)
{
    ReleaseDC();
    dc = given;
    current = given;
    painting = 1;
}

void vDEVICE::EndDraw()
{
    painting = 0;
    dc = nullptr;
    current = nullptr;
}

// With as many logical units to the inch as device units both ways, the
// usual case, a point maps by the origin alone: the scaling through reals
// would give each value back unchanged.
int vDEVICE::OneToOne()
{
    return LogUnitsPerHorzInch() == DevUnitsPerHorzInch() && LogUnitsPerVertInch() == DevUnitsPerVertInch();
}

vPOINT vDEVICE::LPtoDP(const vPOINT& point)
{
    if (OneToOne())
        return vPOINT(point.x - origin.x, point.y - origin.y);
    return vPOINT(Across(point.x - origin.x, 1).Floor(), Down(point.y - origin.y, 1).Floor());
}

vRECT vDEVICE::LPtoDP(const vRECT& rect)
{
    if (OneToOne())
        return vRECT(rect.Left() - origin.x, rect.Top() - origin.y, rect.Right() - origin.x, rect.Bottom() - origin.y);
    return vRECT(Across(rect.Left() - origin.x, 1).Floor(), Down(rect.Top() - origin.y, 1).Floor(),
                 Across(rect.Right() - origin.x, 1).Ceil(), Down(rect.Bottom() - origin.y, 1).Ceil());
}

vPOINT vDEVICE::DPtoLP(const vPOINT& point)
{
    return vPOINT(Across(point.x, 0).Floor() + origin.x, Down(point.y, 0).Floor() + origin.y);
}

vRECT vDEVICE::DPtoLP(const vRECT& rect)
{
    return vRECT(Across(rect.Left(), 0).Floor() + origin.x, Down(rect.Top(), 0).Floor() + origin.y,
                 Across(rect.Right(), 0).Ceil() + origin.x, Down(rect.Bottom(), 0).Ceil() + origin.y);
}

vINT vDEVICE::LHtoDH(const vINT& length)
{
    return Across(length, 1).Ceil();
}

vINT vDEVICE::DHtoLH(const vINT& length)
{
    return Across(length, 0).Floor();
}

vINT vDEVICE::LVtoDV(const vINT& length)
{
    return Down(length, 1).Ceil();
}

vINT vDEVICE::DVtoLV(const vINT& length)
{
    return Down(length, 0).Floor();
}

void vDEVICE::Origin(const vPOINT& origin)
{
    this->origin = origin;
}

HDC vDEVICE::ActivateDC()
{
    if (!dc)
        dc = GetWinDC();
    current = dc;
    return dc;
}

HFONT vDEVICE::ActivateFont()
{
    HDC held = ActivateDC();
    HFONT made = Font();
    if (held)
        SelectObject(held, made);
    return made;
}

void vDEVICE::SetFontRatio(vREAL ratio)
{
    fontRatio = ratio;
    DropFont();
}

HDC vDEVICE::GetMSDC()
{
    return GetDC(nullptr);
}

int vDEVICE::ReleaseMSDC()
{
    return ::ReleaseDC(nullptr, GetZKDC());
}

vINT vDEVICE::GetLogFontHeight()
{
    vFONTDETAIL* detail = GetCurFontDetail();
    return detail ? detail->Ascent() + detail->Descent() : vINT(0);
}

int vDEVICE::LastPoint(POINT& point)
{
    point = lastPoint;
    return 1;
}

int vDEVICE::LineRect(const vRECT& rect)
{
    RECT area = Platform(LPtoDP(rect));
    PASS pass;
    if (!Open(pass, Pen(), GetStockObject(NULL_BRUSH)))
        return 0;
    int done = Rectangle(pass.dc, area.left, area.top, area.right, area.bottom);
    Close(pass);
    return done;
}

// The fill is painted as a pattern, so the pen plays no part and stays as it
// is. A mix that ignores the pen ignores the pattern too, and would then
// paint the gaps of a hatch that the background should leave alone: such a
// mix gets the rectangle without a pen that the pattern stands for.
int vDEVICE::FillRect(const vRECT& rect)
{
    RECT area = Platform(LPtoDP(rect));
    PASS pass;
    if (!Open(pass, nullptr, Brush()))
        return 0;
    int mix = GetROP2(pass.dc);
    int done = MixReadsThePen(mix) ? PaintPattern(pass.dc, PenlessFill(area), mix) : PenlessRectangle(pass.dc, area);
    Close(pass);
    return done;
}

int vDEVICE::LineEllipse(const vRECT& rect)
{
    RECT area = Platform(LPtoDP(rect));
    PASS pass;
    if (!Open(pass, Pen(), GetStockObject(NULL_BRUSH)))
        return 0;
    int done = Ellipse(pass.dc, area.left, area.top, area.right, area.bottom);
    Close(pass);
    return done;
}

int vDEVICE::FillEllipse(const vRECT& rect)
{
    RECT area = Platform(LPtoDP(rect));
    PASS pass;
    if (!Open(pass, GetStockObject(NULL_PEN), Brush()))
        return 0;
    int done = Ellipse(pass.dc, area.left, area.top, area.right, area.bottom);
    Close(pass);
    return done;
}

int vDEVICE::LineShape(const vSHAPE& shape)
{
    PASS pass;
    if (!Open(pass, Pen(), GetStockObject(NULL_BRUSH)))
        return 0;
    int done = TracePath(pass.dc, shape) && StrokePath(pass.dc);
    Close(pass);
    return done;
}

int vDEVICE::FillShape(const vSHAPE& shape)
{
    PASS pass;
    if (!Open(pass, nullptr, Brush()))
        return 0;
    int done = TracePath(pass.dc, shape) && FillPath(pass.dc);
    Close(pass);
    return done;
}

int vDEVICE::LineText(const vSTRING& text, const vRECT& rect, vTEXTALIGN align)
{
    PASS pass;
    if (!Open(pass, GetStockObject(NULL_PEN), GetStockObject(NULL_BRUSH)))
        return 0;
    SelectFont(pass);
    SetBkMode(pass.dc, TRANSPARENT);
    RECT box = TextBox(pass.dc, text, rect, align);
    int done = ExtTextOutA(pass.dc, box.left, box.top, 0, nullptr, text(), text.Length(), nullptr);
    Close(pass);
    return done;
}

int vDEVICE::FillText(const vSTRING& text, const vRECT& rect, vTEXTALIGN align)
{
    PASS pass;
    if (!Open(pass, GetStockObject(NULL_PEN), Brush()))
        return 0;
    SelectFont(pass);
    RECT box = TextBox(pass.dc, text, rect, align);
    int done = Rectangle(pass.dc, box.left, box.top, box.right + 1, box.bottom + 1);
    Close(pass);
    return done;
}

int vDEVICE::Open(PASS& pass, HGDIOBJ linePen, HGDIOBJ fillBrush)
{
    pass.dc = ActivateDC();
    if (!pass.dc)
        return 0;
    pass.lasting = KeepsSelection();
    Select(pass, linePen, fillBrush);
    pass.font = nullptr;
    pass.saved = 0;
    // A context handed in may come clipped already; the device's area narrows it.
    if (clip) {
        pass.saved = SaveDC(pass.dc);
        ExtSelectClipRgn(pass.dc, clip, RGN_AND);
    }
    Settle(pass);
    return 1;
}

// A lasting context keeps the settings of a pass for the next one, as it
// keeps the pen and brush, so only a change is set; any other context gets
// back what the pass found.
void vDEVICE::Settle(PASS& pass)
{
    int bkMode = transparent() ? TRANSPARENT : OPAQUE;
    COLORREF bkColour = fillSpec.ColourTo().PackedRGB();
    COLORREF textColour = lineSpec.Colour().PackedRGB();
    int fillMode = fillSpec.Mode() == vFILL_WINDING ? WINDING : ALTERNATE;
    if (pass.lasting) {
        Change(pass.dc, GetBkMode, SetBkMode, bkMode);
        Change(pass.dc, GetBkColor, SetBkColor, bkColour);
        Change(pass.dc, GetTextColor, SetTextColor, textColour);
        Change(pass.dc, GetPolyFillMode, SetPolyFillMode, fillMode);
        return;
    }
    pass.bkMode = SetBkMode(pass.dc, bkMode);
    pass.bkColour = SetBkColor(pass.dc, bkColour);
    pass.textColour = SetTextColor(pass.dc, textColour);
    pass.fillMode = SetPolyFillMode(pass.dc, fillMode);
}

void vDEVICE::Close(const PASS& pass)
{
    if (!pass.lasting) {
        SetPolyFillMode(pass.dc, pass.fillMode);
        SetTextColor(pass.dc, pass.textColour);
        SetBkColor(pass.dc, pass.bkColour);
        SetBkMode(pass.dc, pass.bkMode);
    }
    if (pass.saved)
        RestoreDC(pass.dc, pass.saved);
    if (pass.pen)
        SelectObject(pass.dc, pass.pen);
    if (pass.brush)
        SelectObject(pass.dc, pass.brush);
    if (pass.font)
        SelectObject(pass.dc, pass.font);
    ReleaseDC();
}

void vDEVICE::SelectFont(PASS& pass)
{
    pass.font = SelectObject(pass.dc, Font());
}

int vDEVICE::KeepsSelection()
{
    return !painting && DeviceType() == vDEV_MEMORY;
}

// In a lasting context the objects stay for the next pass, and only a
// change is selected; in any other the pass puts back what it found. A pass
// that draws without a pen asks for none and leaves the pen as it is.
void vDEVICE::Select(PASS& pass, HGDIOBJ linePen, HGDIOBJ fillBrush)
{
    if (!pass.lasting) {
        pass.pen = linePen ? SelectObject(pass.dc, linePen) : nullptr;
        pass.brush = SelectObject(pass.dc, fillBrush);
        return;
    }
    pass.pen = nullptr;
    pass.brush = nullptr;
    if (keptIn != pass.dc) {
        LetKeptGo();
        keptIn = pass.dc;
        firstPen = GetCurrentObject(pass.dc, OBJ_PEN);
        firstBrush = GetCurrentObject(pass.dc, OBJ_BRUSH);
    }
    Keep(pass.dc, OBJ_PEN, linePen);
    Keep(pass.dc, OBJ_BRUSH, fillBrush);
}

// Puts back what the lasting context held before the device's objects, so
// that they can be deleted.
void vDEVICE::LetKeptGo()
{
    if (!keptIn)
        return;
    SelectObject(keptIn, firstPen);
    SelectObject(keptIn, firstBrush);
    keptIn = nullptr;
}

HGDIOBJ vDEVICE::Pen()
{
    if (lineSpec.LineType() == vLINE_NONE)
        return GetStockObject(NULL_PEN);
    if (!pen)
        pen = MakePen(lineSpec, LHtoDH(lineSpec.Width())());
    return pen ? pen : GetStockObject(BLACK_PEN);
}

// The gradient and pattern fills are painted in their first colour.
HGDIOBJ vDEVICE::Brush()
{
    if (brush)
        return brush;
    if (fillSpec.Type() == vFILL_HOLLOW)
        return GetStockObject(NULL_BRUSH);
    COLORREF colour = fillSpec.ColourFrom().PackedRGB();
    if (fillSpec.Hatched())
        brush = CreateHatchBrush(fillSpec.Type() - vFILL_HATCH_HORIZONTAL, colour);
    else
        brush = CreateSolidBrush(colour);
    return brush ? brush : GetStockObject(NULL_BRUSH);
}

HFONT vDEVICE::Font()
{
    if (!font && !pFontDetail)
        pFontDetail = new vFONTDETAIL(vFONTSPEC(), *this);
    if (!font && pFontDetail)
        font = pFontDetail->MakeFont();
    return font ? font : static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
}

void vDEVICE::DropPen()
{
    LetKeptGo();
    if (pen)
        DeleteObject(pen);
    pen = nullptr;
}

void vDEVICE::DropBrush()
{
    LetKeptGo();
    if (brush)
        DeleteObject(brush);
    brush = nullptr;
}

void vDEVICE::DropFont()
{
    DeselectFont();
    if (font)
        DeleteObject(font);
    font = nullptr;
}

// A font still selected in a context cannot be deleted, and a context that
// goes back to the platform must not keep it.
void vDEVICE::DeselectFont()
{
    if (dc && font && GetCurrentObject(dc, OBJ_FONT) == font)
        SelectObject(dc, GetStockObject(SYSTEM_FONT));
}

void vDEVICE::DropObjects()
{
    DropPen();
    DropBrush();
    DropFont();
}

int vDEVICE::Push(int what)
{
    SAVEDSTATE* saved = new SAVEDSTATE(*this, what);
    if (saved && stateStack.Push(*saved))
        return 1;
    delete saved;
    return 0;
}

// The newest entry of the kind is taken, wherever it stands: entries of other
// kinds above it are lifted off and put back in their order.
int vDEVICE::Pop(int what)
{
    fSTACK above;
    SAVEDSTATE* found = nullptr;
    while (!found) {
        SAVEDSTATE* top = static_cast<SAVEDSTATE*>(stateStack.Pop());
        if (!top)
            break;
        if (top->what == what)
            found = top;
        else if (!above.Push(*top))
            delete top;
    }
    while (vOBJECT* lifted = above.Pop()) {
        if (!stateStack.Push(*lifted))
            delete static_cast<SAVEDSTATE*>(lifted);
    }
    if (!found)
        return 0;
    Restore(*found);
    delete found;
    return 1;
}

void vDEVICE::Restore(SAVEDSTATE& saved)
{
    if (saved.what & SAVED_LINE)
        LineSpec(saved.line);
    if (saved.what & SAVED_FILL)
        FillSpec(saved.fill);
    if (saved.what & SAVED_FONT)
        FontSpec(saved.font);
    if (saved.what & SAVED_CLIP) {
        ClearClipArea();
        clip = saved.clip;
        saved.clip = nullptr;
    }
    if (saved.what == SAVED_ALL) {
        origin = saved.origin;
        transparent = saved.transparent;
    }
}

HDC vDEVICE::Borrow(int& held)
{
    held = dc != nullptr;
    return ActivateDC();
}

void vDEVICE::GiveBack(int held)
{
    if (!held)
        ReleaseDC();
}

int vDEVICE::Measure(int index)
{
    int held;
    HDC context = Borrow(held);
    int value = context ? GetDeviceCaps(context, index) : 0;
    GiveBack(held);
    return value;
}

vREAL vDEVICE::Across(const vINT& value, int toDevice)
{
    vINT device = DevUnitsPerHorzInch();
    vINT logical = LogUnitsPerHorzInch();
    return toDevice ? Scale(value, device, logical) : Scale(value, logical, device);
}

vREAL vDEVICE::Down(const vINT& value, int toDevice)
{
    vINT device = DevUnitsPerVertInch();
    vINT logical = LogUnitsPerVertInch();
    return toDevice ? Scale(value, device, logical) : Scale(value, logical, device);
}

// Control points gather until the point that a Bézier segment reaches; a
// segment short of its two control points is drawn straight.
int vDEVICE::TracePath(HDC context, const vSHAPE& shape)
{
    if (!BeginPath(context))
        return 0;
    POINT bezier[3];
    int controls = 0;
    for (unsigned short i = 0; i < shape.NoPoint(); ++i) {
        const vBEZPOINT& point = shape[i];
        POINT at = Platform(LPtoDP(point));
        if (i == 0 || point.First()) {
            MoveToEx(context, at.x, at.y, nullptr);
        } else if (point.Control()) {
            bezier[controls < 2 ? controls++ : 1] = at;
            continue;
        } else if (point.CurveTo() && controls == 2) {
            bezier[2] = at;
            PolyBezierTo(context, bezier, 3);
        } else {
            LineTo(context, at.x, at.y);
        }
        controls = 0;
        if (point.Last())
            CloseFigure(context);
    }
    return EndPath(context);
}

RECT vDEVICE::TextBox(HDC context, const vSTRING& text, const vRECT& rect, vTEXTALIGN align)
{
    RECT area = Platform(LPtoDP(rect));
    SIZE extent = {0, 0};
    GetTextExtentPoint32A(context, text(), text.Length(), &extent);
    int left = area.left;
    if (align == vTEXT_RIGHT)
        left = area.right - extent.cx;
    else if (align == vTEXT_CENTRE)
        left = (area.left + area.right - extent.cx) / 2;
    int top = (area.top + area.bottom - extent.cy) / 2;
    RECT box = {left, top, left + extent.cx, top + extent.cy};
    return box;
}

int vDEVICE::Curve(const vRECT& rect, const vPOINT& start, const vPOINT& end,
                   BOOL(WINAPI* draw)(HDC, int, int, int, int, int, int, int, int), HGDIOBJ fillBrush)
{
    RECT area = Platform(LPtoDP(rect));
    POINT from = Platform(LPtoDP(start));
    POINT to = Platform(LPtoDP(end));
    PASS pass;
    if (!Open(pass, Pen(), fillBrush))
        return 0;
    int done = draw(pass.dc, area.left, area.top, area.right, area.bottom, from.x, from.y, to.x, to.y);
    Close(pass);
    return done;
}

int vDEVICE::Blit(const vBITMAP& bitmap, const RECT& source, const RECT& target)
{
    PASS pass;
    if (!bitmap.handle || !Open(pass, GetStockObject(NULL_PEN), GetStockObject(NULL_BRUSH)))
        return 0;
    HDC picture = CreateCompatibleDC(pass.dc);
    HGDIOBJ previous = SelectObject(picture, bitmap.handle);
    SetStretchBltMode(pass.dc, COLORONCOLOR);
    int done = StretchBlt(pass.dc, target.left, target.top, target.right - target.left,
                          target.bottom - target.top, picture, source.left, source.top,
                          source.right - source.left, source.bottom - source.top, SRCCOPY);
    SelectObject(picture, previous);
    DeleteDC(picture);
    Close(pass);
    return done;
}

int vDEVICE::DrawBand(HDC dc, const oDIB& dib, const RECT& source, const RECT& target, unsigned long first,
                      unsigned long last, vCOLOUR* key)
{
    const oDIBHEADER& header = *dib.GetHeader();
    long height = static_cast<long>(header.Height());
    // The band's rows counted from the top, narrowed to the source.
    long rowTop = std::max<long>(height - 1 - static_cast<long>(last), source.top);
    long rowEnd = std::min<long>(height - static_cast<long>(first), source.bottom);
    unsigned long stride = oDIBHEADER::LineBytes(header.Width(), 24);
    unsigned long lines = std::max(1UL, 0x10000UL / stride);
    unsigned char* bits = static_cast<unsigned char*>(vMemAlloc(lines * stride));
    BITMAPINFO info = {};
    info.bmiHeader = header.Info();
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biClrUsed = 0;
    int done = bits != nullptr;
    SetStretchBltMode(dc, COLORONCOLOR);
    for (long row = rowTop; done && row < rowEnd; row += static_cast<long>(lines)) {
        long count = std::min(static_cast<long>(lines), rowEnd - row);
        oCOLOUR_MODEL model = oMODEL_RGB;
        unsigned long low = static_cast<unsigned long>(height - row - count);
        done = dib.GetImageLines(low, low + static_cast<unsigned long>(count) - 1, bits, &model);
        info.bmiHeader.biHeight = count;
        info.bmiHeader.biSizeImage = static_cast<DWORD>(count) * stride;
        long sourceHeight = source.bottom - source.top;
        long targetHeight = target.bottom - target.top;
        RECT part = {target.left, target.top + MulDiv(row - source.top, targetHeight, sourceHeight), target.right,
                     target.top + MulDiv(row + count - source.top, targetHeight, sourceHeight)};
        RECT band = {source.left, 0, source.right, count};
        done = done && (part.bottom == part.top || PaintBand(dc, part, band, info, bits, key));
    }
    vMemFree(bits);
    return done;
}
