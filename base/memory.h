#pragma once

#include "base/export.h"

// The allocator behind every new and delete of both libraries, so that an
// object made on one side of the DLL boundary can be freed on the other.
// It counts the blocks and bytes that are alive, for leak checks.

// Returns a block of at least size bytes, or null.
ZKCORE_API void* vMemAlloc(unsigned long size);
// Frees a block from vMemAlloc; null and anything not from vMemAlloc are ignored.
ZKCORE_API void vMemFree(void* block);
// Resizes a block, possibly moving it; null on failure, with the old block kept.
ZKCORE_API void* vMemRealloc(void* block, unsigned long size);

ZKCORE_API unsigned long vMemLiveBlocks();
ZKCORE_API unsigned long vMemLiveBytes();

// What a failed allocation through new calls before giving up: a non-zero
// return asks for one more try.
typedef int (*vNEWHANDLER)(unsigned int size);
ZKCORE_API vNEWHANDLER vMemSetNewHandler(vNEWHANDLER handler);
// vMemAlloc with the failure handler in between: the body of operator new.
ZKCORE_API void* vMemNew(unsigned long size);
