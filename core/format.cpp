#include "core/format.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

// Where formatted text goes: every byte is counted, and stored while there is room.
class Output {
public:
    Output(char* out, unsigned long capacity) : out(out), capacity(capacity) {}

    void Put(char c)
    {
        if (count < capacity)
            out[count] = c;
        ++count;
    }

    void Put(const char* text, unsigned long length)
    {
        for (unsigned long i = 0; i < length; ++i)
            Put(text[i]);
    }

    void Repeat(char c, unsigned long times)
    {
        for (; times > 0; --times)
            Put(c);
    }

    unsigned long Count() const { return count; }

private:
    char* out;
    unsigned long capacity;
    unsigned long count = 0;
};

// What the size prefix of a conversion says about its argument: h, l, w and
// I64. A plain I or I32 names the 32-bit default of this platform.
enum class Size { Default, Short, Long, Wide, Quad };

// One conversion: %[-][#][0][width][.precision][size]type.
struct Conversion {
    bool left = false;
    bool prefix = false;
    bool zeros = false;
    unsigned long width = 0;
    // 0 when none was given, which for numbers means one digit and for
    // texts no limit.
    unsigned long precision = 0;
    Size size = Size::Default;
    // 0 when the format ended inside the conversion.
    char type = 0;
};

// Past this, a width or precision only makes text that is cut off anyway.
const unsigned long numberLimit = 65536;

const char* ReadFlag(const char* p, char flag, bool& set)
{
    set = *p == flag;
    return set ? p + 1 : p;
}

const char* ReadNumber(const char* p, unsigned long& number)
{
    for (; *p >= '0' && *p <= '9'; ++p)
        number = std::min(number * 10 + (*p - '0'), numberLimit);
    return p;
}

// p stands just after an I.
const char* ReadIntegerSize(const char* p, Size& size)
{
    if (p[0] == '6' && p[1] == '4') {
        size = Size::Quad;
        return p + 2;
    }
    return p[0] == '3' && p[1] == '2' ? p + 2 : p;
}

const char* ReadSize(const char* p, Size& size)
{
    switch (*p) {
    case 'h':
        size = Size::Short;
        return p + 1;
    case 'l':
        size = Size::Long;
        return p + 1;
    case 'w':
        size = Size::Wide;
        return p + 1;
    case 'I':
        return ReadIntegerSize(p + 1, size);
    default:
        return p;
    }
}

// The fields come in a fixed order, as the platform reads them: a flag out
// of its place ends the conversion and is written as it stands.
const char* ReadConversion(const char* p, Conversion& conversion)
{
    p = ReadFlag(p, '-', conversion.left);
    p = ReadFlag(p, '#', conversion.prefix);
    p = ReadFlag(p, '0', conversion.zeros);
    p = ReadNumber(p, conversion.width);
    if (*p == '.')
        p = ReadNumber(p + 1, conversion.precision);
    p = ReadSize(p, conversion.size);
    conversion.type = *p;
    return *p ? p + 1 : p;
}

// A number ready to be written: its digits, least significant first, and what
// stands in front of them.
struct Number {
    char digits[24];
    unsigned long count = 0;
    const char* sign = "";
    const char* prefix = "";
};

Number Digits(unsigned long long value, unsigned base, bool upper)
{
    const char* symbols = upper ? "0123456789ABCDEF" : "0123456789abcdef";
    Number number;
    do {
        number.digits[number.count++] = symbols[value % base];
        value /= base;
    } while (value != 0);
    return number;
}

Number Signed(long long value)
{
    // Negated as unsigned, so that the most negative value survives.
    unsigned long long magnitude = value < 0 ? 0 - static_cast<unsigned long long>(value) : value;
    Number number = Digits(magnitude, 10, false);
    number.sign = value < 0 ? "-" : "";
    return number;
}

Number Hexadecimal(unsigned long long value, bool upper, bool prefix)
{
    Number number = Digits(value, 16, upper);
    if (prefix)
        number.prefix = upper ? "0X" : "0x";
    return number;
}

// As in the platform's formatter, the sign counts towards both the width and
// the precision, and the 0x prefix towards neither; texts laid out for it
// keep their layout.
void PutNumber(Output& out, const Conversion& conversion, const Number& number, unsigned long minimumDigits)
{
    unsigned long signLength = std::strlen(number.sign);
    unsigned long length = std::max(signLength + std::max(number.count, minimumDigits), conversion.precision);
    unsigned long digits = length - signLength;
    unsigned long fill = conversion.width > length ? conversion.width - length : 0;
    bool zeroFill = conversion.zeros && !conversion.left;
    if (!conversion.left && !zeroFill)
        out.Repeat(' ', fill);
    out.Put(number.sign, signLength);
    out.Put(number.prefix, std::strlen(number.prefix));
    if (zeroFill)
        out.Repeat('0', fill);
    out.Repeat('0', digits - number.count);
    for (unsigned long i = number.count; i > 0; --i)
        out.Put(number.digits[i - 1]);
    if (conversion.left)
        out.Repeat(' ', fill);
}

// Texts and characters are padded with blanks only, whatever the 0 flag says.
template <typename Body>
void PutField(Output& out, const Conversion& conversion, unsigned long length, Body body)
{
    unsigned long fill = conversion.width > length ? conversion.width - length : 0;
    if (!conversion.left)
        out.Repeat(' ', fill);
    body();
    if (conversion.left)
        out.Repeat(' ', fill);
}

void PutBytes(Output& out, const Conversion& conversion, const char* bytes, unsigned long length)
{
    PutField(out, conversion, length, [&] { out.Put(bytes, length); });
}

// A wide character in the platform's narrow character set: one byte, or two
// in a double-byte code page.
unsigned long NarrowOf(wchar_t wide, char (&narrow)[2])
{
    return WideCharToMultiByte(CP_ACP, 0, &wide, 1, narrow, 2, nullptr, nullptr);
}

// How many characters of a text are taken: all, or no more than the precision.
template <typename Character>
unsigned long TakenLength(const Character* text, unsigned long precision)
{
    unsigned long length = 0;
    while (text[length] != 0 && (precision == 0 || length < precision))
        ++length;
    return length;
}

const char* nullText = "(null)";

void PutNarrowText(Output& out, const Conversion& conversion, const char* text)
{
    if (!text)
        text = nullText;
    PutBytes(out, conversion, text, TakenLength(text, conversion.precision));
}

void PutWideText(Output& out, const Conversion& conversion, const wchar_t* text)
{
    if (!text)
        return PutNarrowText(out, conversion, nullptr);
    unsigned long taken = TakenLength(text, conversion.precision);
    char narrow[2];
    unsigned long length = 0;
    for (unsigned long i = 0; i < taken; ++i)
        length += NarrowOf(text[i], narrow);
    PutField(out, conversion, length, [&] {
        for (unsigned long i = 0; i < taken; ++i)
            out.Put(narrow, NarrowOf(text[i], narrow));
    });
}

// The platform documents that a zero character is left out; its field is
// still padded to the width.
void PutNarrowCharacter(Output& out, const Conversion& conversion, char character)
{
    PutBytes(out, conversion, &character, character != 0 ? 1 : 0);
}

void PutWideCharacter(Output& out, const Conversion& conversion, wchar_t character)
{
    char narrow[2];
    PutBytes(out, conversion, narrow, character != 0 ? NarrowOf(character, narrow) : 0);
}

// Lower-case c and s are narrow unless l says wide, or w for a text; upper-case
// C and S are the other way round and wide unless h says narrow.
bool IsWide(const Conversion& conversion)
{
    switch (conversion.type) {
    case 'c':
        return conversion.size == Size::Long;
    case 's':
        return conversion.size == Size::Long || conversion.size == Size::Wide;
    default:
        return conversion.size != Size::Short;
    }
}

void PutCharacter(Output& out, const Conversion& conversion, va_list& arguments)
{
    int code = va_arg(arguments, int);
    if (IsWide(conversion))
        PutWideCharacter(out, conversion, static_cast<wchar_t>(code));
    else
        PutNarrowCharacter(out, conversion, static_cast<char>(code));
}

void PutText(Output& out, const Conversion& conversion, va_list& arguments)
{
    if (IsWide(conversion))
        PutWideText(out, conversion, va_arg(arguments, const wchar_t*));
    else
        PutNarrowText(out, conversion, va_arg(arguments, const char*));
}

long long SignedArgument(const Conversion& conversion, va_list& arguments)
{
    if (conversion.size == Size::Quad)
        return va_arg(arguments, long long);
    return va_arg(arguments, int);
}

unsigned long long UnsignedArgument(const Conversion& conversion, va_list& arguments)
{
    if (conversion.size == Size::Quad)
        return va_arg(arguments, unsigned long long);
    return va_arg(arguments, unsigned int);
}

// A pointer is shown in upper-case hexadecimal with all its digits.
void PutPointer(Output& out, const Conversion& conversion, va_list& arguments)
{
    auto address = reinterpret_cast<std::uintptr_t>(va_arg(arguments, void*));
    PutNumber(out, conversion, Hexadecimal(address, true, conversion.prefix), 2 * sizeof(void*));
}

void PutConversion(Output& out, const Conversion& conversion, va_list& arguments)
{
    switch (conversion.type) {
    case 'c':
    case 'C':
        return PutCharacter(out, conversion, arguments);
    case 's':
    case 'S':
        return PutText(out, conversion, arguments);
    case 'd':
    case 'i':
        return PutNumber(out, conversion, Signed(SignedArgument(conversion, arguments)), 1);
    case 'u':
        return PutNumber(out, conversion, Digits(UnsignedArgument(conversion, arguments), 10, false), 1);
    case 'x':
    case 'X': {
        bool upper = conversion.type == 'X';
        Number number = Hexadecimal(UnsignedArgument(conversion, arguments), upper, conversion.prefix);
        return PutNumber(out, conversion, number, 1);
    }
    case 'p':
        return PutPointer(out, conversion, arguments);
    case 0:
        return;
    default:
        // Not a conversion, such as the second % of %%: the character stands.
        out.Put(conversion.type);
    }
}

}  // namespace

unsigned long FormatText(char* out, unsigned long capacity, const char* format, va_list arguments)
{
    Output output(out, capacity);
    while (*format) {
        if (*format != '%') {
            output.Put(*format++);
            continue;
        }
        Conversion conversion;
        format = ReadConversion(format + 1, conversion);
        PutConversion(output, conversion, arguments);
    }
    return output.Count();
}
