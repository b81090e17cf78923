#pragma once

#include "base/system.h"

// The base library's process-wide object, kept by this library at every
// entry so that its own resource identifiers can name the base library.
extern vSYSTEM* zkCore;
