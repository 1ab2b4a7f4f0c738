#pragma once

#include "platform/runtime/Result.h"

namespace Lorrel {

// Prints the error's description as one line on standard output.
void printLine(const Platform::Error& error);

}  // namespace Lorrel
