#include "graphics/memdib.h"

#include <cstring>

#include "base/memory.h"
#include "streams/stream.h"

namespace {

// The most a block of lines may take: what a signed size can count.
const unsigned long long MostBytes = 0x7FFFFFFF;

}  // namespace

oMEMDIB::oMEMDIB(int tag)
    : oDIB(tag), lock(), lines(nullptr), target(nullptr)
{
}

oMEMDIB::oMEMDIB(vSTREAM& target, int tag)
    : oDIB(tag), lock(), lines(nullptr), target(&target)
{
}

oMEMDIB::oMEMDIB(const oMEMDIB& other)
    : oDIB(other, other.Tag()), lock(), lines(nullptr), target(nullptr)
{
    *this = other;
}

oMEMDIB& oMEMDIB::operator=(const oMEMDIB& other)
{
    if (this == &other)
        return *this;
    ReleaseImageLines(0);
    Free();
    oDIB::operator=(other);
    Allocate(1);
    if (lines && other.lines)
        std::memcpy(lines, other.lines, header.Size());
    return *this;
}

oMEMDIB::~oMEMDIB()
{
    ReleaseImageLines(0);
    if (target)
        *this >> *target;
    Free();
}

void oMEMDIB::SetHeader(const oDIBHEADER& newHeader)
{
    ReleaseImageLines(0);
    oDIB::SetHeader(newHeader);
    Free();
    Allocate(1);
}

int oMEMDIB::SetImageLines(unsigned char* data, oCOLOUR_MODEL model, unsigned long first, unsigned long last)
{
    if (!lines || !data || !IsBand(first, last))
        return 0;
    ConvertLines(data, DepthFor(model), Line(first), header.ColourDepth(), last - first + 1);
    return 1;
}

int oMEMDIB::GetImageLines(unsigned long first, unsigned long last, unsigned char* data,
                           oCOLOUR_MODEL* model) const
{
    if (!lines || !data || !IsBand(first, last))
        return 0;
    ConvertLines(Line(first), header.ColourDepth(), data, DepthFor(ModelAsked(model)), last - first + 1);
    return 1;
}

int oMEMDIB::LockImageLines(unsigned long first, unsigned long last, unsigned char** data, oCOLOUR_MODEL model)
{
    if (DepthFor(model) != header.ColourDepth())
        return LockCopy(lock, first, last, data, model);
    if (lock.held || !lines || !data || !IsBand(first, last))
        return 0;
    lock = LOCK{1, first, last, model, nullptr};
    *data = Line(first);
    return 1;
}

int oMEMDIB::ReleaseImageLines(int keep)
{
    return ReleaseLock(lock, keep);
}

const oDIB& oMEMDIB::operator<<(vSTREAM& stream)
{
    ReleaseImageLines(0);
    Free();
    LAYOUT layout;
    if (!ReadHead(stream, layout)) {
        Refuse(stream);
        return *this;
    }
    Allocate(0);
    stream.MoveFromStart(layout.lines);
    unsigned long size = header.Size();
    if (!lines || stream.ReadByteString(lines, size) != static_cast<long>(size)) {
        Free();
        Refuse(stream);
        return *this;
    }
    if (layout.topDown)
        TurnOver(lines, Stride(), header.Height());
    return *this;
}

const oDIB& oMEMDIB::operator>>(vSTREAM& stream) const
{
    if (lines && WriteHead(stream))
        stream.WriteBlock(lines, header.Size());
    return *this;
}

unsigned char* oMEMDIB::Line(unsigned long line) const
{
    return lines + line * Stride();
}

unsigned long oMEMDIB::Stride() const
{
    return oDIBHEADER::LineBytes(header.Width(), header.ColourDepth());
}

void oMEMDIB::Allocate(int clear)
{
    unsigned long long bytes = ImageBytes(header.Width(), header.Height(), header.ColourDepth());
    if (!bytes || bytes > MostBytes || bytes != header.Size())
        return;
    lines = static_cast<unsigned char*>(vMemAlloc(static_cast<unsigned long>(bytes)));
    if (lines && clear)
        std::memset(lines, 0, static_cast<unsigned long>(bytes));
}

void oMEMDIB::Free()
{
    vMemFree(lines);
    lines = nullptr;
}
