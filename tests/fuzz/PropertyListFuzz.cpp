// Any bytes give an error or a property list, and a list that was read can be
// written in both forms and read again.
#include "platform/bundle/PropertyList.h"
#include "tests/fuzz/Fuzz.h"

using Platform::PropertyList;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto list = PropertyList::parse(textOf(data, size));
    if (!list) return 0;
    if (const auto binary = list->binary())
        require(PropertyList::parse(*binary).isSuccess(), "the binary form reads back");
    if (const auto xml = list->xml()) require(PropertyList::parse(*xml).isSuccess(), "the XML form reads back");
    return 0;
}
