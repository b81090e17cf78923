#pragma once

// The objects' container and its helpers, all together.
#include "base/link.h"
#include "base/list.h"
#include "base/iterator.h"
#include "base/collection.h"
