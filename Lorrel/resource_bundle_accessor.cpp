#include "Lorrel/resource_bundle_accessor.h"

namespace Lorrel {

const void* BundleFinder::address()
{
    return reinterpret_cast<const void*>(&BundleFinder::address);
}

}  // namespace Lorrel
