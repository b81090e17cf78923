#pragma once

// Everything a program of the family uses: the base layer's values, lists
// and system services, and the class library built on them.
#include "base/values.h"
#include "base/lists.h"
#include "base/system.h"
#include "base/startup.h"
