// Says where a program of both libraries finds their resources.
#include <cstdio>

#include "Fennick/resource_bundle_accessor.h"
#include "Lorrel/resource_bundle_accessor.h"

int main()
{
    std::printf("%s\n", Fennick::Resources::bundle().bundlePath().c_str());
    std::fflush(stdout);
    std::printf("%s\n", Lorrel::Resources::bundle().bundlePath().c_str());
}
