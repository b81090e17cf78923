#pragma once

// Everything a program of the family uses: the base layer's values, lists
// and system services, and the class library built on them.
#include "base/values.h"
#include "base/lists.h"
#include "base/system.h"
#include "base/startup.h"
#include "graphics/colour.h"
#include "graphics/linespec.h"
#include "graphics/fillspec.h"
#include "graphics/fontspec.h"
#include "graphics/bezpoint.h"
#include "graphics/shape.h"
#include "graphics/rectshape.h"
#include "graphics/elpsshape.h"
#include "graphics/transform.h"
#include "graphics/scale.h"
#include "graphics/translate.h"
#include "graphics/rotate.h"
#include "graphics/lineseg.h"
#include "graphics/linesect.h"
#include "graphics/device.h"
