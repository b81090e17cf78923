#pragma once

#include <windows.h>
#include <objidl.h>

#include "streams/stream.h"

// A stream on the platform's structured-storage IStream. It keeps its own
// position and size so that asking for them costs no call. It takes no
// reference on the IStream and gives none back: the caller's reference keeps
// it alive for as long as the stream is used.
class ZKCORE_API vOLESTREAM : public vSTREAMPRIMITIVES<vOLESTREAM> {
public:
    vOLESTREAM(IStream* const* stream, const vSTRING& name, unsigned long mode);
    vOLESTREAM(const vOLESTREAM& other);
    ~vOLESTREAM() override;

    // A primitive read that the platform refuses or cannot fill answers 0
    // and changes nothing; a byte string keeps what came. Neither touches
    // the status.
    long ReadByteString(unsigned char* buffer, unsigned long count) override;

    unsigned long MoveFromCur(long distance) override;
    unsigned long MoveFromStart(unsigned long position) override;
    unsigned long MoveFromEnd(long distance) override;
    unsigned long CurrentPos() const override;
    unsigned long Size() const override;
    int AtEnd() const override;

private:
    friend class vSTREAMPRIMITIVES<vOLESTREAM>;

    vOLESTREAM& operator=(const vOLESTREAM&) = delete;

    // The byte movers of the primitives.
    int Get(void* out, unsigned long width);
    unsigned long Put(const void* in, unsigned long width);
    unsigned long Seek(long long distance, DWORD origin);

    IStream* stream;
    unsigned long position;
    unsigned long size;
    unsigned long limit;
};
