#pragma once

#include <windows.h>
#include <objidl.h>

#include "streams/stream.h"

// A stream on the platform's structured-storage IStream. It keeps its own
// position and size so that asking for them costs no call. It takes no
// reference on the IStream and gives none back: the caller's reference keeps
// it alive for as long as the stream is used.
class ZKCORE_API vOLESTREAM : public vSTREAM {
public:
    vOLESTREAM(IStream* const* stream, const vSTRING& name, unsigned long mode);
    vOLESTREAM(const vOLESTREAM& other);
    ~vOLESTREAM() override;

    // A read that the platform refuses or cannot fill answers 0 and changes
    // nothing; the status is left alone.
    unsigned long ReadULong() override;
    unsigned short ReadUWord() override;
    unsigned char ReadUByte() override;
    long ReadSLong() override;
    short ReadSWord() override;
    signed char ReadSByte() override;
    vOBJECT* ReadPointer() override;
    long ReadByteString(unsigned char* buffer, unsigned long count) override;

    unsigned short WriteULong(unsigned long value) override;
    unsigned short WriteUWord(unsigned short value) override;
    unsigned short WriteUByte(unsigned char value) override;
    unsigned short WriteSLong(long value) override;
    unsigned short WriteSWord(short value) override;
    unsigned short WriteSByte(signed char value) override;
    unsigned short WritePointer(const vOBJECT* object) override;
    unsigned long WriteByteString(const unsigned char* text) override;
    unsigned long WriteBlock(const unsigned char* data, unsigned long count) override;

    unsigned long MoveFromCur(long distance) override;
    unsigned long MoveFromStart(unsigned long position) override;
    unsigned long MoveFromEnd(long distance) override;
    unsigned long CurrentPos() const override;
    unsigned long Size() const override;
    int AtEnd() const override;

private:
    vOLESTREAM& operator=(const vOLESTREAM&) = delete;

    template <class T>
    T Fetch();
    int Get(void* out, unsigned long width);
    unsigned long Put(const void* in, unsigned long width);
    unsigned long Seek(long long distance, DWORD origin);

    IStream* stream;
    unsigned long position;
    unsigned long size;
    unsigned long limit;
};
