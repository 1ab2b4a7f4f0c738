#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"
#include "platform/coding/internal/ByteScan.h"

namespace Platform {

// Writes events as JSON text into memory of its own until it is told to finish.
class JsonWriter final : public ValueSink {
public:
    JsonWriter(const JSONEncoder& options, std::string& target);
    ~JsonWriter() override = default;
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void null() override { word("null"); }
    void boolean(bool value) override { word(value ? "true" : "false"); }
    void integer(std::int64_t value) override;
    void unsignedInteger(std::uint64_t value) override;
    void real(double value) override;
    void real32(float value) override;
    void text(std::string_view value) override;
    void date(Date value) override;
    void url(const Url& value) override { text(value.absoluteString()); }
    void beginArray() override { begin('[', true); }
    void endArray() override { end(']'); }
    void beginDictionary() override { begin('{', false); }
    void key(std::string_view key) override;
    void endDictionary() override { end('}'); }
    CodingPath codingPath() const override;

    // Gives the target the text.
    void finish() { target_.assign(memory_.get(), length()); }

private:
    struct Level {
        std::size_t keyAt;  // where the last key's text begins in the text; 0 before it
        std::size_t count;  // values begun
        bool isArray;
    };

    std::size_t length() const { return static_cast<std::size_t>(cursor_ - memory_.get()); }
    void ensure(std::size_t space)
    {
        if (static_cast<std::size_t>(end_ - cursor_) < space) grow(space);
    }
    void grow(std::size_t space);
    void put(char c) { *cursor_++ = c; }
    void startValue();
    void startLine(int depth)
    {
        if (isPretty_) breakLine(depth);
    }
    void breakLine(int depth);
    void begin(char bracket, bool isArray);
    void end(char bracket);
    void word(std::string_view text);
    bool quoted(std::string_view text);
    bool quotedWithCare(std::string_view rest);
    std::size_t copyPlain(std::string_view text, std::uint64_t highBits);
    // The same for one word. A NUL needs care, so it ends a shorter text.
    std::size_t copyPlain(std::uint64_t bytes, std::uint64_t highBits)
    {
        const std::uint64_t marks =
            ByteScan::controlsAndQuotes(bytes) | ByteScan::equalTo(bytes, '\\') | (bytes & highBits);
        std::memcpy(cursor_, &bytes, sizeof bytes);
        cursor_ += ByteScan::first(marks);
        return ByteScan::first(marks);
    }
    void escape(char c);
    [[noreturn]] void refuseText(std::string_view text) const;
    CodingKey lastKey(const Level& level) const;

    struct Free {
        void operator()(char* memory) const { std::free(memory); }
    };

    std::string& target_;
    std::unique_ptr<char, Free> memory_;  // grows without being filled or, when large, copied
    char* cursor_ = nullptr;
    char* end_ = nullptr;
    DateStrategy dateStrategy_;
    bool isPretty_;
    int depth_ = 0;
    std::array<Level, JSONDecoder::maximumDepth + 1> levels_;  // level 0 is the document
};

}  // namespace Platform
