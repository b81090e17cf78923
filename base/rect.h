#pragma once

#include "base/point.h"

class vDEVICE;

// A rectangle by its four edges, never normalised: an inverted rectangle keeps
// its edges and measures negative. Two conventions meet here on purpose: the
// origin-and-size constructor takes right and bottom as the last pixel inside,
// while capture and the hit test take them as the first pixel outside.
class ZKCORE_API vRECT : public vOBJECT {
public:
    vRECT(const vPOINT& topLeft, const vPOINT& bottomRight);
    vRECT(const vINT& left, const vINT& top, const vINT& right, const vINT& bottom);
    // Right is x + width - 1 and bottom y + height - 1.
    vRECT(const vPOINT& origin, const vINT& width, const vINT& height);
    vRECT();

    vINT Left() const;
    void Left(vINT left);
    vINT Top() const;
    void Top(vINT top);
    vINT Right() const;
    void Right(vINT right);
    vINT Bottom() const;
    void Bottom(vINT bottom);

    // Each corner setter moves only the two edges it names.
    vPOINT TopLeft() const;
    void TopLeft(vPOINT corner);
    vPOINT TopRight() const;
    void TopRight(vPOINT corner);
    vPOINT BottomLeft() const;
    void BottomLeft(vPOINT corner);
    vPOINT BottomRight() const;
    void BottomRight(vPOINT corner);

    // Right - left and bottom - top, with no 1 added back.
    vINT Width() const;
    vINT Height() const;

    int operator==(const vRECT& other) const;
    int operator!=(const vRECT& other) const;

    // Moves the point inside, right and bottom excluded. When the rectangle is
    // too small the upper limit wins, so the point may end outside on the left.
    void capture(vPOINT& point) const;

    vRECT operator+(const vPOINT& offset) const;
    // Non-zero when left <= x < right and top <= y < bottom.
    int operator^(const vPOINT& point) const;

    // Moves each vertical edge out by dx and each horizontal edge by dy; a
    // negative amount shrinks. Changes this rectangle and answers a copy.
    vRECT Expand(vINT dx, vINT dy);

    // Draws the rectangle with the device's current line and fill.
    void Draw(vDEVICE& device) const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    vPOINT topLeft;
    vPOINT bottomRight;
};
