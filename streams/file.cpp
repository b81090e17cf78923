#include "streams/file.h"

#include <cstring>

#include "base/memory.h"

// The one copy of the primitives that every caller uses.
template class vSTREAMPRIMITIVES<vFILE>;

namespace {

// The buffer: large enough that a run of primitives reaches the file in few
// calls, and within the reach of the 16-bit count.
const unsigned short BufferSize = 16384;

}  // namespace

vFILE::vFILE()
{
    Constructor();
}

vFILE::vFILE(const vSTRING& name, unsigned long mode) : vSTREAMPRIMITIVES(name, mode)
{
    Constructor();
    Open(mode & vSTREAM_CREATE ? CREATE_ALWAYS : OPEN_EXISTING);
}

// The duplicate shares the platform's file object, and with it the file
// position, but each stream closes its own handle.
vFILE::vFILE(const vFILE& other) : vSTREAMPRIMITIVES(other)
{
    Constructor();
    status = vSTREAM_GOOD;
    if (other.handle != INVALID_HANDLE_VALUE &&
        !DuplicateHandle(GetCurrentProcess(), other.handle, GetCurrentProcess(), &handle, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        handle = INVALID_HANDLE_VALUE;
}

vFILE::~vFILE()
{
    Close();
    vMemFree(buffer);
}

void vFILE::Constructor()
{
    handle = INVALID_HANDLE_VALUE;
    dirty = 0;
    count = 0;
    written = 0;
    buffer = nullptr;
    ahead = 0;
}

// A file is always opened for reading too, so that what was written can be
// read back after a move.
void vFILE::Open(DWORD disposition)
{
    int writes = (Mode() & (vSTREAM_WRITE | vSTREAM_CREATE)) != 0;
    DWORD access = GENERIC_READ | (writes ? GENERIC_WRITE : 0);
    handle = CreateFileA(Name()(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        status = writes ? vSTREAM_WRITEFAIL : vSTREAM_READFAIL;
}

int vFILE::Close()
{
    if (handle == INVALID_HANDLE_VALUE)
        return 0;
    Flush();
    CloseHandle(handle);
    handle = INVALID_HANDLE_VALUE;
    ahead = 0;
    return 1;
}

int vFILE::HasBuffer()
{
    if (!buffer)
        buffer = static_cast<unsigned char*>(vMemAlloc(BufferSize));
    return buffer != nullptr;
}

// The platform's position goes back to where the reader stands.
void vFILE::DropReadAhead()
{
    if (!ahead)
        return;
    LARGE_INTEGER back;
    back.QuadPart = -static_cast<long long>(ahead);
    SetFilePointerEx(handle, back, nullptr, FILE_CURRENT);
    ahead = 0;
}

int vFILE::ReOpen()
{
    Close();
    Open(OPEN_EXISTING);
    return handle != INVALID_HANDLE_VALUE;
}

// The bytes of a flush that fails, or that the platform takes only in part,
// are gone; the status says so.
void vFILE::Flush()
{
    if (!dirty)
        return;
    DWORD put = 0;
    long done = WriteFile(handle, buffer, count, &put, nullptr) ? static_cast<long>(put) : -1;
    written += done;
    if (done != count)
        status = vSTREAM_WRITEFAIL;
    count = 0;
    dirty = 0;
}

// A block as large as the buffer goes to the file at once, after what
// waits in front of it; a buffer that cannot be had does the same.
unsigned long vFILE::Put(const void* data, unsigned long size)
{
    if (handle == INVALID_HANDLE_VALUE) {
        status = vSTREAM_WRITEFAIL;
        return 0;
    }
    DropReadAhead();
    if (!HasBuffer() || size >= BufferSize) {
        Flush();
        DWORD put = 0;
        if (!WriteFile(handle, data, size, &put, nullptr) || put != size)
            status = vSTREAM_WRITEFAIL;
        written += static_cast<long>(put);
        return put;
    }
    if (count + size > BufferSize)
        Flush();
    std::memcpy(buffer + count, data, size);
    count = static_cast<unsigned short>(count + size);
    dirty = 1;
    return size;
}

// A read that fails is also short of what was wanted, so it ends as
// vSTREAM_END: callers look for that alone, and the order is kept on purpose.
void vFILE::SetReadStatus(long wanted, long got)
{
    if (got == -1)
        status = vSTREAM_READFAIL;
    if (wanted != got)
        status = vSTREAM_END;
}

// The bytes read ahead wait at the tail of the buffer, so that their count
// alone says where the next one is.
unsigned long vFILE::TakeReadAhead(unsigned char* data, unsigned long size)
{
    unsigned long taken = size < ahead ? size : ahead;
    if (!taken)
        return 0;
    std::memcpy(data, buffer + BufferSize - ahead, taken);
    ahead -= taken;
    return taken;
}

int vFILE::ReadAhead()
{
    DWORD got = 0;
    int done = ReadFile(handle, buffer, BufferSize, &got, nullptr);
    if (got < BufferSize)
        std::memmove(buffer + BufferSize - got, buffer, got);
    ahead = got;
    return done;
}

// Small reads come out of a buffer filled a block at a time; a large one
// goes straight to the platform after what was read ahead.
long vFILE::Read(void* data, unsigned long size)
{
    Flush();
    unsigned char* into = static_cast<unsigned char*>(data);
    unsigned long got = 0;
    int refused = handle == INVALID_HANDLE_VALUE;
    if (!refused) {
        got = TakeReadAhead(into, size);
        unsigned long rest = size - got;
        if (rest && (rest >= BufferSize / 2 || !HasBuffer())) {
            DWORD direct = 0;
            refused = !ReadFile(handle, into + got, rest, &direct, nullptr);
            got += direct;
        } else if (rest) {
            refused = !ReadAhead();
            got += TakeReadAhead(into + got, rest);
        }
    }
    long done = refused && got == 0 ? -1 : static_cast<long>(got);
    SetReadStatus(static_cast<long>(size), done);
    return done;
}

int vFILE::Get(void* data, unsigned long size)
{
    return Read(data, size) == static_cast<long>(size);
}

long vFILE::ReadByteString(unsigned char* data, unsigned long size)
{
    if (!data)
        return 0;
    long got = Read(data, size);
    return got < 0 ? 0 : got;
}

// Waiting bytes go first and bytes read ahead are given back, so that the
// move counts from where the stream stands.
unsigned long vFILE::Seek(long long distance, DWORD method)
{
    Flush();
    DropReadAhead();
    LARGE_INTEGER move;
    move.QuadPart = distance;
    LARGE_INTEGER reached;
    if (handle != INVALID_HANDLE_VALUE && SetFilePointerEx(handle, move, &reached, method))
        return reached.LowPart;
    return CurrentPos();
}

unsigned long vFILE::MoveFromCur(long distance)
{
    return PastEndTold(Seek(distance, FILE_CURRENT));
}

unsigned long vFILE::MoveFromStart(unsigned long position)
{
    return PastEndTold(Seek(position, FILE_BEGIN));
}

// A move past the end is told by the status, as on every stream; the file
// itself still lets a later write extend it to there.
unsigned long vFILE::PastEndTold(unsigned long reached)
{
    if (handle != INVALID_HANDLE_VALUE && reached > GetFileSize(handle, nullptr))
        status = vSTREAM_END;
    return reached;
}

// As on the other streams, a positive distance moves back from the end.
unsigned long vFILE::MoveFromEnd(long distance)
{
    return Seek(-static_cast<long long>(distance), FILE_END);
}

unsigned long vFILE::CurrentPos() const
{
    if (handle == INVALID_HANDLE_VALUE)
        return 0;
    return SetFilePointer(handle, 0, nullptr, FILE_CURRENT) + count - ahead;
}

unsigned long vFILE::Size() const
{
    if (handle == INVALID_HANDLE_VALUE)
        return 0;
    unsigned long onDisk = GetFileSize(handle, nullptr);
    unsigned long reached = CurrentPos();
    return reached > onDisk ? reached : onDisk;
}

int vFILE::AtEnd() const
{
    return CurrentPos() >= Size();
}
