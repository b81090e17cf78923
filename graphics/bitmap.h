#pragma once

#include <windows.h>

#include "base/resid.h"
#include "graphics/picture.h"

// A platform bitmap, loaded from a module's resources or handed in, owned by
// the object and deleted with it. It neither turns nor mirrors.
class ZKCORE_API vBITMAP : public vPICTURE {
public:
    explicit vBITMAP(const vRESID& resource);
    // The cell of the resource's bitmap that the rectangle cuts out; right
    // and bottom lie outside the cell.
    vBITMAP(const vRESID& resource, const vRECT& cell);
    // The cell of another bitmap, as the resource form cuts it.
    vBITMAP(const vBITMAP& sheet, const vRECT& cell);
    // Takes over a bitmap that the caller made.
    explicit vBITMAP(HBITMAP bitmap);
    vBITMAP(const vBITMAP&) = delete;
    vBITMAP& operator=(const vBITMAP&) = delete;
    ~vBITMAP() override;

    // From (0, 0) to the width and height.
    vRECT Size() const override;
    // Non-zero when there is a bitmap to draw.
    int Valid() const override;
    void Angle(const vANGLE& angle) override;
    vANGLE Angle() const override;
    void Rotate(const vROTATEANGLE& turn) override;
    vROTATEANGLE Rotate() const override;
    void Mirror(int on) override;
    int IsMirrored() const override;
    int Draw(vDEVICE& device, const vPOINT& at) const override;
    int DrawTransparent(vDEVICE& device, const vPOINT& at, const vCOLOUR& key) const override;

    // What to add to a bitmap resource's number for the language's version.
    static unsigned short LanguageOffset(unsigned short language);

private:
    friend class vDEVICE;

    // The top left corner that puts the picture's middle on the point.
    vPOINT CornerFor(vDEVICE& device, const vPOINT& centre) const;

    void Adopt(HBITMAP bitmap);
    static HBITMAP Load(const vRESID& resource);
    static HBITMAP Cut(HBITMAP sheet, const vRECT& cell);

    vRECT size;
    HBITMAP handle;
};
