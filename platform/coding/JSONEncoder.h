#pragma once

#include <memory>
#include <string>

#include "platform/coding/CodingStrategies.h"
#include "platform/coding/Encoder.h"

namespace Platform {

// Writes values as JSON in UTF-8: members in the order given, floating-point
// numbers by the shortest text that reads back, always with a fraction, so
// that a number keeps its type on the way back.
// Throws EncodingError, with the path, for what JSON cannot say: a number that
// is infinite or none, a text that is not UTF-8, more than
// JSONDecoder::maximumDepth levels, a date outside what its strategy can write.
// Thread: any, one encode at a time.
class JSONEncoder {
public:
    enum class Format {
        compact,
        pretty,  // two spaces a level, one member or element a line
    };

    DateStrategy dateStrategy = DateStrategy::secondsSince1970;
    Format format = Format::compact;

    template <typename T>
    std::string encode(const T& value) const
    {
        std::string json;
        write([&](ValueSink& sink) { Encoder::write(value, sink); }, json);
        return json;
    }

    // For a caller that feeds the events by hand. The text stays as it was where the feed throws.
    template <typename Feed>
    void write(Feed&& feed, std::string& json) const
    {
        const auto sink = sinkInto(json);
        feed(*sink);
        finish(*sink);
    }

private:
    std::unique_ptr<ValueSink> sinkInto(std::string& json) const;
    static void finish(ValueSink& sink);
};

}  // namespace Platform
