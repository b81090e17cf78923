#pragma once

// Format conversion: the kinds of archive a conversion goes between.
#include "filters/archivetype.h"
#include "filters/dibarchive.h"
#include "filters/zkmarchive.h"
