#include "graphics/picture.h"

vPICTURE::~vPICTURE() = default;
