#pragma once

#include <windows.h>

#include "streams/stream.h"

// A stream on a platform file. Small writes gather in a buffer in front of
// the file and reach it in one call when the buffer fills, the stream moves
// or reads, or the file closes. Small reads are served from the same buffer,
// filled a block at a time; a write or a move gives the unread rest back.
class ZKCORE_API vFILE : public vSTREAMPRIMITIVES<vFILE> {
public:
    vFILE();
    // Opens the named file as the mode asks. A file that cannot be opened
    // leaves the stream closed with a failure status: vSTREAM_WRITEFAIL when
    // the mode wanted to write, vSTREAM_READFAIL otherwise.
    vFILE(const vSTRING& name, unsigned long mode);
    // Writes to the same file through a buffer of its own, made on its first
    // write; the status starts afresh. The two share the platform's position,
    // so the copy starts where the platform stands: past what the source has
    // read ahead, and before what the source has yet to flush.
    vFILE(const vFILE& other);
    ~vFILE() override;

    // Flushes and closes the file; 0 if it was not open.
    int Close() override;
    // Opens the named file again, never creating it, positioned at its start;
    // 0 if that fails.
    int ReOpen() override;

    long ReadByteString(unsigned char* buffer, unsigned long count) override;

    unsigned long MoveFromCur(long distance) override;
    unsigned long MoveFromStart(unsigned long position) override;
    unsigned long MoveFromEnd(long distance) override;
    // The position and size count the bytes still waiting in the buffer.
    unsigned long CurrentPos() const override;
    unsigned long Size() const override;
    int AtEnd() const override;

private:
    friend class vSTREAMPRIMITIVES<vFILE>;

    vFILE& operator=(const vFILE&) = delete;

    void Constructor();
    void Open(DWORD disposition);
    // The byte movers of the primitives. A short read still takes what
    // came, and ends the stream.
    unsigned long Put(const void* data, unsigned long size);
    int Get(void* data, unsigned long size);
    void Flush();
    void SetReadStatus(long wanted, long got);
    // The number of bytes that came, or -1 when the platform refused.
    long Read(void* data, unsigned long size);
    int HasBuffer();
    int ReadAhead();
    unsigned long TakeReadAhead(unsigned char* data, unsigned long size);
    void DropReadAhead();
    unsigned long Seek(long long distance, DWORD method);
    unsigned long PastEndTold(unsigned long reached);

    HANDLE handle;
    int dirty;
    unsigned short count;
    long written;
    unsigned char* buffer;
    // How many bytes read ahead are still unread; the constructor clears it.
    unsigned long ahead;
};
