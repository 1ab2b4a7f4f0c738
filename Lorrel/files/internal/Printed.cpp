#include "Lorrel/files/internal/Printed.h"

#include <cstdio>

namespace Lorrel {

void printLine(const Platform::Error& error)
{
    std::puts(error.message().c_str());
    std::fflush(stdout);
}

}  // namespace Lorrel
