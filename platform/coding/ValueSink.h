#pragma once

#include <cstdint>
#include <string_view>

#include "platform/coding/CodingPath.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Url.h"

namespace Platform {

// Takes one document as a sequence of events, in document order. A format's
// writer, a tree's builder and a tape are sinks; a format's reader feeds one.
// The feeder keeps the events well-formed: every begin has its end, and inside
// a dictionary each value follows its key. An operation may throw a coding
// error, which ends the document.
class ValueSink {
public:
    virtual ~ValueSink() = default;

    virtual void null() = 0;
    virtual void boolean(bool value) = 0;
    virtual void integer(std::int64_t value) = 0;
    virtual void unsignedInteger(std::uint64_t value) = 0;
    virtual void real(double value) = 0;
    // A single-precision number, whose shortest text is shorter.
    virtual void real32(float value) { real(static_cast<double>(value)); }
    // UTF-8, valid only during the call; it may hold NUL bytes.
    virtual void text(std::string_view value) = 0;
    virtual void date(Date value) = 0;
    virtual void url(const Url& value) = 0;

    virtual void beginArray() = 0;
    virtual void endArray() = 0;
    virtual void beginDictionary() = 0;
    virtual void key(std::string_view key) = 0;
    virtual void endDictionary() = 0;

    // Where the next value goes, for errors.
    virtual CodingPath codingPath() const = 0;
};

}  // namespace Platform
