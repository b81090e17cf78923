#pragma once

#include "base/int.h"
#include "base/string.h"

// A calendar date and a time of day to the second.
class ZKCORE_API vDATETIME : public vOBJECT {
public:
    // Day first and year third, unlike the fields; each is cut to 16 bits.
    vDATETIME(const vINT& day, const vINT& month, const vINT& year,
              const vINT& hour, const vINT& minute, const vINT& second);
    // The local date and time now.
    vDATETIME();

    vINT Year() const;
    vINT Month() const;
    vINT Day() const;
    vINT Hour() const;
    vINT Minute() const;
    vINT Second() const;

    // Changes this object: six independent 16-bit differences with no borrow
    // between fields, so a field that goes below zero stands as a large number.
    vDATETIME& operator-(const vDATETIME& other);

    int operator==(const vDATETIME& other) const;
    int operator!=(const vDATETIME& other) const;
    // Year, month, day, hour, minute, second, the first difference deciding.
    int operator>(const vDATETIME& other) const;
    int operator<(const vDATETIME& other) const;
    int operator>=(const vDATETIME& other) const;
    int operator<=(const vDATETIME& other) const;

    // "24 December 1996".
    vSTRING FullDate() const;
    // "11:59:58 pm".
    vSTRING Time12() const;
    // The time, one blank, then the date.
    vSTRING Stamp() const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    unsigned short year;
    unsigned short month;
    unsigned short day;
    unsigned short hour;
    unsigned short minute;
    unsigned short second;
};
