#include "tests/support/Offscreen.h"
