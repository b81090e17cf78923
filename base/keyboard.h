#pragma once

#include "base/char.h"

// A key code is the platform's virtual key number.
typedef unsigned short vKEYCODE;

// The state of the last key event, fed by the message loops with key messages
// and cleared on key release. A plain value: copying it copies the state.
class ZKCORE_API vKEYBOARD {
public:
    vKEYBOARD();

    vKEYCODE KeyCode() const;
    int Shift() const;
    int Ctr() const;

private:
    friend class vAPP;
    friend class vWIN;
    friend class vDIALOG;
    friend struct vSYSTEMACCESS;

    vCHAR* event(unsigned short message, unsigned short key, unsigned long flags);
    static int KeyboardType();
    static int NumberOfFKeys();
    void reset();

    unsigned long message;
    // The ten bytes of state.
    unsigned char keyCode;
    unsigned char shift;
    unsigned char control;
    unsigned char alt;
    unsigned char scanCode;
    unsigned char extended;
    unsigned char repeat;
    unsigned char hasCharacter;
    vCHAR character;
    unsigned char spare;
};
