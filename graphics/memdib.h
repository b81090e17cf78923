#pragma once

#include "graphics/dib.h"

// A picture whose lines lie in memory, in one block from the bottom line up,
// as the stream form and the platform lay them out. A lock in the header's
// own depth hands out the block itself, so changes land at once whatever the
// release says; a lock in another model works on a converted copy.
class ZKCORE_API oMEMDIB : public oDIB {
public:
    oMEMDIB(int tag = 0);
    // Joins the picture to the stream: when the picture ends it writes itself
    // there, so that a picture loaded into it lands on the stream.
    oMEMDIB(vSTREAM& target, int tag);
    // The copy has lines of its own and is joined to no stream.
    oMEMDIB(const oMEMDIB& other);
    oMEMDIB& operator=(const oMEMDIB& other);

    ~oMEMDIB() override;
    // Makes room for the lines, all 0, and ends a lock without keeping it.
    void SetHeader(const oDIBHEADER& newHeader) override;
    int SetImageLines(unsigned char* data, oCOLOUR_MODEL model, unsigned long first, unsigned long last) override;
    int GetImageLines(unsigned long first, unsigned long last, unsigned char* data,
                      oCOLOUR_MODEL* model) const override;
    int LockImageLines(unsigned long first, unsigned long last, unsigned char** data,
                       oCOLOUR_MODEL model) override;
    int ReleaseImageLines(int keep) override;
    const oDIB& operator<<(vSTREAM& stream) override;
    const oDIB& operator>>(vSTREAM& stream) const override;

private:
    unsigned char* Line(unsigned long line) const;
    unsigned long Stride() const;
    // Room for the header's lines, all 0 unless they are about to be read
    // over; none when the header asks for more than the address space can
    // hold or memory runs out.
    void Allocate(int clear);
    void Free();

    LOCK lock;
    unsigned char* lines;
    vSTREAM* target;
};
