#pragma once

// Serial data: the one table of operations through which files, memory
// blocks and platform streams are read and written.
//
// The stream classes are the base library's: their bodies are compiled into
// zkcore, so that the value types, the drawing specifications and the images
// there can write and read themselves without reaching up into zkshell. What
// this header holds inline (status, name, the flags, the count and the
// arrows) is the half that every caller compiles for itself.
//
// Every primitive has a fixed width and goes least significant byte first,
// with no tags, lengths or padding between values.

#include "base/string.h"
#include "streams/archive.h"

// How the last operation that failed went. A stream keeps the last failure
// until a move to a position from the start clears an end on a memory stream.
enum vSTREAMSTATUS {
    vSTREAM_GOOD = 0,
    vSTREAM_END = 2,
    vSTREAM_READFAIL = 3,
    vSTREAM_WRITEFAIL = 4
};

// The bits of the mode a stream is made with. A file opens an existing file
// unless vSTREAM_CREATE asks for a new one, which also makes it writable.
enum vSTREAMMODE {
    vSTREAM_READ = 0x1,
    vSTREAM_WRITE = 0x2,
    vSTREAM_CREATE = 0x4
};

// A run of bytes read and written by fixed-width primitives. Abstract: the
// concrete streams supply every transfer and move.
class ZKCORE_API vSTREAM : public vARCHIVE {
public:
    vSTREAM();
    vSTREAM(const vSTRING& name, unsigned long mode);
    // Shares the name object with the source: both streams answer Name with it.
    vSTREAM(const vSTREAM& other);
    ~vSTREAM() override;

    int IsStream() const override;
    virtual int Close();
    virtual int ReOpen();

    virtual unsigned long ReadULong() = 0;
    virtual unsigned short ReadUWord() = 0;
    virtual unsigned char ReadUByte() = 0;
    virtual long ReadSLong() = 0;
    virtual short ReadSWord() = 0;
    virtual signed char ReadSByte() = 0;
    virtual vOBJECT* ReadPointer() = 0;
    // Reads exactly count bytes if the stream has them; answers how many came.
    virtual long ReadByteString(unsigned char* buffer, unsigned long count) = 0;

    // Each answers the number of bytes written: the width, or 0 on failure.
    virtual unsigned short WriteULong(unsigned long value) = 0;
    virtual unsigned short WriteUWord(unsigned short value) = 0;
    virtual unsigned short WriteUByte(unsigned char value) = 0;
    virtual unsigned short WriteSLong(long value) = 0;
    virtual unsigned short WriteSWord(short value) = 0;
    virtual unsigned short WriteSByte(signed char value) = 0;
    // The address as it stands: a token only the writing process can use.
    virtual unsigned short WritePointer(const vOBJECT* object) = 0;
    // The text's bytes without their terminator; the reader must know the count.
    virtual unsigned long WriteByteString(const unsigned char* text) = 0;
    virtual unsigned long WriteBlock(const unsigned char* data, unsigned long count) = 0;

    // Each answers the new position.
    virtual unsigned long MoveFromCur(long distance) = 0;
    virtual unsigned long MoveFromStart(unsigned long position) = 0;
    virtual unsigned long MoveFromEnd(long distance) = 0;
    virtual unsigned long CurrentPos() const = 0;
    virtual unsigned long Size() const = 0;
    virtual int AtEnd() const = 0;

    vSTREAMSTATUS Status() const { return status; }
    vSTRING& Name() { return *name; }

    // Recorded for a stream that honours it; the primitives here go in
    // memory order whatever it says.
    void SwapByteOrder(unsigned char on) { swapBytes = on; }
    void Compress(int on) { compressed = on; }
    int Compressed() const { return compressed; }
    int UnCompressed() const { return uncompressed; }

    // For the holders of a shared stream; the stream never deletes itself.
    // Both answer the count before the change.
    unsigned short IncCount() { return refCount++; }
    unsigned short DecCount() { return refCount--; }
    int NoRef() const { return refCount == 0; }

    // A stream on the left reads with >> and writes with <<.
    vSTREAM& operator>>(unsigned long& value) { value = ReadULong(); return *this; }
    vSTREAM& operator>>(unsigned short& value) { value = ReadUWord(); return *this; }
    vSTREAM& operator>>(unsigned char& value) { value = ReadUByte(); return *this; }
    vSTREAM& operator>>(long& value) { value = ReadSLong(); return *this; }
    vSTREAM& operator>>(short& value) { value = ReadSWord(); return *this; }
    vSTREAM& operator>>(signed char& value) { value = ReadSByte(); return *this; }

    vSTREAM& operator<<(unsigned long value) { WriteULong(value); return *this; }
    vSTREAM& operator<<(unsigned short value) { WriteUWord(value); return *this; }
    vSTREAM& operator<<(unsigned char value) { WriteUByte(value); return *this; }
    vSTREAM& operator<<(long value) { WriteSLong(value); return *this; }
    vSTREAM& operator<<(short value) { WriteSWord(value); return *this; }
    vSTREAM& operator<<(signed char value) { WriteSByte(value); return *this; }

protected:
    int SwappedByteOrder() const { return swapBytes; }
    unsigned long Mode() const { return mode; }

    vSTREAMSTATUS status;

private:
    vSTREAM& operator=(const vSTREAM&) = delete;

    // The name object, counted so that the last stream to share it frees it.
    struct SharedName;
    static vSTRING* Share(SharedName* shared);

    vSTRING* name;
    unsigned short refCount;
    unsigned long mode;
    int swapBytes;
    int compressed;
    int uncompressed;
    // Belongs to the stream's writer; nothing here reads it.
    unsigned long writerState;
};

// The concrete streams come with the chief header, each on the primitives
// that it builds from its byte movers.
#include "streams/primitives.h"

#include "streams/file.h"
#include "streams/memstream.h"
#include "streams/olestream.h"
