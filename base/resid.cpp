#include "base/resid.h"

#include "base/system.h"
#include "streams/stream.h"

namespace {

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
// writing process can use. The number follows it.
vSTREAM& vRESID::operator>>(vSTREAM& stream) const
{
    stream.WriteULong(reinterpret_cast<unsigned long>(instance));
    stream.WriteUWord(id);
    return stream;
}

vSTREAM& vRESID::operator<<(vSTREAM& stream)
{
    instance = reinterpret_cast<HINSTANCE>(stream.ReadULong());
    id = stream.ReadUWord();
    return stream;
}
