#pragma once

#include "base/string.h"
#include "filters/archivecat.h"

// Names a kind of archive that a conversion reads or writes. The identifier
// is matched against file extensions by looking for the extension inside
// it, so it is held in capitals and may name several extensions.
class ZKSHELL_API vARCHIVETYPE : public vOBJECT {
public:
    vARCHIVETYPE();
    // The identifier comes before the name here, unlike the fields.
    vARCHIVETYPE(const vSTRING& description, const vSTRING& id, const vSTRING& name);
    // Leaves the name empty on purpose: an alias built by copying carries
    // none. Assignment copies it.
    vARCHIVETYPE(const vARCHIVETYPE& other);
    vARCHIVETYPE& operator=(const vARCHIVETYPE& other);

    vSTRING& ID();
    vSTRING& Name();
    vSTRING& Description();

    int IsMetafile() const;
    int IsBitmap() const;

    // The same identifier and category; the name and description do not count.
    int operator==(const vARCHIVETYPE& other) const;

protected:
    void SetCategory(const vARCHIVECAT& category);

private:
    vSTRING description;
    vSTRING name;
    vSTRING id;
    vARCHIVECAT category;
};
