#include "platform/coding/internal/JsonWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <new>

#include "platform/coding/internal/ByteScan.h"
#include "platform/coding/internal/JsonNumber.h"
#include "platform/coding/internal/JsonReader.h"
#include "platform/coding/internal/JsonText.h"

namespace Platform {

namespace {

constexpr std::size_t numberSpace = maximumRealLength + 4;  // with comma
constexpr std::size_t chunk = 1024;
constexpr std::size_t longestEscape = 6;

}  // namespace

JsonWriter::JsonWriter(const JSONEncoder& options, std::string& target)
    : target_(target), dateStrategy_(options.dateStrategy), isPretty_(options.format == JSONEncoder::Format::pretty)
{
    levels_[0] = {};
    grow(chunk);
}

void JsonWriter::grow(std::size_t space)
{
    const std::size_t used = length();
    const std::size_t size = std::max(used + space, static_cast<std::size_t>(end_ - memory_.get()) * 2);
    char* const larger = static_cast<char*>(std::realloc(memory_.get(), size));
    if (larger == nullptr) throw std::bad_alloc();
    static_cast<void>(memory_.release());
    memory_.reset(larger);
    cursor_ = larger + used;
    end_ = larger + size;
}

// Comma and line break of an array's element; a member's came with its key.
void JsonWriter::startValue()
{
    Level& level = levels_[static_cast<std::size_t>(depth_)];
    if (level.isArray) {
        if (level.count > 0) put(',');
        startLine(depth_);
    }
    ++level.count;
}

void JsonWriter::breakLine(int depth)
{
    const auto indent = static_cast<std::size_t>(depth) * 2;
    ensure(indent + numberSpace);
    put('\n');
    std::memset(cursor_, ' ', indent);
    cursor_ += indent;
}

void JsonWriter::begin(char bracket, bool isArray)
{
    if (depth_ == JSONDecoder::maximumDepth) {
        throw EncodingError::invalidValue({}, codingPath(), "The value is nested too deeply.");
    }
    ensure(numberSpace);
    startValue();
    put(bracket);
    levels_[static_cast<std::size_t>(++depth_)] = {0, 0, isArray};
}

void JsonWriter::end(char bracket)
{
    ensure(numberSpace);
    const bool hadValues = levels_[static_cast<std::size_t>(depth_--)].count > 0;
    if (hadValues) startLine(depth_);
    put(bracket);
}

void JsonWriter::word(std::string_view text)
{
    ensure(numberSpace);
    startValue();
    std::memcpy(cursor_, text.data(), text.size());
    cursor_ += text.size();
}

void JsonWriter::integer(std::int64_t value)
{
    ensure(numberSpace);
    startValue();
    cursor_ = std::to_chars(cursor_, end_, value).ptr;
}

void JsonWriter::unsignedInteger(std::uint64_t value)
{
    ensure(numberSpace);
    startValue();
    cursor_ = std::to_chars(cursor_, end_, value).ptr;
}

void JsonWriter::real(double value)
{
    if (!std::isfinite(value)) {
        throw EncodingError::invalidValue(value, codingPath(), "JSON has no form for a number that is not finite.");
    }
    ensure(numberSpace);
    startValue();
    cursor_ = writeReal(value, cursor_);
}

void JsonWriter::real32(float value)
{
    if (!std::isfinite(value)) return real(static_cast<double>(value));
    ensure(numberSpace);
    startValue();
    cursor_ = writeReal32(value, cursor_);
}

void JsonWriter::date(Date value)
{
    switch (dateStrategy_) {
        case DateStrategy::secondsSince1970:
            return real(value.timeIntervalSince1970());
        case DateStrategy::millisecondsSince1970:
            return real(value.timeIntervalSince1970() * 1000);
        case DateStrategy::iso8601:
            break;
    }
    const auto written = iso8601Text(value);
    if (!written) throw EncodingError::invalidValue(value, codingPath(), "ISO 8601 has no form for this date.");
    text(*written);
}

void JsonWriter::text(std::string_view value)
{
    ensure(numberSpace);
    startValue();
    if (quoted(value)) return;
    --levels_[static_cast<std::size_t>(depth_)].count;
    refuseText(value);
}

void JsonWriter::key(std::string_view key)
{
    ensure(numberSpace);
    Level& level = levels_[static_cast<std::size_t>(depth_)];
    if (level.count > 0) put(',');
    startLine(depth_);
    level.keyAt = length() + 1;
    if (!quoted(key)) {
        level.keyAt = 0;
        refuseText(key);
    }
    put(':');
    if (isPretty_) put(' ');
}

bool JsonWriter::quoted(std::string_view text)
{
    const std::string_view start = text.substr(0, chunk);
    ensure(start.size() * longestEscape + numberSpace);
    put('"');
    text.remove_prefix(copyPlain(start, ByteScan::highs));
    if (!text.empty() && !quotedWithCare(text)) return false;
    put('"');
    return true;
}

// What begins with a byte that is not copied plainly, or where a chunk ended.
bool JsonWriter::quotedWithCare(std::string_view rest)
{
    std::uint64_t highBits = ByteScan::highs;
    while (!rest.empty()) {
        ensure(std::min(rest.size(), chunk) * longestEscape + numberSpace);
        rest.remove_prefix(copyPlain(rest.substr(0, chunk), highBits));
        if (rest.empty()) break;
        const char next = rest.front();
        if (static_cast<unsigned char>(next) < 0x80) {
            const bool isPlain = next >= 0x20 && next != '"' && next != '\\';
            isPlain ? put(next) : escape(next);
            rest.remove_prefix(1);
        } else if (highBits != 0) {
            if (!isJsonText(rest)) return false;
            highBits = 0;
        } else {
            put(next);
            rest.remove_prefix(1);
        }
    }
    return true;
}

// Copies what needs no care; how much that was.
std::size_t JsonWriter::copyPlain(std::string_view text, std::uint64_t highBits)
{
    constexpr std::size_t word = 8;
    if (text.size() < word) return copyPlain(ByteScan::loadFew(text.data(), text.size()), highBits);
    for (std::size_t at = 0;;) {
        const std::size_t copied = copyPlain(ByteScan::load(text.data() + at), highBits);
        at += copied;
        if (copied < word || at == text.size()) return at;
        const std::size_t rest = text.size() - at;
        if (rest >= word) continue;
        at -= word - rest;  // the last word begins with bytes that are copied already
        cursor_ -= word - rest;
    }
}

void JsonWriter::escape(char c)
{
    constexpr std::string_view special = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    constexpr char digits[] = "0123456789abcdef";
    put('\\');
    if (const std::size_t place = special.find(c); place != std::string_view::npos) return put(letters[place]);
    std::memcpy(cursor_, "u00", 3);
    cursor_ += 3;
    put(digits[static_cast<unsigned char>(c) >> 4]);
    put(digits[c & 15]);
}

void JsonWriter::refuseText(std::string_view text) const
{
    throw EncodingError::invalidValue(std::string(text), codingPath(), "The text is not UTF-8.");
}

CodingKey JsonWriter::lastKey(const Level& level) const
{
    const char* start = memory_.get() + level.keyAt;
    const char* end = start;
    while (end < cursor_ && *end != '"') end += *end == '\\' ? 2 : 1;
    std::string key;
    appendUnescaped({start, static_cast<std::size_t>(end - start)}, key);
    return CodingKey::member(std::move(key));
}

CodingPath JsonWriter::codingPath() const
{
    CodingPath path;
    for (int depth = 1; depth <= depth_; ++depth) {
        const Level& level = levels_[static_cast<std::size_t>(depth)];
        const std::size_t index = depth < depth_ ? level.count - 1 : level.count;
        if (level.isArray) path.push_back(CodingKey::element(index));
        if (!level.isArray && level.keyAt > 0) path.push_back(lastKey(level));
    }
    return path;
}

}  // namespace Platform
