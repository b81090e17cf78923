#include "base/rect.h"

#include "graphics/device.h"
#include "streams/stream.h"

vRECT::vRECT(const vPOINT& topLeft, const vPOINT& bottomRight)
    : topLeft(topLeft), bottomRight(bottomRight)
{
}

vRECT::vRECT(const vINT& left, const vINT& top, const vINT& right, const vINT& bottom)
    : topLeft(left, top), bottomRight(right, bottom)
{
}

// Right and bottom are the last pixels inside here, unlike in capture.
vRECT::vRECT(const vPOINT& origin, const vINT& width, const vINT& height)
    : topLeft(origin), bottomRight(origin.x + width - 1, origin.y + height - 1)
{
}

vRECT::vRECT() = default;

vINT vRECT::Left() const
{
    return topLeft.x;
}

void vRECT::Left(vINT left)
{
    topLeft.x = left;
}

vINT vRECT::Top() const
{
    return topLeft.y;
}

void vRECT::Top(vINT top)
{
    topLeft.y = top;
}

vINT vRECT::Right() const
{
    return bottomRight.x;
}

void vRECT::Right(vINT right)
{
    bottomRight.x = right;
}

vINT vRECT::Bottom() const
{
    return bottomRight.y;
}

void vRECT::Bottom(vINT bottom)
{
    bottomRight.y = bottom;
}

vPOINT vRECT::TopLeft() const
{
    return topLeft;
}

void vRECT::TopLeft(vPOINT corner)
{
    topLeft = corner;
}

vPOINT vRECT::TopRight() const
{
    return vPOINT(Right(), Top());
}

void vRECT::TopRight(vPOINT corner)
{
    Right(corner.x);
    Top(corner.y);
}

vPOINT vRECT::BottomLeft() const
{
    return vPOINT(Left(), Bottom());
}

void vRECT::BottomLeft(vPOINT corner)
{
    Left(corner.x);
    Bottom(corner.y);
}

vPOINT vRECT::BottomRight() const
{
    return bottomRight;
}

void vRECT::BottomRight(vPOINT corner)
{
    bottomRight = corner;
}

vINT vRECT::Width() const
{
    return Right() - Left();
}

vINT vRECT::Height() const
{
    return Bottom() - Top();
}

int vRECT::operator==(const vRECT& other) const
{
    return topLeft == other.topLeft && bottomRight == other.bottomRight;
}

int vRECT::operator!=(const vRECT& other) const
{
    return topLeft != other.topLeft || bottomRight != other.bottomRight;
}

// Each step sees the result of the one before, so the upper limit wins.
void vRECT::capture(vPOINT& point) const
{
    if (!(point.x > Left()))
        point.x = Left();
    if (!(point.x < Right() - 1))
        point.x = Right() - 1;
    if (!(point.y > Top()))
        point.y = Top();
    if (!(point.y < Bottom() - 1))
        point.y = Bottom() - 1;
}

vRECT vRECT::operator+(const vPOINT& offset) const
{
    return vRECT(topLeft + offset, bottomRight + offset);
}

int vRECT::operator^(const vPOINT& point) const
{
    return point.x >= Left() && point.x < Right() && point.y >= Top() && point.y < Bottom();
}

vRECT vRECT::Expand(vINT dx, vINT dy)
{
    topLeft = topLeft - vPOINT(dx, dy);
    bottomRight = bottomRight + vPOINT(dx, dy);
    return *this;
}

void vRECT::Draw(vDEVICE& device) const
{
    device.DrawRect(*this);
}

// Left, top, right, bottom: the two corners in field order.
vSTREAM& vRECT::operator>>(vSTREAM& stream) const
{
    topLeft >> stream;
    return bottomRight >> stream;
}

vSTREAM& vRECT::operator<<(vSTREAM& stream)
{
    topLeft << stream;
    return bottomRight << stream;
}
