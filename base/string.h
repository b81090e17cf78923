#pragma once

#include "base/object.h"

class vCHAR;
class vINT;
class vREAL;
class vRESID;

// A text in the platform's narrow character set. The text is never null: an
// empty string still hands out a valid, empty text, and a string owns its text.
class ZKCORE_API vSTRING : public vOBJECT {
public:
    vSTRING();
    vSTRING(const vSTRING& other);
    vSTRING(vSTRING&& other) noexcept;
    // Formats in the manner of wsprintfA; a plain text is made with a format alone.
    vSTRING(const char* format, ...);
    explicit vSTRING(const vRESID& resource);
    explicit vSTRING(const vINT& number);
    explicit vSTRING(const vREAL& number);
    ~vSTRING();

    char* operator()() const;
    int Null() const;
    unsigned short Length() const;
    vCHAR Char(unsigned short index) const;
    vCHAR operator[](unsigned short index) const;

    vSTRING& operator=(const vSTRING& other);
    vSTRING& operator=(vSTRING&& other) noexcept;
    vSTRING& operator=(const vCHAR& character);
    vSTRING operator+(const vSTRING& other) const;
    vSTRING operator+(const vCHAR& character) const;

    int operator==(const vSTRING& other) const;
    int operator!=(const vSTRING& other) const;
    int operator>(const vSTRING& other) const;

    vSTRING GetSubString(const vSTRING& needle) const;
    vSTRING GetDelimitedSubString(const vCHAR& delimiter, unsigned short n) const;
    vSTRING GetPreDelimitedSubString(const vCHAR& delimiter, unsigned short n) const;
    unsigned short NoOfOccurance(const vCHAR& character) const;
    unsigned short NoOfOccurance(const vSTRING& text) const;
    vSTRING RemoveFromEnd(const vCHAR& delimiter);
    vSTRING& RemoveLeadAndTrailing(const vCHAR& character);
    vSTRING& ConvertUpper();
    vSTRING& ConvertLower();

    // The distance from a string resource's number to its text in a language.
    static unsigned short LanguageOffset(unsigned short language);

private:
    // A string that takes over a text made for it.
    static vSTRING Adopt(char* text);
    // Frees the present text and holds the given one instead.
    void Replace(char* fresh);

    char* text;
};
