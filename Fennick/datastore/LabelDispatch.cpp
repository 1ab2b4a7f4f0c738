#include "Fennick/datastore/LabelDispatch.h"

#include "platform/runtime/Shared.h"

namespace Fennick {

std::string LabelDispatch::nextLabel()
{
    Counter& counter = Platform::Shared<Counter>::get([] { return std::make_unique<Counter>(0); });
    return "com.threading.dispatchqueue_" + std::to_string(counter.fetch_add(1));
}

}  // namespace Fennick
