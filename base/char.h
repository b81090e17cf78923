#pragma once

#include "base/object.h"

class vSTREAM;
// One character of the platform's narrow character set. It orders as a signed
// byte, and it classifies by plain ASCII whatever the locale.
class ZKCORE_API vCHAR : public vOBJECT {
public:
    // The low byte of the code is the character, so a key code of WM_CHAR
    // passes straight in.
    vCHAR(unsigned short code);
    // Holds 0, which callers read as "no character".
    vCHAR();

    char operator()() const;
    // Steps to the following code in place; 0xFF wraps round to 0.
    vCHAR& Next();
    char Symbol(char& out) const;

    int operator==(const vCHAR& other) const;
    int operator!=(const vCHAR& other) const;
    int operator<(const vCHAR& other) const;
    int operator<=(const vCHAR& other) const;
    int operator>(const vCHAR& other) const;
    // Not const: it has always been declared so, and callers compile against it.
    int operator>=(const vCHAR& other);

    // The names keep the narrow-set letter A of the platform's functions.
    int IsCharAlphaA() const;
    int IsCharNumeric() const;
    int IsCharUpperA() const;
    int IsCharLowerA() const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    signed char Signed() const;
    unsigned char Code() const;

    char character;
};
