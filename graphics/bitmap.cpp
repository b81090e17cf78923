#include "graphics/device.h"

vBITMAP::vBITMAP(const vRESID& resource) : handle(nullptr)
{
    Adopt(Load(resource));
}

vBITMAP::vBITMAP(const vRESID& resource, const vRECT& cell) : handle(nullptr)
{
    HBITMAP sheet = Load(resource);
    if (!sheet)
        return;
    Adopt(Cut(sheet, cell));
    DeleteObject(sheet);
}

vBITMAP::vBITMAP(const vBITMAP& sheet, const vRECT& cell) : handle(nullptr)
{
    if (sheet.handle)
        Adopt(Cut(sheet.handle, cell));
}

vBITMAP::vBITMAP(HBITMAP bitmap) : handle(nullptr)
{
    Adopt(bitmap);
}

vBITMAP::~vBITMAP()
{
    if (handle)
        DeleteObject(handle);
}

vRECT vBITMAP::Size() const
{
    return size;
}

int vBITMAP::Valid() const
{
    return handle != nullptr;
}

void vBITMAP::Angle(const vANGLE&) {}

vANGLE vBITMAP::Angle() const
{
    return vANGLE();
}

void vBITMAP::Rotate(const vROTATEANGLE&) {}

vROTATEANGLE vBITMAP::Rotate() const
{
    return vROTATE_NONE;
}

void vBITMAP::Mirror(int) {}

int vBITMAP::IsMirrored() const
{
    return 0;
}

// Drawn at a point, a picture sits centred on it: button faces and check
// marks are placed by their middle.
int vBITMAP::Draw(vDEVICE& device, const vPOINT& at) const
{
    return device.DrawBitmap(*this, CornerFor(device, at));
}

int vBITMAP::DrawTransparent(vDEVICE& device, const vPOINT& at, const vCOLOUR& key) const
{
    return device.DrawTransparentBitmap(*this, CornerFor(device, at), key);
}

vPOINT vBITMAP::CornerFor(vDEVICE& device, const vPOINT& centre) const
{
    vPOINT middle = device.LPtoDP(centre);
    vPOINT corner(middle.x() - size.Width()() / 2, middle.y() - size.Height()() / 2);
    return device.DPtoLP(corner);
}

unsigned short vBITMAP::LanguageOffset(unsigned short language)
{
    switch (language) {
    case 1036:
        return 20;
    case 1031:
        return 40;
    case 1053:
        return 60;
    default:
        return 0;
    }
}

void vBITMAP::Adopt(HBITMAP bitmap)
{
    BITMAP shape;
    if (!bitmap || !GetObjectA(bitmap, sizeof shape, &shape))
        return;
    handle = bitmap;
    size = vRECT(0, 0, shape.bmWidth, shape.bmHeight);
}

HBITMAP vBITMAP::Load(const vRESID& resource)
{
    return LoadBitmapA(resource.Instance(), MAKEINTRESOURCEA(resource()));
}

// The cell is made like the screen, so that it draws without conversion.
HBITMAP vBITMAP::Cut(HBITMAP sheet, const vRECT& cell)
{
    int width = cell.Width()();
    int height = cell.Height()();
    if (width <= 0 || height <= 0)
        return nullptr;
    HDC screen = GetDC(nullptr);
    HBITMAP piece = CreateCompatibleBitmap(screen, width, height);
    HDC from = CreateCompatibleDC(screen);
    HDC to = CreateCompatibleDC(screen);
    HGDIOBJ oldFrom = SelectObject(from, sheet);
    HGDIOBJ oldTo = SelectObject(to, piece);
    BitBlt(to, 0, 0, width, height, from, cell.Left()(), cell.Top()(), SRCCOPY);
    SelectObject(to, oldTo);
    SelectObject(from, oldFrom);
    DeleteDC(to);
    DeleteDC(from);
    ReleaseDC(nullptr, screen);
    return piece;
}
