#pragma once

#include "base/object.h"

// What kind of thing an archive holds: text, a metafile, a bitmap, or
// several of them at once, as flags in one word.
class ZKSHELL_API vARCHIVECAT : public vOBJECT {
public:
    // No flag set. Copies and assignment are the compiler's.
    vARCHIVECAT();

    // Each sets its flag and leaves the others.
    void Text();
    void Metafile();
    void Bitmap();

    int IsText() const;
    int IsMetafile() const;
    int IsBitmap() const;
    // A metafile or a bitmap.
    int IsPicture() const;

    // Only the three flags count; other bits of the word do not.
    int operator==(const vARCHIVECAT& other) const;

private:
    int Has(unsigned short flag) const;

    unsigned short flags;
};
