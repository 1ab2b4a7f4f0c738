#include "Fennick/resource_bundle_accessor.h"

namespace Fennick {

const void* BundleFinder::address()
{
    return reinterpret_cast<const void*>(&BundleFinder::address);
}

}  // namespace Fennick
