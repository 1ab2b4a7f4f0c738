#include "platform/coding/JSONDecoder.h"

#include "platform/coding/internal/JsonReader.h"

namespace Platform {

namespace {

class JsonSource final : public DecodingSource {
public:
    JsonSource(std::string_view json, DateStrategy dates) : DecodingSource(dates), json_(json) {}

    void read(ValueSink& sink) override { readJson(json_, sink); }

private:
    std::string_view json_;
};

}  // namespace

std::unique_ptr<DecodingSource> JSONDecoder::sourceOf(std::string_view json) const
{
    return std::make_unique<JsonSource>(json, dateStrategy);
}

}  // namespace Platform
