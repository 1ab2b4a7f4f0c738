#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/bundle/Bundle.h"

namespace Fennick {

// The text of a key in a resource bundle's table. The key itself where the
// table has none, or one whose placeholders are not those that the call fills:
// none, one whole number (%d, %ld, %lld, %i ...) or one text (%@). "%%" is a
// percent sign. Thread: any.
std::string localizedText(const Platform::Bundle& bundle, std::string_view key);
std::string localizedText(const Platform::Bundle& bundle, std::string_view key, std::int64_t number);
std::string localizedText(const Platform::Bundle& bundle, std::string_view key, std::string_view text);

}  // namespace Fennick
