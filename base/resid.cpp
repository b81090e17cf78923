#include "base/resid.h"

#include "base/system.h"

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
