#pragma once

#include "graphics/dib.h"

// A picture whose lines stay on the stream that it was read from, so that a
// picture of any size costs only its header, its colours and a band of lines
// at a time. Lines that are set are written back in place on that stream.
// A picture that has read no stream has nowhere to keep lines, and its line
// operations answer 0.
class ZKCORE_API oSTREAMDIB : public oDIB {
public:
    oSTREAMDIB(int tag = 0);
    // The copy reads and writes the same stream.
    oSTREAMDIB(const oSTREAMDIB& other);
    oSTREAMDIB& operator=(const oSTREAMDIB& other);

    ~oSTREAMDIB() override;
    // A header with another width, height or depth leaves the stream's lines
    // behind; a lock ends without keeping its changes.
    void SetHeader(const oDIBHEADER& newHeader) override;
    int SetImageLines(unsigned char* data, oCOLOUR_MODEL model, unsigned long first, unsigned long last) override;
    int GetImageLines(unsigned long first, unsigned long last, unsigned char* data,
                      oCOLOUR_MODEL* model) const override;
    int LockImageLines(unsigned long first, unsigned long last, unsigned char** data,
                       oCOLOUR_MODEL model) override;
    int ReleaseImageLines(int keep) override;
    // Reads the header and the colours, checks that the lines are there, and
    // leaves the stream after them.
    const oDIB& operator<<(vSTREAM& stream) override;
    // Copies the lines across a band at a time.
    const oDIB& operator>>(vSTREAM& stream) const override;

private:
    unsigned long Stride() const;
    // Where a line stands on the stream.
    unsigned long At(unsigned long line) const;
    // Reads lines first to last, bottom up, in the header's depth.
    int ReadLines(unsigned long first, unsigned long last, unsigned char* data) const;

    LOCK lock;
    vSTREAM* source;
    unsigned long linesAt;
    int topDown;
};
