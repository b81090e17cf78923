#include "streams/olestream.h"

#include <cstring>

vOLESTREAM::vOLESTREAM(IStream* const* stream, const vSTRING& name, unsigned long mode)
    : vSTREAM(name, mode), stream(stream ? *stream : nullptr), position(0), size(0), limit(0)
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
    : vSTREAM(other), stream(other.stream), position(other.position), size(other.size), limit(other.limit)
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
    std::memset(out, 0, width);
    return 0;
}

template <class T>
T vOLESTREAM::Fetch()
{
    T value = 0;
    Get(&value, sizeof value);
    return value;
}

unsigned long vOLESTREAM::ReadULong()
{
    return Fetch<unsigned long>();
}

unsigned short vOLESTREAM::ReadUWord()
{
    return Fetch<unsigned short>();
}

unsigned char vOLESTREAM::ReadUByte()
{
    return Fetch<unsigned char>();
}

long vOLESTREAM::ReadSLong()
{
    return Fetch<long>();
}

short vOLESTREAM::ReadSWord()
{
    return Fetch<short>();
}

signed char vOLESTREAM::ReadSByte()
{
    return Fetch<signed char>();
}

vOBJECT* vOLESTREAM::ReadPointer()
{
    return Fetch<vOBJECT*>();
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

unsigned short vOLESTREAM::WriteULong(unsigned long value)
{
    return static_cast<unsigned short>(Put(&value, sizeof value));
}

unsigned short vOLESTREAM::WriteUWord(unsigned short value)
{
    return static_cast<unsigned short>(Put(&value, sizeof value));
}

unsigned short vOLESTREAM::WriteUByte(unsigned char value)
{
    return static_cast<unsigned short>(Put(&value, sizeof value));
}

unsigned short vOLESTREAM::WriteSLong(long value)
{
    return static_cast<unsigned short>(Put(&value, sizeof value));
}

unsigned short vOLESTREAM::WriteSWord(short value)
{
    return static_cast<unsigned short>(Put(&value, sizeof value));
}

unsigned short vOLESTREAM::WriteSByte(signed char value)
{
    return static_cast<unsigned short>(Put(&value, sizeof value));
}

unsigned short vOLESTREAM::WritePointer(const vOBJECT* object)
{
    return static_cast<unsigned short>(Put(&object, sizeof object));
}

unsigned long vOLESTREAM::WriteByteString(const unsigned char* text)
{
    return text ? Put(text, std::strlen(reinterpret_cast<const char*>(text))) : 0;
}

unsigned long vOLESTREAM::WriteBlock(const unsigned char* data, unsigned long count)
{
    return data && count ? Put(data, count) : 0;
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
