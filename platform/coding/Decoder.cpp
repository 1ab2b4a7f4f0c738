#include "platform/coding/Decoder.h"

#include <charconv>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace Platform {

namespace {

constexpr double twoTo63 = 9223372036854775808.0;
constexpr double twoTo64 = 18446744073709551616.0;

constexpr std::string_view kindNames[] = {"null",   "a boolean", "a number", "a number", "a number",
                                          "a text", "a date",    "a URL",    "an array", "a dictionary"};

template <typename N>
std::string doesNotFit(N number)
{
    char text[32];  // the shortest form that reads back
    char* const end = std::to_chars(text, text + sizeof text, number).ptr;
    return "The number " + std::string(text, end) + " does not fit in the wanted type.";
}

}  // namespace

const ValueTape& DecodingSource::tape()
{
    if (!tape_) {
        ValueTape fresh;
        read(fresh);
        tape_ = std::move(fresh);
    }
    return *tape_;
}

CodingPath Decoder::codingPath() const
{
    return node_ == 0 ? CodingPath() : tape().pathOf(node_);
}

KeyedDecodingContainer Decoder::keyedContainer() const
{
    if (tape().kind(node_) != Kind::dictionary) throwMismatch("a dictionary");
    return KeyedDecodingContainer(*this);
}

UnkeyedDecodingContainer Decoder::unkeyedContainer() const
{
    if (tape().kind(node_) != Kind::array) throwMismatch("an array");
    return UnkeyedDecodingContainer(*this);
}

SingleValueDecodingContainer Decoder::singleValueContainer() const
{
    return SingleValueDecodingContainer(*this);
}

void Decoder::walk(ValueSink& sink) const
{
    if (node_ == 0 && !source_->hasTape()) return source_->read(sink);
    tape().replay(node_, sink);
}

void Decoder::throwMismatch(std::string_view wanted) const
{
    std::string description = "Expected " + std::string(wanted) + " but found ";
    description += kindNames[static_cast<int>(tape().kind(node_))];
    const auto kind = isNull() ? DecodingError::Kind::valueNotFound : DecodingError::Kind::typeMismatch;
    throw DecodingError(kind, codingPath(), description + '.');
}

void Decoder::throwCorrupted(std::string description) const
{
    throw DecodingError::dataCorrupted(codingPath(), std::move(description));
}

bool Decoder::boolean() const
{
    if (tape().kind(node_) != Kind::boolean) throwMismatch("a boolean");
    return tape().boolean(node_);
}

std::int64_t Decoder::signedWithin(std::int64_t low, std::int64_t high) const
{
    std::int64_t value = 0;
    switch (tape().kind(node_)) {
        case Kind::integer:
            value = tape().integer(node_);
            break;
        case Kind::unsignedInteger:
            if (tape().unsignedInteger(node_) > static_cast<std::uint64_t>(high)) {
                throwCorrupted(doesNotFit(tape().unsignedInteger(node_)));
            }
            value = static_cast<std::int64_t>(tape().unsignedInteger(node_));
            break;
        case Kind::real: {
            const double real = tape().real(node_);
            const bool isWhole = real >= -twoTo63 && real < twoTo63 && real == std::trunc(real);
            if (!isWhole) throwCorrupted(doesNotFit(real));
            value = static_cast<std::int64_t>(real);
            break;
        }
        default:
            throwMismatch("a number");
    }
    if (value < low || value > high) throwCorrupted(doesNotFit(value));
    return value;
}

std::uint64_t Decoder::unsignedUpTo(std::uint64_t high) const
{
    std::uint64_t value = 0;
    switch (tape().kind(node_)) {
        case Kind::integer:
            if (tape().integer(node_) < 0) throwCorrupted(doesNotFit(tape().integer(node_)));
            [[fallthrough]];
        case Kind::unsignedInteger:
            value = tape().unsignedInteger(node_);
            break;
        case Kind::real: {
            const double real = tape().real(node_);
            const bool isWhole = real >= 0 && real < twoTo64 && real == std::trunc(real);
            if (!isWhole) throwCorrupted(doesNotFit(real));
            value = static_cast<std::uint64_t>(real);
            break;
        }
        default:
            throwMismatch("a number");
    }
    if (value > high) throwCorrupted(doesNotFit(value));
    return value;
}

double Decoder::real() const
{
    switch (tape().kind(node_)) {
        case Kind::integer:
            return static_cast<double>(tape().integer(node_));
        case Kind::unsignedInteger:
            return static_cast<double>(tape().unsignedInteger(node_));
        case Kind::real:
            return tape().real(node_);
        default:
            throwMismatch("a number");
    }
}

float Decoder::real32() const
{
    const double value = real();
    const auto narrow = static_cast<float>(value);
    if (std::isinf(narrow) && !std::isinf(value)) throwCorrupted(doesNotFit(value));
    return narrow;
}

std::string Decoder::text() const
{
    if (tape().kind(node_) != Kind::text) throwMismatch("a text");
    return std::string(tape().text(node_));
}

Date Decoder::date() const
{
    if (tape().kind(node_) == Kind::date) return Date(tape().real(node_));
    switch (source_->dateStrategy) {
        case DateStrategy::secondsSince1970:
            return Date(real());
        case DateStrategy::millisecondsSince1970:
            return Date(real() / 1000);
        case DateStrategy::iso8601:
            break;
    }
    const auto date = dateFromIso8601(text());
    if (!date) throwCorrupted("Expected a date in ISO 8601 form.");
    return *date;
}

Url Decoder::url() const
{
    const bool isText = tape().kind(node_) == Kind::text || tape().kind(node_) == Kind::url;
    if (!isText) throwMismatch("a URL");
    const auto url = Url::parse(tape().text(node_));
    if (!url) throwCorrupted("Invalid URL.");
    return *url;
}

std::vector<std::pair<std::string_view, Decoder>> KeyedDecodingContainer::members() const
{
    const ValueTape& tape = decoder_.tape();
    std::vector<std::pair<std::string_view, Decoder>> members;
    members.reserve(tape.count(decoder_.node_));
    const auto end = tape.next(decoder_.node_);
    for (auto key = tape.firstChild(decoder_.node_); key < end; key = tape.next(key + 1)) {
        members.emplace_back(tape.text(key), Decoder(*decoder_.source_, key + 1));
    }
    return members;
}

std::vector<std::string> KeyedDecodingContainer::allKeys() const
{
    std::vector<std::string> keys;
    std::unordered_set<std::string_view> seen;
    for (const auto& [key, member] : members()) {
        if (seen.insert(key).second) keys.emplace_back(key);
    }
    return keys;
}

std::optional<Decoder> KeyedDecodingContainer::find(std::string_view key) const
{
    const auto node = decoder_.tape().member(decoder_.node_, key);
    if (!node) return std::nullopt;
    return Decoder(*decoder_.source_, *node);
}

Decoder KeyedDecodingContainer::member(std::string_view key) const
{
    if (const auto found = find(key)) return *found;
    throw DecodingError(DecodingError::Kind::keyNotFound, codingPath(),
                        "No value associated with key \"" + std::string(key) + "\".");
}

UnkeyedDecodingContainer::UnkeyedDecodingContainer(const Decoder& decoder)
    : decoder_(decoder), next_(decoder.tape().firstChild(decoder.node_))
{
}

bool UnkeyedDecodingContainer::decodeNil()
{
    if (isAtEnd() || decoder_.tape().kind(next_) != ValueTape::Kind::null) return false;
    next();
    return true;
}

Decoder UnkeyedDecodingContainer::next()
{
    if (isAtEnd()) {
        CodingPath path = codingPath();
        path.push_back(CodingKey::element(index_));
        throw DecodingError(DecodingError::Kind::valueNotFound, std::move(path), "The array has no more values.");
    }
    const Decoder element(*decoder_.source_, next_);
    next_ = decoder_.tape().next(next_);
    ++index_;
    return element;
}

}  // namespace Platform
