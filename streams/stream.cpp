#include "streams/stream.h"

// The name object with the number of streams that hold it: a copy of a
// stream answers Name with the very object of its source.
struct vSTREAM::SharedName : vSTRING {
    SharedName(const vSTRING& text, unsigned long holders) : vSTRING(text), holders(holders) {}

    unsigned long holders;
};

vSTREAM::vSTREAM() : vSTREAM(vSTRING(), 0)
{
}

vSTREAM::vSTREAM(const vSTRING& name, unsigned long mode)
    : status(vSTREAM_GOOD),
      name(Share(new SharedName(name, 0))),
      refCount(0),
      mode(mode),
      swapBytes(0),
      compressed(0),
      uncompressed(0),
      writerState(0)
{
}

vSTREAM::vSTREAM(const vSTREAM& other)
    : vARCHIVE(other),
      status(other.status),
      name(Share(static_cast<SharedName*>(other.name))),
      refCount(other.refCount),
      mode(other.mode),
      swapBytes(other.swapBytes),
      compressed(other.compressed),
      uncompressed(other.uncompressed),
      writerState(other.writerState)
{
}

vSTREAM::~vSTREAM()
{
    SharedName* shared = static_cast<SharedName*>(name);
    if (--shared->holders == 0)
        delete shared;
}

vSTRING* vSTREAM::Share(SharedName* shared)
{
    // Stands in for a name that could not be allocated. Its hold on itself
    // keeps its count from ever reaching 0, so no stream frees it.
    static SharedName nameless(vSTRING(), 1);
    if (!shared)
        shared = &nameless;
    ++shared->holders;
    return shared;
}

int vSTREAM::IsStream() const
{
    return 1;
}

int vSTREAM::Close()
{
    return 0;
}

int vSTREAM::ReOpen()
{
    return 0;
}
