#pragma once

#include "streams/stream.h"

// A stream on a block of memory, its own or a caller's. A block the stream
// is responsible for grows as writes need; the caller's pointer to it, when
// the stream was given one, follows the block when it moves.
class ZKCORE_API vMEMSTREAM : public vSTREAMPRIMITIVES<vMEMSTREAM> {
public:
    vMEMSTREAM();
    vMEMSTREAM(const vSTRING& name, unsigned long mode);
    // Streams over the caller's block of size bytes. With owner non-zero the
    // stream may grow the block, which must then come from vMemAlloc, and
    // frees it at its end, writing null through block then.
    vMEMSTREAM(unsigned char** block, unsigned long size, const vSTRING& name, int owner,
               unsigned long mode);
    // A second view of the same bytes. It is not responsible for them, so it
    // neither grows nor frees them.
    vMEMSTREAM(const vMEMSTREAM& other);
    ~vMEMSTREAM() override;

    // Reads the source's bytes from their start. The size stays what it was,
    // and the capacity becomes 0 on purpose: the stream may read the block it
    // now shares but must not grow it.
    vMEMSTREAM& operator=(vMEMSTREAM& other);

    long ReadByteString(unsigned char* buffer, unsigned long count) override;

    // A move before the start wraps and lands on the end, with vSTREAM_END.
    unsigned long MoveFromCur(long distance) override;
    // Clears an earlier vSTREAM_END before it moves.
    unsigned long MoveFromStart(unsigned long position) override;
    // Back from the end by distance, with no clamp and no status.
    unsigned long MoveFromEnd(long distance) override;
    unsigned long CurrentPos() const override;
    unsigned long Size() const override;
    int AtEnd() const override;

private:
    friend class vSTREAMPRIMITIVES<vMEMSTREAM>;

    // Takes every read when there is one.
    vSTREAM* Delegate() const { return delegate; }
    // Copies out of the valid bytes only: a read past them copies nothing
    // and ends the stream, for the block beyond them is not the stream's.
    int Get(void* out, unsigned long width);
    unsigned long Put(const void* in, unsigned long width);
    int Reserve(unsigned long needed);
    void Release();
    unsigned long MoveTo(unsigned long target);

    unsigned char* data;
    unsigned long position;
    unsigned long size;
    unsigned long capacity;
    vSTREAM* delegate;
    unsigned char** handle;
    int owner;
};
