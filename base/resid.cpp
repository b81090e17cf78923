#include "base/resid.h"

#include <cstdint>

#include "base/system.h"
#include "streams/stream.h"

namespace {

// A module handle in a stream form: how many 32-bit words it takes.
constexpr int handleWords = sizeof(HINSTANCE) / sizeof(unsigned long);
constexpr int wordBits = 32;

HINSTANCE InstanceOf(const vMODULE* module)
{
    return module ? module->GetInstance() : nullptr;
}

}  // namespace

vRESID::vRESID(unsigned short id, const vMODULE* module) : vRESID(id, InstanceOf(module)) {}

// The process-wide system carries the base library's handle, so a number with
// no stated module resolves in the library's own resources.
vRESID::vRESID() : vRESID(0, vSYSTEM::Pointer()) {}

vRESID::vRESID(unsigned short id, HINSTANCE instance) : instance(instance), id(id) {}

int vRESID::operator()() const
{
    return id;
}

int vRESID::operator==(const vRESID& other) const
{
    return id == other.id;
}

HINSTANCE vRESID::Instance() const
{
    return instance;
}

// The module handle goes as it stands, like a pointer: a token that only the
// writing process can use. It takes the platform's pointer width, as 32-bit
// words low first (one on the 32-bit build, two on the 64-bit), and the
// number follows it.
vSTREAM& vRESID::operator>>(vSTREAM& stream) const
{
    uintptr_t handle = reinterpret_cast<uintptr_t>(instance);
    for (int word = 0; word < handleWords; ++word)
        stream.WriteULong(static_cast<unsigned long>(handle >> (word * wordBits)));
    stream.WriteUWord(id);
    return stream;
}

vSTREAM& vRESID::operator<<(vSTREAM& stream)
{
    uintptr_t handle = 0;
    for (int word = 0; word < handleWords; ++word)
        handle |= static_cast<uintptr_t>(stream.ReadULong()) << (word * wordBits);
    instance = reinterpret_cast<HINSTANCE>(handle);
    id = stream.ReadUWord();
    return stream;
}
