#include "graphics/device.h"

#include <cstring>

namespace {

const long PointsPerInch = 72;
const long BoldWeight = 700;

}  // namespace

vFONTDETAIL::vFONTDETAIL(const vFONTSPEC& spec, const vDEVICE& device)
    : vFONTSPEC(spec), device(const_cast<vDEVICE*>(&device))
{
}

vFONTDETAIL::vFONTDETAIL() : device(nullptr) {}

int vFONTDETAIL::Init()
{
    TEXTMETRICA metrics;
    SIZE extent;
    if (!Measure(vSTRING(), metrics, extent))
        return 0;
    ascent = device->DVtoLV(metrics.tmAscent);
    descent = device->DVtoLV(metrics.tmDescent);
    averageWidth = device->DHtoLH(metrics.tmAveCharWidth);
    return 1;
}

vINT vFONTDETAIL::GetDefStringWidth(const vSTRING& text)
{
    TEXTMETRICA metrics;
    SIZE extent;
    if (!Measure(text, metrics, extent))
        return 0;
    return device->DHtoLH(extent.cx);
}

vINT vFONTDETAIL::Ascent() const
{
    return ascent;
}

vINT vFONTDETAIL::Descent() const
{
    return descent;
}

vINT vFONTDETAIL::AverageWidth() const
{
    return averageWidth;
}

// An expansion other than 1 stretches the characters: the natural font is
// measured first and its average width scaled.
HFONT vFONTDETAIL::MakeFont()
{
    LOGFONTA description = Describe();
    HFONT natural = CreateFontIndirectA(&description);
    if (!natural || expansion() == 0 || expansion == vREAL(1))
        return natural;
    TEXTMETRICA metrics;
    SIZE extent;
    int measured = Measure(natural, vSTRING(), metrics, extent);
    DeleteObject(natural);
    if (measured)
        description.lfWidth = (vINT(metrics.tmAveCharWidth) * expansion).Ceil()();
    return CreateFontIndirectA(&description);
}

LOGFONTA vFONTDETAIL::Describe()
{
    LOGFONTA description;
    std::memset(&description, 0, sizeof description);
    vINT size = DeviceHeight().Ceil();
    // A point size is the character's own height; a pixel height the whole cell.
    description.lfHeight = Pixels() ? size() : -size();
    long tenths = (vINT(10) * angle).Floor()();
    description.lfEscapement = tenths;
    description.lfOrientation = tenths;
    description.lfWeight = (style & vFONT_BOLD) ? BoldWeight : FW_NORMAL;
    description.lfItalic = (style & vFONT_ITALIC) != 0;
    description.lfUnderline = (style & vFONT_UNDERLINE) != 0;
    description.lfStrikeOut = (style & vFONT_STRIKEOUT) != 0;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = NONANTIALIASED_QUALITY;
    std::strncpy(description.lfFaceName, name(), LF_FACESIZE - 1);
    return description;
}

vREAL vFONTDETAIL::DeviceHeight()
{
    if (!device)
        return vREAL();
    vREAL natural = Pixels() ? device->Down(height, 1)
                             : (pointSize * device->DevUnitsPerVertInch()) / vREAL(vINT(PointsPerInch));
    return natural * device->fontRatio;
}

int vFONTDETAIL::Measure(const vSTRING& text, TEXTMETRICA& metrics, SIZE& extent)
{
    HFONT font = MakeFont();
    int done = font && Measure(font, text, metrics, extent);
    if (font)
        DeleteObject(font);
    return done;
}

int vFONTDETAIL::Measure(HFONT font, const vSTRING& text, TEXTMETRICA& metrics, SIZE& extent)
{
    if (!device)
        return 0;
    int held;
    HDC dc = device->Borrow(held);
    if (!dc)
        return 0;
    HGDIOBJ previous = SelectObject(dc, font);
    int done = GetTextMetricsA(dc, &metrics) && GetTextExtentPoint32A(dc, text(), text.Length(), &extent);
    SelectObject(dc, previous);
    device->GiveBack(held);
    return done;
}
