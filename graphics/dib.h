#pragma once

#include "base/object.h"
#include "graphics/dibheader.h"
#include "graphics/dibpalette.h"

class vSTREAM;

// A picture that belongs to no device: a header in the platform's own form,
// an optional palette, and lines that are reached only through the virtual
// operations, so that a store may keep them in memory or on a stream. Lines
// are numbered from 0 at the bottom of the picture, as the stream form lists
// them, and a band from first to last includes both. A caller may ask for
// lines in another colour model than the header's, and gets them converted
// through the picture's palette (a grey ramp when it has none). A line of
// width pixels always takes the bytes of oDIBHEADER::LineBytes for the model.
class ZKCORE_API oDIB : public vOBJECT {
public:
    // The number is the owner's to keep with the picture; nothing here reads it.
    oDIB(int tag = 0);
    // Shares the palette with the original, as assignment does.
    oDIB(const oDIB& other, int tag);
    oDIB& operator=(const oDIB& other);

    virtual ~oDIB();
    virtual void GetHeader(oDIBHEADER& out) const;
    virtual const oDIBHEADER* GetHeader() const;
    // Keeps the picture's own palette, whatever palette the header names.
    virtual void SetHeader(const oDIBHEADER& newHeader);
    // The number of colours, and the palette through out when that is not null.
    virtual unsigned short GetPalette(oDIBPALETTE** out) const;
    // Swallows a failure to allocate: the picture then has no palette.
    virtual void SetPalette(const oDIBPALETTE& palette);
    // The block operations take a rectangle of the picture: from pixel x of
    // line y, width pixels across and height lines up. The block's lines are
    // packed one after the other, each padded as a line of width pixels is.
    // Both work a line at a time through SetImageLines and GetImageLines,
    // which is all that a store needs to supply.
    virtual int SetImageBlock(unsigned char* data, oCOLOUR_MODEL model, unsigned long x, unsigned long y,
                              unsigned long width, unsigned long height);
    virtual int GetImageBlock(unsigned long x, unsigned long y, unsigned long width, unsigned long height,
                              unsigned char* data, oCOLOUR_MODEL* model) const;
    virtual int SetImageLines(unsigned char* data, oCOLOUR_MODEL model, unsigned long first,
                              unsigned long last) = 0;
    // A null model asks for the header's.
    virtual int GetImageLines(unsigned long first, unsigned long last, unsigned char* data,
                              oCOLOUR_MODEL* model) const = 0;
    // One band at a time may be locked; its lines stay at data until the
    // release, which stores what was changed in them when keep is non-zero.
    virtual int LockImageLines(unsigned long first, unsigned long last, unsigned char** data,
                               oCOLOUR_MODEL model) = 0;
    virtual int ReleaseImageLines(int keep) = 0;
    virtual int IsCompressed();
    // Reads a picture in the stream form. A stream that holds no whole picture
    // leaves this one empty, and the stream at its end with vSTREAM_END.
    virtual const oDIB& operator<<(vSTREAM& stream) = 0;
    // Writes the picture in the stream form: a 14-byte file header, the
    // forty bytes of the header, the colours and the lines from the bottom up.
    virtual const oDIB& operator>>(vSTREAM& stream) const = 0;

    int Tag() const;

protected:
    // Where an archive's lines stand on its stream and in which order.
    struct LAYOUT {
        unsigned long lines;
        int topDown;
    };
    // A locked band, and the copy of it when it is not the store's own bytes.
    struct LOCK {
        int held;
        unsigned long first;
        unsigned long last;
        oCOLOUR_MODEL model;
        unsigned char* copy;
    };

    // The depth of a line that a caller asks for in the model: the header's
    // own when it is the header's model.
    unsigned short DepthFor(oCOLOUR_MODEL model) const;
    oCOLOUR_MODEL ModelAsked(const oCOLOUR_MODEL* model) const;
    // first to last is a band of this picture.
    int IsBand(unsigned long first, unsigned long last) const;
    // Converts count lines of width pixels from one depth to another,
    // through the picture's colours.
    void ConvertLines(const unsigned char* from, unsigned short fromDepth, unsigned char* to,
                      unsigned short toDepth, unsigned long count) const;

    // The bytes of height lines of width pixels at depth bits, without the
    // overflow of 32-bit arithmetic, so that a claim can be checked before
    // anything is allocated for it.
    static unsigned long long ImageBytes(unsigned long width, unsigned long height, unsigned short depth);

    // Reverses the order of count lines in place: a top-down picture on a
    // stream is turned to this class's order as it is read.
    static void TurnOver(unsigned char* data, unsigned long stride, unsigned long count);

    // The file header, the header and the colours. Reading takes them as the
    // picture's and checks that the lines are there; 0 for a stream that does
    // not hold a whole picture.
    int ReadHead(vSTREAM& stream, LAYOUT& layout);
    int WriteHead(vSTREAM& stream) const;
    // Leaves the picture empty, and the stream ended, after bad input.
    void Refuse(vSTREAM& stream);

    // A lock on a copy of the band, made with GetImageLines and given back
    // with SetImageLines.
    int LockCopy(LOCK& lock, unsigned long first, unsigned long last, unsigned char** data,
                 oCOLOUR_MODEL model);
    int ReleaseLock(LOCK& lock, int keep);

    oDIBHEADER header;

private:
    class CONVERTER;

    // A line of the picture in the model, for a block that lies inside the
    // picture; null for one that does not.
    unsigned char* BlockLine(unsigned long x, unsigned long y, unsigned long width, unsigned long height,
                             oCOLOUR_MODEL model) const;
    void DropPalette();
    // The picture's colours as quads, at most 1 << depth of them: its palette's,
    // or the grey ramp of the depth when it has none.
    unsigned short Colours(RGBQUAD* quads, unsigned short depth) const;

    oDIBPALETTE* ownPalette;
    int compressed;
    int tag;
};

// The two stores.
#include "graphics/memdib.h"
#include "graphics/streamdib.h"
