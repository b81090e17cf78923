#include "streams/archive.h"

vARCHIVE::~vARCHIVE() = default;

int vARCHIVE::IsStream() const
{
    return 0;
}
