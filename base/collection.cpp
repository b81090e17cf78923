#include "base/collection.h"

#include "base/point.h"

namespace {

unsigned long SizeOf(vARRAYTYPE type)
{
    static const unsigned long sizes[] = {sizeof(char), sizeof(vINT), sizeof(vREAL), sizeof(vPOINT)};
    return type >= ARRAY_CHAR && type <= ARRAY_POINT ? sizes[type] : 0;
}

}  // namespace

vCOLLECTION::vCOLLECTION(vARRAYTYPE type)
    : items(nullptr), count(0), elementSize(SizeOf(type)), type(type), reserved{0, 0}
{
}

// Nothing to free: the elements are the caller's.
vCOLLECTION::~vCOLLECTION() = default;

vARRAYTYPE vCOLLECTION::Type() const
{
    return type;
}

vCOLLECTION::vCOLLECTION() : vCOLLECTION(ARRAY_POINT) {}

vCOLLECTION::vCOLLECTION(const vPOINT* points, unsigned long count)
    : items(points), count(count), elementSize(sizeof(vPOINT)), type(ARRAY_POINT), reserved{0, 0}
{
}

const vPOINT* vCOLLECTION::Points() const
{
    return type == ARRAY_POINT ? static_cast<const vPOINT*>(items) : nullptr;
}

unsigned long vCOLLECTION::Count() const
{
    return static_cast<unsigned long>(count);
}
