#pragma once

#include <windows.h>

#include "base/export.h"

class vAPP;

// The program's start-up, which the base library runs in place of the
// program's own main: it finds out whether the program already runs, calls
// vMain, and runs the message loop of the application that vMain returns.

// Supplied by the program: makes its application object with new, builds its
// first windows, and returns the application (null ends the program at once).
vAPP* vMain();

// The instance of this program that already runs, or null for the first one.
// Every instance of a program shares its module handle, so the answer is this
// instance's own handle when another instance holds the program's claim; the
// first call in a process stakes that claim for the life of the process.
ZKCORE_API HINSTANCE vFindPreviousInstance(HINSTANCE instance);
