#pragma once

#include <string_view>

#include "platform/coding/ValueSink.h"

namespace Platform {

// Feeds one JSON text to a sink, checked as far as it is read: the sink may
// have taken a part before DecodingError tells that the text is not JSON.
void readJson(std::string_view json, ValueSink& sink);

// Whether JSON can say the text: whether it is UTF-8 throughout. By the parser's
// vectorised check, since a writer asks for every text.
bool isJsonText(std::string_view bytes);

}  // namespace Platform
