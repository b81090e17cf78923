#pragma once

// The value types, all together.
#include "base/int.h"
#include "base/real.h"
#include "base/char.h"
#include "base/point.h"
#include "base/range.h"
#include "base/rect.h"
#include "base/ctrlid.h"
#include "base/resid.h"
#include "base/datetime.h"
