#include "base/profile.h"

#include "base/system.h"

vPROFILE::vPROFILE(const vSTRING& name)
    : file(new vSTRING(name)),
      valid(file && GetFileAttributesA((*file)()) != INVALID_FILE_ATTRIBUTES)
{
}

vPROFILE::vPROFILE(const vPROFILE& other)
    : file(other.file ? new vSTRING(*other.file) : nullptr), valid(file ? other.valid : 0)
{
}

vPROFILE& vPROFILE::operator=(const vPROFILE& other)
{
    if (this != &other) {
        vSTRING* copy = other.file ? new vSTRING(*other.file) : nullptr;
        delete file;
        file = copy;
        valid = file ? other.valid : 0;
    }
    return *this;
}

vPROFILE::~vPROFILE()
{
    delete file;
}

int vPROFILE::Valid() const
{
    return valid;
}

vSTRING vPROFILE::Get(const vSTRING& section, const vSTRING& key) const
{
    if (!valid)
        return vSTRING();
    char* buffer = vSYSTEM::GetBuffer();
    GetPrivateProfileStringA(section(), key(), "", buffer, vSYSTEM::BufferSize, (*file)());
    return vSTRING("%s", buffer);
}
