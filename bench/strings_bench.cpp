#include <cstdio>
#include <string>
#include <vector>

#include "base/char.h"
#include "base/string.h"
#include "bench/bench.h"

namespace {

const unsigned long paths = 1000000;
const char format[] = "C:\\DATA\\PROJECT%lu\\IMAGE%lu.BMP";

std::string PlainPath(unsigned long n)
{
    char text[64];
    std::snprintf(text, sizeof text, format, n % 97, n);
    return text;
}

void Format()
{
    zkbench::Record("strings.format", "snprintf into std::string", zkbench::Compare([] {
        for (unsigned long n = 0; n < paths; ++n)
            zkbench::Keep(vSTRING(format, n % 97, n));
    }, [] {
        for (unsigned long n = 0; n < paths; ++n)
            zkbench::Keep(PlainPath(n));
    }, paths));
}

void Concatenate()
{
    vSTRING directory("C:\\DATA\\PROJECT\\");
    vSTRING name("IMAGE.BMP");
    std::string plainDirectory = directory();
    std::string plainName = name();
    zkbench::Record("strings.concatenate", "std::string operator+", zkbench::Compare([&] {
        for (unsigned long n = 0; n < paths; ++n)
            zkbench::Keep(directory + name);
    }, [&] {
        for (unsigned long n = 0; n < paths; ++n)
            zkbench::Keep(plainDirectory + plainName);
    }, paths));
}

// The second field between backslashes, as the directory lists read paths.
std::string PlainField(const std::string& path, char delimiter, unsigned n)
{
    size_t start = 0;
    for (unsigned seen = 0; seen < n; ++seen) {
        start = path.find(delimiter, start);
        if (start == std::string::npos)
            return std::string();
        ++start;
    }
    return path.substr(start, path.find(delimiter, start) - start);
}

void DelimitedField()
{
    vSTRING path(format, 42UL, 4242UL);
    std::string plain = path();
    vCHAR backslash('\\');
    zkbench::Record("strings.delimited", "find+substr on std::string", zkbench::Compare([&] {
        for (unsigned long n = 0; n < paths; ++n)
            zkbench::Keep(path.GetDelimitedSubString(backslash, 2));
    }, [&] {
        for (unsigned long n = 0; n < paths; ++n)
            zkbench::Keep(PlainField(plain, '\\', 2));
    }, paths));
}

// Cuts the extension off a copy of the path, as a filter matches a file.
void RemoveExtension()
{
    vSTRING path(format, 42UL, 4242UL);
    std::string plain = path();
    vCHAR point('.');
    zkbench::Record("strings.removefromend", "rfind+substr+erase", zkbench::Compare([&] {
        for (unsigned long n = 0; n < paths; ++n) {
            vSTRING copy(path);
            zkbench::Keep(copy.RemoveFromEnd(point));
        }
    }, [&] {
        for (unsigned long n = 0; n < paths; ++n) {
            std::string copy(plain);
            size_t cut = copy.rfind('.');
            std::string extension = copy.substr(cut + 1);
            copy.erase(cut);
            zkbench::Keep(extension);
        }
    }, paths));
}

}  // namespace

void BenchStrings()
{
    Format();
    Concatenate();
    DelimitedField();
    RemoveExtension();
}
