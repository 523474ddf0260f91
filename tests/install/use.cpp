// SPDX-License-Identifier: MIT
// The same from C++.
#include "use.c"
