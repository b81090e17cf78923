#include "base/string.h"

#include <windows.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "base/char.h"
#include "base/int.h"
#include "base/real.h"
#include "base/resid.h"
#include "core/format.h"
#include "core/resources/resourceids.h"

namespace {

// The text of every empty string. It is shared, so that an empty string costs
// no allocation; it is therefore never written and never freed.
char emptyText[1] = {0};

// Every length must fit the unsigned 16 bits that Length answers.
const unsigned long maxLength = 65535;

// A new text joined from two pieces, cut to the longest a string may hold. When
// nothing is left, or no memory is to be had, it is the shared empty text,
// for no string operation may fail visibly.
char* Join(const char* first, unsigned long firstLength, const char* second, unsigned long secondLength)
{
    firstLength = std::min(firstLength, maxLength);
    secondLength = std::min(secondLength, maxLength - firstLength);
    unsigned long length = firstLength + secondLength;
    char* text = length != 0 ? new char[length + 1] : nullptr;
    if (!text)
        return emptyText;
    std::memcpy(text, first, firstLength);
    std::memcpy(text + firstLength, second, secondLength);
    text[length] = 0;
    return text;
}

char* Piece(const char* start, unsigned long length)
{
    return Join(start, length, "", 0);
}

char* Whole(const char* text)
{
    return Piece(text, std::strlen(text));
}

void Release(char* text)
{
    if (text != emptyText)
        delete[] text;
}

// Measures the result first, so that it may run past the 1024 bytes of
// wsprintfA and still take no more memory than it needs.
char* FormatList(const char* format, va_list arguments)
{
    if (!format)
        return emptyText;
    va_list measuring;
    va_copy(measuring, arguments);
    unsigned long length = std::min(FormatText(nullptr, 0, format, measuring), maxLength);
    va_end(measuring);
    char* text = length != 0 ? new char[length + 1] : nullptr;
    if (!text)
        return emptyText;
    FormatText(text, length, format, arguments);
    text[length] = 0;
    return text;
}

char* Format(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    char* text = FormatList(format, arguments);
    va_end(arguments);
    return text;
}

// LoadStringA cuts a text to the buffer without saying so, so a text that
// fills the buffer is loaded again into one twice the size.
char* LoadText(HINSTANCE instance, UINT id)
{
    for (unsigned long size = 64;; size *= 2) {
        char* buffer = new char[size];
        if (!buffer)
            return emptyText;
        unsigned long length = LoadStringA(instance, id, buffer, size);
        bool cut = length == size - 1 && size <= maxLength;
        char* text = cut ? nullptr : Piece(buffer, length);
        delete[] buffer;
        if (!cut)
            return text;
    }
}

// The four decimal places of a count of ten-thousandths, without trailing zeros.
void PlacesOf(unsigned long fraction, char (&places)[5])
{
    for (int place = 3; place >= 0; --place) {
        places[place] = static_cast<char>('0' + fraction % 10);
        fraction /= 10;
    }
    int end = 4;
    while (end > 0 && places[end - 1] == '0')
        --end;
    places[end] = 0;
}

// A 16.16 word rounded to four decimal places, with trailing zeros and a
// bare point cut: "2", "1.5", "-0.25", "0.3333". What rounds to zero shows
// no sign.
char* DecimalText(long raw)
{
    unsigned long long magnitude = raw < 0 ? -static_cast<long long>(raw) : raw;
    unsigned long long tenThousandths = (magnitude * 10000 + 0x8000) >> 16;
    char places[5];
    PlacesOf(static_cast<unsigned long>(tenThousandths % 10000), places);
    const char* sign = raw < 0 && tenThousandths != 0 ? "-" : "";
    unsigned long whole = static_cast<unsigned long>(tenThousandths / 10000);
    return places[0] ? Format("%s%lu.%s", sign, whole, places) : Format("%s%lu", sign, whole);
}

// The n-th occurrence of a character, counted from 1; null when there are
// fewer. The terminating NUL is never an occurrence.
const char* Occurrence(const char* text, char character, unsigned short n)
{
    for (; *text && n != 0; ++text) {
        if (*text == character && --n == 0)
            return text;
    }
    return nullptr;
}

// Where the field after the n-th delimiter starts; field 0 starts the text.
const char* FieldStart(const char* text, char delimiter, unsigned short n)
{
    if (n == 0)
        return text;
    const char* found = Occurrence(text, delimiter, n);
    return found ? found + 1 : nullptr;
}

const char* FieldEnd(const char* start, char delimiter)
{
    while (*start && *start != delimiter)
        ++start;
    return start;
}

}  // namespace

vSTRING::vSTRING() : text(emptyText) {}

vSTRING::vSTRING(const vSTRING& other) : text(Whole(other.text)) {}

vSTRING::vSTRING(vSTRING&& other) noexcept : text(other.text)
{
    other.text = emptyText;
}

vSTRING::vSTRING(const char* format, ...) : text(emptyText)
{
    va_list arguments;
    va_start(arguments, format);
    text = FormatList(format, arguments);
    va_end(arguments);
}

vSTRING::vSTRING(const vRESID& resource) : text(LoadText(resource.Instance(), resource())) {}

vSTRING::vSTRING(const vINT& number) : text(Format("%ld", number())) {}

vSTRING::vSTRING(const vREAL& number) : text(DecimalText(number())) {}

vSTRING::~vSTRING()
{
    Release(text);
}

vSTRING vSTRING::Adopt(char* text)
{
    vSTRING result;
    result.text = text;
    return result;
}

// Callers make the new text, often out of the old one, before it is freed here.
void vSTRING::Replace(char* fresh)
{
    Release(text);
    text = fresh;
}

char* vSTRING::operator()() const
{
    return text;
}

int vSTRING::Null() const
{
    return text[0] == 0;
}

unsigned short vSTRING::Length() const
{
    return static_cast<unsigned short>(std::strlen(text));
}

// Past the end there is no character: the answer is the empty vCHAR, 0.
vCHAR vSTRING::Char(unsigned short index) const
{
    if (strnlen(text, index + 1u) <= index)
        return vCHAR();
    return vCHAR(static_cast<unsigned char>(text[index]));
}

vCHAR vSTRING::operator[](unsigned short index) const
{
    return Char(index);
}

vSTRING& vSTRING::operator=(const vSTRING& other)
{
    Replace(Whole(other.text));
    return *this;
}

vSTRING& vSTRING::operator=(vSTRING&& other) noexcept
{
    if (this != &other) {
        Replace(other.text);
        other.text = emptyText;
    }
    return *this;
}

// A zero character stands for none, so it makes the empty string.
vSTRING& vSTRING::operator=(const vCHAR& character)
{
    char c = character();
    Replace(Piece(&c, c != 0 ? 1 : 0));
    return *this;
}

vSTRING vSTRING::operator+(const vSTRING& other) const
{
    return Adopt(Join(text, Length(), other.text, other.Length()));
}

vSTRING vSTRING::operator+(const vCHAR& character) const
{
    char c = character();
    return Adopt(Join(text, Length(), &c, c != 0 ? 1 : 0));
}

int vSTRING::operator==(const vSTRING& other) const
{
    return std::strcmp(text, other.text) == 0;
}

int vSTRING::operator!=(const vSTRING& other) const
{
    return !(*this == other);
}

// Byte by byte with case counted, each byte ordered as vCHAR orders it, as a
// signed character, so that bytes from 0x80 up sort below the ASCII letters.
// A string that is the beginning of another is the smaller of the two.
int vSTRING::operator>(const vSTRING& other) const
{
    const signed char* left = reinterpret_cast<const signed char*>(text);
    const signed char* right = reinterpret_cast<const signed char*>(other.text);
    for (; *left && *left == *right; ++left, ++right) {}
    if (*left == 0 || *right == 0)
        return *left != 0;
    return *left > *right;
}

// The answer runs from the first match to the end of the string, so that it
// is empty exactly when the needle is absent or the string itself is empty.
vSTRING vSTRING::GetSubString(const vSTRING& needle) const
{
    const char* found = std::strstr(text, needle.text);
    return found ? Adopt(Whole(found)) : vSTRING();
}

// Field 0 is the text before the first delimiter; a field beyond the last
// delimiter is empty.
vSTRING vSTRING::GetDelimitedSubString(const vCHAR& delimiter, unsigned short n) const
{
    const char* start = FieldStart(text, delimiter(), n);
    if (!start)
        return vSTRING();
    return Adopt(Piece(start, FieldEnd(start, delimiter()) - start));
}

// Before the 0th delimiter, the start of the text, nothing stands; when there
// are fewer than n delimiters, the whole string does.
vSTRING vSTRING::GetPreDelimitedSubString(const vCHAR& delimiter, unsigned short n) const
{
    if (n == 0)
        return vSTRING();
    const char* end = Occurrence(text, delimiter(), n);
    return end ? Adopt(Piece(text, end - text)) : *this;
}

unsigned short vSTRING::NoOfOccurance(const vCHAR& character) const
{
    unsigned short count = 0;
    for (const char* p = text; *p; ++p)
        count += *p == character();
    return count;
}

// Occurrences do not overlap: the search goes on after the end of each match,
// so AA occurs twice in AAAA, not three times. An empty text never occurs.
unsigned short vSTRING::NoOfOccurance(const vSTRING& needle) const
{
    unsigned long step = needle.Length();
    if (step == 0)
        return 0;
    unsigned short count = 0;
    for (const char* p = std::strstr(text, needle.text); p; p = std::strstr(p + step, needle.text))
        ++count;
    return count;
}

// The string keeps its allocation and is cut where the delimiter stood: a
// found delimiter means the text is our own, never the shared empty one.
vSTRING vSTRING::RemoveFromEnd(const vCHAR& delimiter)
{
    char* last = delimiter() != 0 ? std::strrchr(text, delimiter()) : nullptr;
    if (!last)
        return *this;
    vSTRING after = Adopt(Whole(last + 1));
    *last = 0;
    return after;
}

vSTRING& vSTRING::RemoveLeadAndTrailing(const vCHAR& character)
{
    unsigned long length = Length();
    unsigned long first = 0;
    while (first < length && text[first] == character())
        ++first;
    unsigned long end = length;
    while (end > first && text[end - 1] == character())
        --end;
    if (first != 0 || end != length)
        Replace(Piece(text + first, end - first));
    return *this;
}

// The platform's rules for its narrow character set, so that accented letters
// such as the e acute change too.
vSTRING& vSTRING::ConvertUpper()
{
    CharUpperBuffA(text, Length());
    return *this;
}

vSTRING& vSTRING::ConvertLower()
{
    CharLowerBuffA(text, Length());
    return *this;
}

// British English is the first block; each further language lies 1000 higher.
// A language without texts of its own gets the British ones.
unsigned short vSTRING::LanguageOffset(unsigned short language)
{
    switch (language) {
    case 1033:  // English, United States
        return OFFSET_ENGLISH_US;
    case 1031:  // German
        return OFFSET_GERMAN;
    case 1036:  // French
        return OFFSET_FRENCH;
    case 1053:  // Swedish
        return OFFSET_SWEDISH;
    default:  // 2057, English, United Kingdom, and all others
        return OFFSET_ENGLISH_UK;
    }
}
