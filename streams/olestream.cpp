#include "streams/olestream.h"

// The one copy of the primitives that every caller uses.
template class vSTREAMPRIMITIVES<vOLESTREAM>;

vOLESTREAM::vOLESTREAM(IStream* const* stream, const vSTRING& name, unsigned long mode)
    : vSTREAMPRIMITIVES(name, mode), stream(stream ? *stream : nullptr), position(0), size(0), limit(0)
{
    if (!this->stream)
        return;
    STATSTG about;
    if (this->stream->Stat(&about, STATFLAG_DEFAULT) == S_OK) {
        size = about.cbSize.LowPart;
        CoTaskMemFree(about.pwcsName);
    }
    position = Seek(0, STREAM_SEEK_CUR);
    limit = size;
}

vOLESTREAM::vOLESTREAM(const vOLESTREAM& other)
    : vSTREAMPRIMITIVES(other),
      stream(other.stream),
      position(other.position),
      size(other.size),
      limit(other.limit)
{
}

vOLESTREAM::~vOLESTREAM() = default;

// A read the platform cannot fill is undone, so that the platform's
// position stays the one this stream keeps.
int vOLESTREAM::Get(void* out, unsigned long width)
{
    ULONG got = 0;
    if (!stream)
        return 0;
    if (stream->Read(out, width, &got) == S_OK && got == width) {
        position += width;
        return 1;
    }
    if (got)
        Seek(-static_cast<long long>(got), STREAM_SEEK_CUR);
    return 0;
}

long vOLESTREAM::ReadByteString(unsigned char* buffer, unsigned long count)
{
    ULONG got = 0;
    if (stream && buffer && count)
        stream->Read(buffer, count, &got);
    position += got;
    return static_cast<long>(got);
}

unsigned long vOLESTREAM::Put(const void* in, unsigned long width)
{
    ULONG put = 0;
    if (!stream || stream->Write(in, width, &put) != S_OK || put != width)
        status = vSTREAM_WRITEFAIL;
    position += put;
    if (position > size)
        size = position;
    return put;
}

// A move the platform refuses, such as one to before the start, leaves the
// position where it was.
unsigned long vOLESTREAM::Seek(long long distance, DWORD origin)
{
    LARGE_INTEGER move;
    move.QuadPart = distance;
    ULARGE_INTEGER reached;
    if (stream && stream->Seek(move, origin, &reached) == S_OK)
        position = reached.LowPart;
    return position;
}

unsigned long vOLESTREAM::MoveFromCur(long distance)
{
    return Seek(distance, STREAM_SEEK_CUR);
}

unsigned long vOLESTREAM::MoveFromStart(unsigned long target)
{
    return Seek(target, STREAM_SEEK_SET);
}

// As on the other streams, a positive distance moves back from the end.
unsigned long vOLESTREAM::MoveFromEnd(long distance)
{
    return Seek(-static_cast<long long>(distance), STREAM_SEEK_END);
}

unsigned long vOLESTREAM::CurrentPos() const
{
    return position;
}

unsigned long vOLESTREAM::Size() const
{
    return size;
}

int vOLESTREAM::AtEnd() const
{
    return position >= size;
}
