// The global allocation operators of each library: everything goes to the
// shared allocator, so an object may be made in one library and freed in the
// other. A failed new answers null after the failure handler has had its say;
// the libraries are built to test for that rather than to catch an exception.
#include <cstddef>
#include <new>

#include "base/memory.h"

void* operator new(std::size_t size)
{
    return vMemNew(size);
}

void* operator new[](std::size_t size)
{
    return vMemNew(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return vMemNew(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return vMemNew(size);
}

void operator delete(void* block) noexcept
{
    vMemFree(block);
}

void operator delete[](void* block) noexcept
{
    vMemFree(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    vMemFree(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    vMemFree(block);
}
