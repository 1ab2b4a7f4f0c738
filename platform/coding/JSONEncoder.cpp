#include "platform/coding/JSONEncoder.h"

#include "platform/coding/internal/JsonWriter.h"

namespace Platform {

std::unique_ptr<ValueSink> JSONEncoder::sinkInto(std::string& json) const
{
    return std::make_unique<JsonWriter>(*this, json);
}

void JSONEncoder::finish(ValueSink& sink)
{
    static_cast<JsonWriter&>(sink).finish();
}

}  // namespace Platform
