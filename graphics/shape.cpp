#include "graphics/shape.h"

#include <algorithm>

namespace {

const unsigned short FirstCapacity = 8;
const unsigned short MostPoints = 65535;

unsigned short LargerCapacity(unsigned short capacity)
{
    if (capacity == 0)
        return FirstCapacity;
    return capacity > MostPoints / 2 ? MostPoints : static_cast<unsigned short>(capacity * 2);
}

}  // namespace

vSHAPE::vSHAPE(unsigned short count, vBEZPOINT** points)
    : capacity(0), noPoints(0), points(nullptr), closed(0)
{
    AppendAll(count, points);
}

vSHAPE::vSHAPE() : vSHAPE(0, nullptr) {}

vSHAPE::vSHAPE(const vSHAPE& other) : vSHAPE(other.noPoints, other.points) {}

vSHAPE::~vSHAPE()
{
    Release();
}

vSHAPE& vSHAPE::operator=(const vSHAPE& other)
{
    if (this != &other) {
        Release();
        AppendAll(other.noPoints, other.points);
    }
    return *this;
}

const vRECT& vSHAPE::BoundBox() const
{
    return boundBox;
}

unsigned short vSHAPE::NoPoint() const
{
    return noPoints;
}

const vBEZPOINT& vSHAPE::operator[](unsigned short index) const
{
    return *points[index];
}

int vSHAPE::NoOfContours() const
{
    return 1;
}

int vSHAPE::Closed() const
{
    return closed != 0;
}

int vSHAPE::AppendPoint(const vBEZPOINT& point)
{
    if (noPoints == capacity && !Grow())
        return 0;
    vBEZPOINT* copy = new vBEZPOINT(point);
    if (!copy)
        return 0;
    points[noPoints++] = copy;
    Enclose(point);
    closed = point.Last() != 0;
    return 1;
}

void vSHAPE::AppendAll(unsigned short count, vBEZPOINT* const* from)
{
    for (unsigned short i = 0; i < count; ++i)
        AppendPoint(*from[i]);
}

int vSHAPE::Grow()
{
    if (capacity == MostPoints)
        return 0;
    unsigned short larger = LargerCapacity(capacity);
    vBEZPOINT** fresh = new vBEZPOINT*[larger];
    if (!fresh)
        return 0;
    std::copy(points, points + noPoints, fresh);
    delete[] points;
    points = fresh;
    capacity = larger;
    return 1;
}

// The first point is the whole box; each later one widens it as needed.
void vSHAPE::Enclose(const vPOINT& point)
{
    if (noPoints == 1) {
        boundBox = vRECT(point, point);
        return;
    }
    boundBox.Left(std::min(boundBox.Left()(), point.x()));
    boundBox.Top(std::min(boundBox.Top()(), point.y()));
    boundBox.Right(std::max(boundBox.Right()(), point.x()));
    boundBox.Bottom(std::max(boundBox.Bottom()(), point.y()));
}

void vSHAPE::Release()
{
    for (unsigned short i = 0; i < noPoints; ++i)
        delete points[i];
    delete[] points;
    boundBox = vRECT();
    capacity = 0;
    noPoints = 0;
    points = nullptr;
    closed = 0;
}
