#pragma once

#include <cstdint>

#include "base/object.h"

class vPOINT;

// The kinds of element a collection may hold.
enum vARRAYTYPE {
    ARRAY_CHAR = 0,
    ARRAY_INT = 1,
    ARRAY_REAL = 2,
    ARRAY_POINT = 3
};

// A typed array that the drawing side takes for poly-lines. It refers to its
// caller's elements and never owns them: assignment copies the six words as
// they stand, so two collections then share one storage, which rules out
// ownership. The drawing side reads the type from the fourth word.
class ZKCORE_API vCOLLECTION : public vOBJECT {
public:
    vCOLLECTION(vARRAYTYPE type);
    ~vCOLLECTION();
    vARRAYTYPE Type() const;
    vCOLLECTION();

    // Refers to count points that the caller keeps alive while this is used.
    vCOLLECTION(const vPOINT* points, unsigned long count);
    // The points referred to; null unless the collection holds points.
    const vPOINT* Points() const;
    unsigned long Count() const;

private:
    // Each field fills a machine word of its own (the type with padding on
    // the 64-bit build), so the record is six words wide on either build.
    const void* items;
    uintptr_t count;
    uintptr_t elementSize;
    vARRAYTYPE type;
    // Kept clear so that the record has the six words the drawing side expects.
    uintptr_t reserved[2];
};
