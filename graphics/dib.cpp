#include "graphics/dib.h"

#include <algorithm>
#include <cstring>

#include "base/memory.h"
#include "graphics/colour.h"
#include "streams/stream.h"

namespace {

const unsigned long FileHeaderBytes = 14;
const unsigned long InfoBytes = 40;
const unsigned long HeadBytes = FileHeaderBytes + InfoBytes;
const unsigned short FileMark = 0x4D42;  // "BM"
const unsigned short MostColours = 256;
const unsigned long MostLines = 0x7FFFFFFF;

unsigned long Get32(const unsigned char* at)
{
    return at[0] | at[1] << 8 | at[2] << 16 | static_cast<unsigned long>(at[3]) << 24;
}

unsigned short Get16(const unsigned char* at)
{
    return static_cast<unsigned short>(at[0] | at[1] << 8);
}

void Put32(unsigned char* at, unsigned long value)
{
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<unsigned char>(value >> 8 * i);
}

void Put16(unsigned char* at, unsigned short value)
{
    at[0] = static_cast<unsigned char>(value);
    at[1] = static_cast<unsigned char>(value >> 8);
}

int IsDepth(unsigned short depth)
{
    return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 24;
}

oCOLOUR_MODEL ModelOf(unsigned short depth)
{
    switch (depth) {
    case 1:
    case 2:
        return oMODEL_MONO;
    case 4:
        return oMODEL_16;
    case 8:
        return oMODEL_256;
    default:
        return oMODEL_RGB;
    }
}

unsigned char Pixel(const unsigned char* line, unsigned long x, unsigned short depth)
{
    unsigned long bit = x * depth;
    unsigned shift = 8 - depth - (bit & 7);
    return static_cast<unsigned char>(line[bit >> 3] >> shift & ((1 << depth) - 1));
}

void SetPixel(unsigned char* line, unsigned long x, unsigned short depth, unsigned char value)
{
    unsigned long bit = x * depth;
    unsigned shift = 8 - depth - (bit & 7);
    unsigned char mask = static_cast<unsigned char>(((1 << depth) - 1) << shift);
    line[bit >> 3] = static_cast<unsigned char>((line[bit >> 3] & ~mask) | (value << shift & mask));
}

// Copies count pixels from pixel `from` of one line to pixel `to` of another.
void CopyPixels(const unsigned char* source, unsigned long from, unsigned char* target, unsigned long to,
                unsigned long count, unsigned short depth)
{
    if (depth % 8 == 0) {
        std::memcpy(target + to * depth / 8, source + from * depth / 8, count * depth / 8);
        return;
    }
    for (unsigned long i = 0; i < count; ++i)
        SetPixel(target, to + i, depth, Pixel(source, from + i, depth));
}

// What the head of an archive says, as far as a reader takes it.
struct HEAD {
    unsigned short mark;
    unsigned long offset;
    unsigned long infoSize;
    long width;
    long height;
    unsigned short planes;
    unsigned short depth;
    unsigned long compression;
    unsigned long declared;
    LONG horzResolution;
    LONG vertResolution;
    unsigned long used;
    // Worked out from the fields above; the image size by the reader, who
    // knows how lines are padded.
    unsigned long lines;
    unsigned long long image;
    unsigned long colours;
    unsigned long colourBytes;
};

HEAD Parse(const unsigned char* bytes)
{
    const unsigned char* info = bytes + FileHeaderBytes;
    HEAD head = {Get16(bytes), Get32(bytes + 10), Get32(info), static_cast<long>(Get32(info + 4)),
                 static_cast<long>(Get32(info + 8)), Get16(info + 12), Get16(info + 14), Get32(info + 16),
                 Get32(info + 20), static_cast<LONG>(Get32(info + 24)), static_cast<LONG>(Get32(info + 28)),
                 Get32(info + 32), 0, 0, 0, 0};
    head.lines = static_cast<unsigned long>(head.height < 0 ? -head.height : head.height);
    head.colours = head.used ? head.used : head.depth <= 8 ? 1UL << head.depth : 0;
    head.colourBytes = head.depth <= 8 && head.colours <= MostColours ? head.colours * sizeof(RGBQUAD) : 0;
    return head;
}

// Whether the head describes a picture that the length of stream behind it
// holds whole. Every size is checked against those bytes, so that nothing is
// ever allocated for what a header merely claims.
int Fits(const HEAD& head, unsigned long length)
{
    int plain = head.mark == FileMark && head.planes == 1 && head.compression == BI_RGB && IsDepth(head.depth) &&
                head.width > 0 && head.height != 0 && head.height >= -static_cast<long>(MostLines);
    int placed = head.offset >= HeadBytes && head.offset <= length && head.infoSize >= InfoBytes &&
                 head.infoSize <= head.offset - FileHeaderBytes &&
                 FileHeaderBytes + head.infoSize + head.colourBytes <= head.offset;
    int sized = plain && placed && head.image <= length - head.offset &&
                (!head.declared || head.declared / head.lines == head.image / head.lines);
    int coloured = head.colours <= MostColours && (head.depth > 8 || head.colours <= 1UL << head.depth);
    return sized && coloured;
}

}  // namespace

// Turns lines of one depth into another through the picture's colours: an
// index into a colour for direct lines, a colour into the nearest index for
// palette lines, and an index that the smaller depth cannot hold through its
// colour into the nearest one that it can.
class oDIB::CONVERTER {
public:
    CONVERTER(const oDIB& dib, unsigned short fromDepth, unsigned short toDepth)
        : palette(dib.header.Palette()), fromDepth(fromDepth), toDepth(toDepth), lastRgb(0), lastIndex(-1)
    {
        std::memset(quads, 0, sizeof quads);
        dib.Colours(quads, fromDepth == 24 ? toDepth : fromDepth);
    }

    void Line(const unsigned char* from, unsigned char* to, unsigned long width)
    {
        for (unsigned long x = 0; x < width; ++x) {
            if (toDepth == 24)
                PutColour(to + 3 * x, ColourAt(from, x));
            else
                SetPixel(to, x, toDepth, IndexAt(from, x));
        }
    }

private:
    RGBQUAD ColourAt(const unsigned char* line, unsigned long x) const
    {
        if (fromDepth == 24)
            return RGBQUAD{line[3 * x], line[3 * x + 1], line[3 * x + 2], 0};
        return quads[Pixel(line, x, fromDepth)];
    }

    unsigned char IndexAt(const unsigned char* line, unsigned long x)
    {
        if (fromDepth != 24) {
            unsigned char index = Pixel(line, x, fromDepth);
            if (index < 1 << toDepth)
                return index;
        }
        return Nearest(ColourAt(line, x));
    }

    static void PutColour(unsigned char* at, const RGBQUAD& quad)
    {
        at[0] = quad.rgbBlue;
        at[1] = quad.rgbGreen;
        at[2] = quad.rgbRed;
    }

    // The last answer is kept, since pictures come in runs of one colour.
    unsigned char Nearest(const RGBQUAD& quad)
    {
        unsigned long rgb = quad.rgbRed | quad.rgbGreen << 8 | quad.rgbBlue << 16;
        if (lastIndex >= 0 && rgb == lastRgb)
            return static_cast<unsigned char>(lastIndex);
        lastRgb = rgb;
        lastIndex = palette ? palette->NearestColour(vCOLOUR(quad.rgbRed, quad.rgbGreen, quad.rgbBlue),
                                                     static_cast<unsigned short>(1 << toDepth))
                            : Grey(quad);
        return static_cast<unsigned char>(lastIndex);
    }

    // The step of the ramp nearest to the colour's brightness.
    int Grey(const RGBQUAD& quad) const
    {
        int steps = (1 << toDepth) - 1;
        int bright = (quad.rgbRed * 299 + quad.rgbGreen * 587 + quad.rgbBlue * 114) / 1000;
        return (bright * steps + 127) / 255;
    }

    const oPALETTE* palette;
    unsigned short fromDepth;
    unsigned short toDepth;
    RGBQUAD quads[MostColours];
    unsigned long lastRgb;
    int lastIndex;
};

oDIB::oDIB(int tag)
    : ownPalette(nullptr), compressed(0), tag(tag)
{
}

oDIB::oDIB(const oDIB& other, int tag)
    : ownPalette(nullptr), compressed(0), tag(tag)
{
    *this = other;
    this->tag = tag;
}

oDIB& oDIB::operator=(const oDIB& other)
{
    if (this == &other)
        return *this;
    if (other.ownPalette)
        ++other.ownPalette->holders;
    DropPalette();
    header = other.header;
    ownPalette = other.ownPalette;
    compressed = other.compressed;
    tag = other.tag;
    return *this;
}

oDIB::~oDIB()
{
    DropPalette();
}

void oDIB::GetHeader(oDIBHEADER& out) const
{
    out = header;
}

const oDIBHEADER* oDIB::GetHeader() const
{
    return &header;
}

void oDIB::SetHeader(const oDIBHEADER& newHeader)
{
    header = newHeader;
    if (ownPalette)
        header.Palette(ownPalette);
}

unsigned short oDIB::GetPalette(oDIBPALETTE** out) const
{
    if (out)
        *out = ownPalette;
    return ownPalette ? ownPalette->GetNumColours() : 0;
}

void oDIB::SetPalette(const oDIBPALETTE& palette)
{
    if (!ownPalette)
        ownPalette = new oDIBPALETTE(palette);
    else
        *ownPalette = palette;
    header.Palette(ownPalette);
}

int oDIB::IsCompressed()
{
    return compressed;
}

int oDIB::Tag() const
{
    return tag;
}

unsigned short oDIB::DepthFor(oCOLOUR_MODEL model) const
{
    return model == header.ColourModel() ? header.ColourDepth() : oDIBHEADER::DepthOf(model);
}

oCOLOUR_MODEL oDIB::ModelAsked(const oCOLOUR_MODEL* model) const
{
    return model ? *model : header.ColourModel();
}

int oDIB::IsBand(unsigned long first, unsigned long last) const
{
    return first <= last && last < header.Height();
}

void oDIB::ConvertLines(const unsigned char* from, unsigned short fromDepth, unsigned char* to,
                        unsigned short toDepth, unsigned long count) const
{
    unsigned long width = header.Width();
    unsigned long fromBytes = oDIBHEADER::LineBytes(width, fromDepth);
    unsigned long toBytes = oDIBHEADER::LineBytes(width, toDepth);
    if (fromDepth == toDepth) {
        std::memmove(to, from, fromBytes * count);
        return;
    }
    CONVERTER converter(*this, fromDepth, toDepth);
    for (unsigned long line = 0; line < count; ++line) {
        std::memset(to + line * toBytes, 0, toBytes);
        converter.Line(from + line * fromBytes, to + line * toBytes, width);
    }
}

int oDIB::ReadHead(vSTREAM& stream, LAYOUT& layout)
{
    unsigned long start = stream.CurrentPos();
    unsigned long total = stream.Size();
    unsigned long length = total > start ? total - start : 0;
    unsigned char bytes[HeadBytes];
    if (length < HeadBytes || stream.ReadByteString(bytes, HeadBytes) != static_cast<long>(HeadBytes))
        return 0;
    HEAD head = Parse(bytes);
    head.image = ImageBytes(static_cast<unsigned long>(head.width > 0 ? head.width : 0), head.lines, head.depth);
    if (!Fits(head, length))
        return 0;
    stream.MoveFromCur(static_cast<long>(head.infoSize - InfoBytes));
    RGBQUAD quads[MostColours];
    if (head.colourBytes && stream.ReadByteString(reinterpret_cast<unsigned char*>(quads), head.colourBytes) !=
                                static_cast<long>(head.colourBytes))
        return 0;
    DropPalette();
    header = oDIBHEADER(static_cast<unsigned long>(head.width), head.lines, 0, 0, ModelOf(head.depth));
    header.info.biBitCount = head.depth;
    header.info.biSizeImage = static_cast<unsigned long>(head.image);
    header.info.biXPelsPerMeter = head.horzResolution;
    header.info.biYPelsPerMeter = head.vertResolution;
    if (head.colourBytes)
        SetPalette(oDIBPALETTE(quads, static_cast<unsigned short>(head.colours)));
    layout.lines = start + head.offset;
    layout.topDown = head.height < 0;
    return 1;
}

unsigned long long oDIB::ImageBytes(unsigned long width, unsigned long height, unsigned short depth)
{
    return (static_cast<unsigned long long>(width) * depth + 31) / 32 * 4 * height;
}

void oDIB::TurnOver(unsigned char* data, unsigned long stride, unsigned long count)
{
    for (unsigned long low = 0, high = count - 1; low < high; ++low, --high)
        std::swap_ranges(data + low * stride, data + (low + 1) * stride, data + high * stride);
}

int oDIB::WriteHead(vSTREAM& stream) const
{
    unsigned short depth = header.ColourDepth();
    unsigned char head[HeadBytes + MostColours * sizeof(RGBQUAD)] = {};
    unsigned short colours = depth <= 8 ? Colours(reinterpret_cast<RGBQUAD*>(head + HeadBytes), depth) : 0;
    unsigned long offset = HeadBytes + colours * sizeof(RGBQUAD);
    unsigned char* info = head + FileHeaderBytes;
    Put16(head, FileMark);
    Put32(head + 2, offset + header.Size());
    Put32(head + 10, offset);
    Put32(info, InfoBytes);
    Put32(info + 4, header.Width());
    Put32(info + 8, header.Height());
    Put16(info + 12, 1);
    Put16(info + 14, depth);
    Put32(info + 16, BI_RGB);
    Put32(info + 20, header.Size());
    Put32(info + 24, static_cast<unsigned long>(header.info.biXPelsPerMeter));
    Put32(info + 28, static_cast<unsigned long>(header.info.biYPelsPerMeter));
    Put32(info + 32, colours == (1U << depth) ? 0 : colours);
    return stream.WriteBlock(head, offset) == offset;
}

void oDIB::Refuse(vSTREAM& stream)
{
    DropPalette();
    header = oDIBHEADER();
    // A read at the end is what every stream reports as an end.
    stream.MoveFromEnd(0);
    stream.ReadUByte();
}

int oDIB::SetImageBlock(unsigned char* data, oCOLOUR_MODEL model, unsigned long x, unsigned long y,
                        unsigned long width, unsigned long height)
{
    unsigned char* line = data ? BlockLine(x, y, width, height, model) : nullptr;
    unsigned short depth = DepthFor(model);
    unsigned long blockBytes = oDIBHEADER::LineBytes(width, depth);
    int done = line != nullptr;
    for (unsigned long i = 0; done && i < height; ++i) {
        done = GetImageLines(y + i, y + i, line, &model);
        CopyPixels(data + i * blockBytes, 0, line, x, width, depth);
        done = done && SetImageLines(line, model, y + i, y + i);
    }
    vMemFree(line);
    return done;
}

int oDIB::GetImageBlock(unsigned long x, unsigned long y, unsigned long width, unsigned long height,
                        unsigned char* data, oCOLOUR_MODEL* model) const
{
    oCOLOUR_MODEL asked = ModelAsked(model);
    unsigned char* line = data ? BlockLine(x, y, width, height, asked) : nullptr;
    unsigned short depth = DepthFor(asked);
    unsigned long blockBytes = oDIBHEADER::LineBytes(width, depth);
    int done = line != nullptr;
    for (unsigned long i = 0; done && i < height; ++i) {
        done = GetImageLines(y + i, y + i, line, &asked);
        std::memset(data + i * blockBytes, 0, blockBytes);
        CopyPixels(line, x, data + i * blockBytes, 0, width, depth);
    }
    vMemFree(line);
    return done;
}

unsigned char* oDIB::BlockLine(unsigned long x, unsigned long y, unsigned long width, unsigned long height,
                               oCOLOUR_MODEL model) const
{
    if (!width || !height || x >= header.Width() || width > header.Width() - x || !IsBand(y, y + height - 1))
        return nullptr;
    return static_cast<unsigned char*>(vMemAlloc(oDIBHEADER::LineBytes(header.Width(), DepthFor(model))));
}

int oDIB::LockCopy(LOCK& lock, unsigned long first, unsigned long last, unsigned char** data,
                   oCOLOUR_MODEL model)
{
    if (lock.held || !data || !IsBand(first, last))
        return 0;
    unsigned long bytes = oDIBHEADER::LineBytes(header.Width(), DepthFor(model)) * (last - first + 1);
    lock.copy = static_cast<unsigned char*>(vMemAlloc(bytes));
    if (!lock.copy || !GetImageLines(first, last, lock.copy, &model)) {
        vMemFree(lock.copy);
        lock.copy = nullptr;
        return 0;
    }
    lock = LOCK{1, first, last, model, lock.copy};
    *data = lock.copy;
    return 1;
}

int oDIB::ReleaseLock(LOCK& lock, int keep)
{
    if (!lock.held)
        return 0;
    int done = !keep || !lock.copy || SetImageLines(lock.copy, lock.model, lock.first, lock.last);
    vMemFree(lock.copy);
    lock = LOCK{0, 0, 0, oMODEL_RGB, nullptr};
    return done;
}

void oDIB::DropPalette()
{
    if (ownPalette && ownPalette->holders-- == 0)
        delete ownPalette;
    ownPalette = nullptr;
    header.Palette(nullptr);
}

unsigned short oDIB::Colours(RGBQUAD* quads, unsigned short depth) const
{
    unsigned short most = static_cast<unsigned short>(1 << depth);
    const oPALETTE* palette = header.Palette();
    if (!palette || !palette->GetNumColours()) {
        for (unsigned short i = 0; i < most; ++i) {
            BYTE grey = static_cast<BYTE>(i * 255 / (most - 1));
            quads[i] = RGBQUAD{grey, grey, grey, 0};
        }
        return most;
    }
    unsigned short count = palette->GetNumColours() < most ? palette->GetNumColours() : most;
    for (unsigned short i = 0; i < count; ++i) {
        vCOLOUR colour;
        palette->GetColour(i, colour);
        quads[i] = RGBQUAD{colour.Blue(), colour.Green(), colour.Red(), 0};
    }
    return count;
}
