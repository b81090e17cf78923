#pragma once

#include "base/rect.h"
#include "graphics/bezpoint.h"

// A path of points that a device can draw, fill or clip to. The shape owns
// copies of its points and keeps the box that bounds them. It has no base and
// no virtual operations, so that the box stands at the object's own address.
class ZKCORE_API vSHAPE {
public:
    // Copies the count points; the caller's stay its own.
    vSHAPE(unsigned short count, vBEZPOINT** points);
    vSHAPE();
    vSHAPE(const vSHAPE& other);
    ~vSHAPE();

    vSHAPE& operator=(const vSHAPE& other);

    // The smallest rectangle holding every point, each edge on a point; all
    // zero while the shape is empty.
    const vRECT& BoundBox() const;
    unsigned short NoPoint() const;
    // No range test: the index must be below NoPoint().
    const vBEZPOINT& operator[](unsigned short index) const;
    // A shape is always taken as one contour.
    int NoOfContours() const;
    // Non-zero when the last point closes a contour.
    int Closed() const;

    // 0 when memory runs out or the shape holds 65535 points already.
    int AppendPoint(const vBEZPOINT& point);

private:
    void AppendAll(unsigned short count, vBEZPOINT* const* from);
    int Grow();
    void Enclose(const vPOINT& point);
    void Release();

    vRECT boundBox;
    unsigned short capacity;
    unsigned short noPoints;
    vBEZPOINT** points;
    long closed;
};
