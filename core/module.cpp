#include "base/module.h"

#include "base/string.h"

vMODULE::vMODULE()
    : instance(nullptr)
{
}

vMODULE::vMODULE(HINSTANCE module)
    : instance(module)
{
}

vMODULE::vMODULE(const vMODULE& other)
    : vOBJECT(other), instance(other.instance)
{
}

vMODULE& vMODULE::operator=(const vMODULE& other)
{
    instance = other.instance;
    return *this;
}

vMODULE::~vMODULE() = default;

HINSTANCE vMODULE::GetInstance() const
{
    return instance;
}

// The platform's command line starts with the program's name, quoted when it
// holds blanks; what follows the blanks after it is the program's command.
vSTRING vMODULE::GetCommand()
{
    const char* line = GetCommandLineA();
    if (*line == '"') {
        for (++line; *line && *line != '"'; ++line) {
        }
        if (*line)
            ++line;
    } else {
        while (*line && *line != ' ' && *line != '\t')
            ++line;
    }
    while (*line == ' ' || *line == '\t')
        ++line;
    return vSTRING("%s", line);
}
