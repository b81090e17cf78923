#include "filters/archivetype.h"

vARCHIVETYPE::vARCHIVETYPE() = default;

vARCHIVETYPE::vARCHIVETYPE(const vSTRING& description, const vSTRING& id, const vSTRING& name)
    : description(description), name(name), id(id)
{
}

vARCHIVETYPE::vARCHIVETYPE(const vARCHIVETYPE& other)
    : vOBJECT(other), description(other.description), id(other.id), category(other.category)
{
}

vARCHIVETYPE& vARCHIVETYPE::operator=(const vARCHIVETYPE& other)
{
    description = other.description;
    name = other.name;
    id = other.id;
    category = other.category;
    return *this;
}

vSTRING& vARCHIVETYPE::ID()
{
    return id;
}

vSTRING& vARCHIVETYPE::Name()
{
    return name;
}

vSTRING& vARCHIVETYPE::Description()
{
    return description;
}

int vARCHIVETYPE::IsMetafile() const
{
    return category.IsMetafile();
}

int vARCHIVETYPE::IsBitmap() const
{
    return category.IsBitmap();
}

int vARCHIVETYPE::operator==(const vARCHIVETYPE& other) const
{
    return id == other.id && category == other.category;
}

void vARCHIVETYPE::SetCategory(const vARCHIVECAT& category)
{
    this->category = category;
}
