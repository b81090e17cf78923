// Drawing surfaces: a window, a bitmap in memory, a context handed in. Every
// one draws in logical units with the line, fill and font specifications it
// holds, and turns them into the platform's pens, brushes and fonts only
// while it draws.
//
//     vMEMDEVICE picture(vSIZE(vINT(64), vINT(64)));
//     picture.LineSpec(vLINESPEC(vLINE_SOLID, vCOLOUR(0, 0, 128), 2, vCORNER_MITRE, vDASH_SOLID, nullptr));
//     picture.FillSpec(vFILLSPEC(vFILL_SOLID, vCOLOUR(255, 255, 0), vCOLOUR(), vANGLE(), vFILL_ALTERNATE));
//     picture.DrawEllipse(vRECT(4, 4, 60, 60));
//     HBITMAP drawn = picture.Bitmap();

#pragma once

#include <windows.h>

#include "base/char.h"
#include "base/collection.h"
#include "base/list.h"
#include "base/rect.h"
#include "base/string.h"
#include "graphics/devicetypes.h"
#include "graphics/fillspec.h"
#include "graphics/fontspec.h"
#include "graphics/linespec.h"
#include "graphics/shape.h"

class oDIB;
class vBITMAP;
class vFONTDETAIL;
class vSCREEN;

// The abstract drawing surface. Application code sets a line, a fill and a
// font specification and a clip area, and draws in logical units; the device
// turns all of that into platform pens, brushes, fonts and regions on the
// context that its leaf class supplies. Logical units are as many per inch as
// the device's own until told otherwise. Rectangles are drawn with their right
// and bottom edges outside, as the hit test of vRECT counts them.
class ZKCORE_API vDEVICE : public vOBJECT {
public:
    vDEVICE();
    // The copy draws as the original does but holds no context or platform
    // object of its own until it draws; the saved stacks are copied, not shared.
    vDEVICE(const vDEVICE& other);
    vDEVICE& operator=(const vDEVICE& other);

    virtual ~vDEVICE();
    virtual vDEV_TYPE DeviceType();
    // Turns the colour in place into what the device shows in the mode; for
    // vDISPLAY_SHADE the colour becomes numerator / denominator of itself.
    virtual int DisplayMode(vDISPLAY_MODE mode, vCOLOUR& colour, int numerator, int denominator);
    virtual HDC GetWinDC() = 0;
    virtual int ReleaseWinDC() = 0;

    // A count of 0 (or less) returns to one logical unit per device unit.
    virtual void LogUnitsPerHorzInch(const vINT& units);
    virtual vINT LogUnitsPerHorzInch();
    virtual void LogUnitsPerVertInch(const vINT& units);
    virtual vINT LogUnitsPerVertInch();
    virtual vINT DevUnitsPerHorzInch();
    virtual vINT DevUnitsPerVertInch();
    virtual vINT GetNoColours();

    // The whole drawing state: specs, clip area, origin and transparency.
    virtual int PushState();
    virtual int PopState();

    virtual void LineSpec(const vLINESPEC& spec);
    virtual const vLINESPEC& LineSpec() const;
    virtual int PushLineSpec();
    virtual int PopLineSpec();

    virtual void FillSpec(const vFILLSPEC& spec);
    virtual const vFILLSPEC& FillSpec() const;
    virtual int PushFillSpec();
    virtual int PopFillSpec();

    // The current font measured on this device; null when memory runs out.
    virtual vFONTDETAIL* GetCurFontDetail();
    virtual void FontSpec(const vFONTSPEC& spec);
    virtual vFONTSPEC FontSpec() const;
    virtual int PushFontSpec();
    virtual int PopFontSpec();

    // Each clip setting replaces the one before; drawing lands only inside.
    virtual int ClipArea(const vSHAPE& shape);
    virtual int ClipArea(const vRECT& rect);
    // The box round the area that drawing may reach, in logical units.
    virtual vRECT ClipArea();
    virtual void ClearClipArea();
    virtual int PushClipArea();
    virtual int PopClipArea();
    virtual int ClipAreaIntersect(const vPOINT& point);
    virtual int ClipAreaIntersect(const vRECT& rect);

    // Lines leave out their last point, as the platform draws them.
    virtual int DrawLine(const vPOINT& from, const vPOINT& to);
    // A poly-line through count vPOINT arguments.
    virtual int DrawLine(vINT count, ...);
    virtual int DrawLine(vINT count, vCOLLECTION& points);
    virtual int DrawRect(const vRECT& rect);
    virtual int DrawRoundRect(const vRECT& rect, const vSIZE& corner);
    virtual int DrawEllipse(const vRECT& rect);
    // The arcs run anticlockwise from the ray through start to the ray through end.
    virtual int DrawArc(const vRECT& rect, const vPOINT& start, const vPOINT& end);
    virtual int DrawPie(const vRECT& rect, const vPOINT& start, const vPOINT& end);
    virtual int DrawChord(const vRECT& rect, const vPOINT& start, const vPOINT& end);
    virtual int DrawShape(const vSHAPE& shape);

    // One line of text in the line colour, across the rectangle as aligned
    // and centred from top to bottom; an opaque device first fills the box
    // of the text with the fill spec.
    virtual int DrawTextA(const vSTRING& text, const vRECT& rect, vTEXTALIGN align);
    // The character's cell has its top left corner at the point.
    virtual int DrawChar(const vCHAR& character, const vPOINT& at);
    // Each character advances by its entry of advances (logical units), or by
    // its own width when advances is null.
    virtual int DrawTextOnLine(const vSTRING& text, const vPOINT& at, const short* advances);
    // Non-zero: text and hatches leave the background between their strokes.
    virtual void Transparency(int on);

    virtual int DrawBitmap(const vBITMAP& bitmap, const vRECT& source, const vRECT& target);
    virtual int DrawBitmap(const vBITMAP& bitmap, const vRECT& target);
    virtual int DrawBitmap(const vBITMAP& bitmap, const vPOINT& at);
    // The whole picture stretched into the target; with a key colour, the
    // pixels of that colour are left undrawn.
    virtual int DrawDIB(const oDIB& dib, const vRECT& target, vCOLOUR* key);
    // The source is in the picture's pixels, counted from its top left corner
    // (null: the whole picture), and lands on the target (null: at the
    // logical origin, one device unit for each pixel). Only the picture's
    // lines from first to last are drawn, each where it belongs in the
    // whole, so that a picture can be shown band by band as it loads; a
    // negative last runs to the top line. With keepAspect the source keeps
    // its proportions, centred in the target, and a background colour, when
    // given, fills the target first.
    virtual int DrawDIB(const oDIB& dib, vRECT* source, vCOLOUR* key, int first, int last, vRECT* target,
                        int keepAspect, vCOLOUR* background);
    // Leaves the pixels of the key colour undrawn.
    virtual int DrawTransparentBitmap(const vBITMAP& bitmap, const vPOINT& at, const vCOLOUR& key);

    // The repaint handler of the area.
    virtual int vDraw(const vRECT& area);

    int ReleaseDC() const;
    static HDC GetZKDC();
    // Between these all drawing goes to the context handed in, which stays
    // the platform's.
    void BeginDraw(HDC dc);
    void EndDraw();
    static vSCREEN& GetScreen();

    // Positions floor; the far edges of a rectangle take the ceiling so that
    // the whole of what is given is covered.
    vPOINT LPtoDP(const vPOINT& point);
    vRECT LPtoDP(const vRECT& rect);
    vPOINT DPtoLP(const vPOINT& point);
    vRECT DPtoLP(const vRECT& rect);
    // A length on the device takes the ceiling, so that nothing drawn vanishes;
    // a length in logical units takes the floor.
    vINT LHtoDH(const vINT& length);
    vINT DHtoLH(const vINT& length);
    vINT LVtoDV(const vINT& length);
    vINT DVtoLV(const vINT& length);
    // The logical point that lands on the device's top left corner.
    void Origin(const vPOINT& origin);

protected:
    HDC ActivateDC();
    // Leaves the device's font selected in the held context, for the
    // platform's own text calls on GetZKDC.
    HFONT ActivateFont();
    // The context for a moment's measuring, and its return unless it was
    // held before.
    HDC Borrow(int& held);
    void GiveBack(int held);
    // Scales every font this device makes, as dialog units need.
    void SetFontRatio(vREAL ratio);

    virtual HDC GetMSDC();
    virtual int ReleaseMSDC();

    // The drawing halves. Each takes logical units and answers 0 when there
    // is no context to draw on.
    virtual vINT GetLogFontHeight();
    // The device point where the last line ended.
    virtual int LastPoint(POINT& point);
    virtual int LineRect(const vRECT& rect);
    virtual int FillRect(const vRECT& rect);
    virtual int LineEllipse(const vRECT& rect);
    virtual int FillEllipse(const vRECT& rect);
    virtual int LineShape(const vSHAPE& shape);
    virtual int FillShape(const vSHAPE& shape);
    virtual int LineText(const vSTRING& text, const vRECT& rect, vTEXTALIGN align);
    virtual int FillText(const vSTRING& text, const vRECT& rect, vTEXTALIGN align);

private:
    friend class vFONTDETAIL;

    // What one entry of the state stack holds, and which parts of it count.
    class SAVEDSTATE;
    enum SAVED { SAVED_LINE = 1, SAVED_FILL = 2, SAVED_FONT = 4, SAVED_CLIP = 8, SAVED_ALL = 15 };

    // A drawing pass: the context with this device's objects and clip in
    // place, and what is to be put back afterwards. Only a clipped pass
    // saves the whole context; otherwise the few settings it changes are
    // put back one by one, which costs far less, and a lasting context
    // keeps them.
    struct PASS {
        HDC dc;
        int lasting;
        int saved;
        HGDIOBJ pen;
        HGDIOBJ brush;
        HGDIOBJ font;
        int bkMode;
        COLORREF bkColour;
        COLORREF textColour;
        int fillMode;
    };

    int Open(PASS& pass, HGDIOBJ pen, HGDIOBJ brush);
    void Settle(PASS& pass);
    void Close(const PASS& pass);
    HGDIOBJ Pen();
    HGDIOBJ Brush();
    HFONT Font();
    void DropPen();
    void DropBrush();
    void DropFont();
    void DeselectFont();
    void DropObjects();
    int KeepsSelection();
    void Select(PASS& pass, HGDIOBJ linePen, HGDIOBJ fillBrush);
    void SelectFont(PASS& pass);
    void LetKeptGo();
    void CopyFrom(const vDEVICE& other);
    void Clear();

    int Push(int what);
    int Pop(int what);
    void Restore(SAVEDSTATE& saved);
    void CopyStack(const fSTACK& from, const fLINK* link);

    int Measure(int index);
    int OneToOne();
    vREAL Across(const vINT& value, int toDevice);
    vREAL Down(const vINT& value, int toDevice);
    int TracePath(HDC dc, const vSHAPE& shape);
    RECT TextBox(HDC dc, const vSTRING& text, const vRECT& rect, vTEXTALIGN align);
    int Curve(const vRECT& rect, const vPOINT& start, const vPOINT& end,
              BOOL(WINAPI* draw)(HDC, int, int, int, int, int, int, int, int), HGDIOBJ brush);
    int Blit(const vBITMAP& bitmap, const RECT& source, const RECT& target);
    // Lines from first to last of the picture's rows source.top to
    // source.bottom onto their share of the target.
    int DrawBand(HDC dc, const oDIB& dib, const RECT& source, const RECT& target, unsigned long first,
                 unsigned long last, vCOLOUR* key);

    static HDC current;

    // The context held, from ActivateDC or BeginDraw until it is let go.
    mutable HDC dc;
    // In device units; null while drawing may go anywhere.
    HRGN clip;
    vREAL fontRatio;
    // The platform objects made for the current specs, kept until a spec or
    // the units change: never more than one pen, one brush and one font.
    HFONT font;
    // Non-zero between BeginDraw and EndDraw.
    unsigned short painting;
    vFONTDETAIL* pFontDetail;
    // 0 while logical units follow the device's.
    vINT logHorz;
    HGDIOBJ pen;
    vINT logVert;
    // Measured on the first conversion.
    vINT devHorz;
    vINT devVert;
    vINT transparent;
    vPOINT origin;
    HGDIOBJ brush;
    fSTACK stateStack;
    vLINESPEC lineSpec;
    vFILLSPEC fillSpec;
    POINT lastPoint;
    // A memory device's context lasts as long as the device, so its pen and
    // brush stay selected between passes and go back only when they change
    // or are deleted: the context in which they were selected, and what it
    // held before.
    HDC keptIn;
    HGDIOBJ firstPen;
    HGDIOBJ firstBrush;
};

// The rest of the device family; the devices on one platform handle share
// their part of it.
#include "graphics/handledevice.h"

#include "graphics/bitmap.h"
#include "graphics/deviceid.h"
#include "graphics/fontdetail.h"
#include "graphics/memdevice.h"
#include "graphics/screen.h"
#include "graphics/windowid.h"
