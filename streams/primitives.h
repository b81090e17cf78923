#pragma once

#include <cstring>

#include "streams/stream.h"

// The fixed-width primitives of a concrete stream, made once from its two
// byte movers, so that every stream lays out a value the same way and
// differs only in where the bytes go.
//
// Stream derives from vSTREAMPRIMITIVES<Stream> and supplies, as members
// this template may reach:
//   unsigned long Put(const void* bytes, unsigned long width)
//     moves the bytes onto the stream and answers how many went;
//   int Get(void* bytes, unsigned long width)
//     fills the bytes from the stream and answers non-zero only when all
//     of them came; how far a short read moves and what status it leaves
//     are the stream's own.
// A stream that hands its reads to another may also supply
//   vSTREAM* Delegate() const
// to name it: each read is then that stream's same read.
//
// It adds no virtual operation of its own, so a concrete stream's table is
// the one that vSTREAM sets out, in the same order.
//
// Each concrete stream's primitives are compiled once, in the library, in
// the source of its byte movers, and every caller uses those: there the
// movers inline and each width's copy becomes a single move, where a copy
// made in a caller would call them with a width they cannot see.
template <class Stream>
class vSTREAMPRIMITIVES : public vSTREAM {
public:
    // Each answers 0 when the stream cannot give the whole value.
    unsigned long ReadULong() override;
    unsigned short ReadUWord() override;
    unsigned char ReadUByte() override;
    // The signed reads pass on the bits of the unsigned ones through the
    // table, so that a derived stream which reads the unsigned values its
    // own way, swapping bytes say, reads the signed ones the same way.
    long ReadSLong() override;
    short ReadSWord() override;
    signed char ReadSByte() override;
    vOBJECT* ReadPointer() override;

    // The bytes of the value as memory holds it, least significant first.
    unsigned short WriteULong(unsigned long value) override;
    unsigned short WriteUWord(unsigned short value) override;
    unsigned short WriteUByte(unsigned char value) override;
    unsigned short WriteSLong(long value) override;
    unsigned short WriteSWord(short value) override;
    unsigned short WriteSByte(signed char value) override;
    unsigned short WritePointer(const vOBJECT* object) override;
    unsigned long WriteByteString(const unsigned char* text) override;
    // An empty block touches no medium: it neither fills the gap after a
    // move past the end nor fails on a stream that cannot grow.
    unsigned long WriteBlock(const unsigned char* data, unsigned long count) override;

protected:
    vSTREAMPRIMITIVES() = default;
    vSTREAMPRIMITIVES(const vSTRING& name, unsigned long mode) : vSTREAM(name, mode) {}
    vSTREAMPRIMITIVES(const vSTREAMPRIMITIVES& other) = default;

    // No stream to hand reads to, unless Stream names one.
    vSTREAM* Delegate() const { return nullptr; }

private:
    Stream& Concrete() { return static_cast<Stream&>(*this); }

    template <class T>
    T Fetch(T (vSTREAM::*same)());
    template <class T>
    unsigned short Send(T value);
};

template <class Stream>
template <class T>
T vSTREAMPRIMITIVES<Stream>::Fetch(T (vSTREAM::*same)())
{
    if (vSTREAM* other = Concrete().Delegate())
        return (other->*same)();
    T value = 0;
    return Concrete().Get(&value, sizeof value) ? value : 0;
}

template <class Stream>
template <class T>
unsigned short vSTREAMPRIMITIVES<Stream>::Send(T value)
{
    return static_cast<unsigned short>(Concrete().Put(&value, sizeof value));
}

template <class Stream>
unsigned long vSTREAMPRIMITIVES<Stream>::ReadULong()
{
    return Fetch(&vSTREAM::ReadULong);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::ReadUWord()
{
    return Fetch(&vSTREAM::ReadUWord);
}

template <class Stream>
unsigned char vSTREAMPRIMITIVES<Stream>::ReadUByte()
{
    return Fetch(&vSTREAM::ReadUByte);
}

template <class Stream>
long vSTREAMPRIMITIVES<Stream>::ReadSLong()
{
    return static_cast<long>(ReadULong());
}

template <class Stream>
short vSTREAMPRIMITIVES<Stream>::ReadSWord()
{
    return static_cast<short>(ReadUWord());
}

template <class Stream>
signed char vSTREAMPRIMITIVES<Stream>::ReadSByte()
{
    return static_cast<signed char>(ReadUByte());
}

template <class Stream>
vOBJECT* vSTREAMPRIMITIVES<Stream>::ReadPointer()
{
    return Fetch(&vSTREAM::ReadPointer);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WriteULong(unsigned long value)
{
    return Send(value);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WriteUWord(unsigned short value)
{
    return Send(value);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WriteUByte(unsigned char value)
{
    return Send(value);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WriteSLong(long value)
{
    return Send(value);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WriteSWord(short value)
{
    return Send(value);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WriteSByte(signed char value)
{
    return Send(value);
}

template <class Stream>
unsigned short vSTREAMPRIMITIVES<Stream>::WritePointer(const vOBJECT* object)
{
    return Send(object);
}

template <class Stream>
unsigned long vSTREAMPRIMITIVES<Stream>::WriteByteString(const unsigned char* text)
{
    return text ? Concrete().Put(text, std::strlen(reinterpret_cast<const char*>(text))) : 0;
}

template <class Stream>
unsigned long vSTREAMPRIMITIVES<Stream>::WriteBlock(const unsigned char* data, unsigned long count)
{
    return data && count ? Concrete().Put(data, count) : 0;
}

// The library's own streams, whose primitives it compiles.
class vFILE;
class vMEMSTREAM;
class vOLESTREAM;
extern template class ZKCORE_API vSTREAMPRIMITIVES<vFILE>;
extern template class ZKCORE_API vSTREAMPRIMITIVES<vMEMSTREAM>;
extern template class ZKCORE_API vSTREAMPRIMITIVES<vOLESTREAM>;
