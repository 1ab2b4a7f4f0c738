#pragma once

// The protocol header has a field of the name of a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
