#include "graphics/streamdib.h"

#include "base/memory.h"
#include "streams/stream.h"

namespace {

// About how many bytes of lines go across in one band.
const unsigned long BandBytes = 64 * 1024;

}  // namespace

oSTREAMDIB::oSTREAMDIB(int tag)
    : oDIB(tag), lock(), source(nullptr), linesAt(0), topDown(0)
{
}

oSTREAMDIB::oSTREAMDIB(const oSTREAMDIB& other)
    : oDIB(other, other.Tag()), lock(), source(other.source), linesAt(other.linesAt), topDown(other.topDown)
{
}

oSTREAMDIB& oSTREAMDIB::operator=(const oSTREAMDIB& other)
{
    if (this == &other)
        return *this;
    ReleaseImageLines(0);
    oDIB::operator=(other);
    source = other.source;
    linesAt = other.linesAt;
    topDown = other.topDown;
    return *this;
}

oSTREAMDIB::~oSTREAMDIB()
{
    ReleaseImageLines(0);
}

void oSTREAMDIB::SetHeader(const oDIBHEADER& newHeader)
{
    ReleaseImageLines(0);
    if (newHeader.Width() != header.Width() || newHeader.Height() != header.Height() ||
        newHeader.ColourDepth() != header.ColourDepth())
        source = nullptr;
    oDIB::SetHeader(newHeader);
}

int oSTREAMDIB::SetImageLines(unsigned char* data, oCOLOUR_MODEL model, unsigned long first, unsigned long last)
{
    if (!source || !data || !IsBand(first, last))
        return 0;
    unsigned short depth = DepthFor(model);
    unsigned long stride = Stride();
    unsigned char* line = static_cast<unsigned char*>(vMemAlloc(stride));
    int done = line != nullptr;
    for (unsigned long i = first; done && i <= last; ++i) {
        ConvertLines(data + (i - first) * oDIBHEADER::LineBytes(header.Width(), depth), depth, line,
                     header.ColourDepth(), 1);
        done = source->MoveFromStart(At(i)) == At(i) && source->WriteBlock(line, stride) == stride;
    }
    vMemFree(line);
    return done;
}

int oSTREAMDIB::GetImageLines(unsigned long first, unsigned long last, unsigned char* data,
                              oCOLOUR_MODEL* model) const
{
    if (!source || !data || !IsBand(first, last))
        return 0;
    unsigned short depth = DepthFor(ModelAsked(model));
    if (depth == header.ColourDepth())
        return ReadLines(first, last, data);
    unsigned char* line = static_cast<unsigned char*>(vMemAlloc(Stride()));
    int done = line != nullptr;
    for (unsigned long i = first; done && i <= last; ++i) {
        done = ReadLines(i, i, line);
        ConvertLines(line, header.ColourDepth(), data + (i - first) * oDIBHEADER::LineBytes(header.Width(), depth),
                     depth, 1);
    }
    vMemFree(line);
    return done;
}

int oSTREAMDIB::LockImageLines(unsigned long first, unsigned long last, unsigned char** data,
                               oCOLOUR_MODEL model)
{
    return LockCopy(lock, first, last, data, model);
}

int oSTREAMDIB::ReleaseImageLines(int keep)
{
    return ReleaseLock(lock, keep);
}

const oDIB& oSTREAMDIB::operator<<(vSTREAM& stream)
{
    ReleaseImageLines(0);
    source = nullptr;
    LAYOUT layout;
    if (!ReadHead(stream, layout)) {
        Refuse(stream);
        return *this;
    }
    source = &stream;
    linesAt = layout.lines;
    topDown = layout.topDown;
    stream.MoveFromStart(linesAt + header.Size());
    return *this;
}

const oDIB& oSTREAMDIB::operator>>(vSTREAM& stream) const
{
    if (!source || !WriteHead(stream))
        return *this;
    unsigned long stride = Stride();
    unsigned long band = BandBytes / stride ? BandBytes / stride : 1;
    unsigned char* buffer = static_cast<unsigned char*>(vMemAlloc(band * stride));
    for (unsigned long first = 0; buffer && first < header.Height(); first += band) {
        unsigned long last = first + band - 1 < header.Height() ? first + band - 1 : header.Height() - 1;
        if (!ReadLines(first, last, buffer))
            break;
        stream.WriteBlock(buffer, (last - first + 1) * stride);
    }
    vMemFree(buffer);
    return *this;
}

unsigned long oSTREAMDIB::Stride() const
{
    return oDIBHEADER::LineBytes(header.Width(), header.ColourDepth());
}

unsigned long oSTREAMDIB::At(unsigned long line) const
{
    return linesAt + (topDown ? header.Height() - 1 - line : line) * Stride();
}

int oSTREAMDIB::ReadLines(unsigned long first, unsigned long last, unsigned char* data) const
{
    unsigned long count = last - first + 1;
    unsigned long bytes = count * Stride();
    unsigned long from = topDown ? At(last) : At(first);
    if (source->MoveFromStart(from) != from || source->ReadByteString(data, bytes) != static_cast<long>(bytes))
        return 0;
    if (topDown)
        TurnOver(data, Stride(), count);
    return 1;
}
