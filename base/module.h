#pragma once

#include <windows.h>

#include "base/object.h"

class vSTRING;

// A loaded module (the base library, a plug-in, the program) known by its
// instance handle, in whose resources identifiers are looked up.
class ZKCORE_API vMODULE : public vOBJECT {
public:
    vMODULE();
    vMODULE(const vMODULE& other);
    vMODULE& operator=(const vMODULE& other);
    ~vMODULE();

    virtual HINSTANCE GetInstance() const;

protected:
    explicit vMODULE(HINSTANCE instance);

    HINSTANCE instance;

private:
    friend class vAPP;
    friend struct vSYSTEMACCESS;

    // The command line of the process, without the program's own name.
    static vSTRING GetCommand();
};
