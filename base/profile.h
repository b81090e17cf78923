#pragma once

#include "base/string.h"

// An initialisation file of the platform's "[section] key=value" form. It is
// valid when the file exists.
class ZKCORE_API vPROFILE {
public:
    explicit vPROFILE(const vSTRING& file);
    vPROFILE(const vPROFILE& other);
    vPROFILE& operator=(const vPROFILE& other);
    ~vPROFILE();

    int Valid() const;
    vSTRING Get(const vSTRING& section, const vSTRING& key) const;

private:
    vSTRING* file;
    int valid;
};
