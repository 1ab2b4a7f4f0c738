#include "platform/coding/internal/JsonReader.h"

#include <memory>
#include <optional>
#include <string>

#include <simdjson.h>

#include "platform/coding/CodingErrors.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/internal/ByteScan.h"
#include "platform/coding/internal/JsonNumber.h"
#include "platform/coding/internal/JsonText.h"

namespace Platform {

namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::string_view notJson = "The text is not valid JSON";

std::string_view withoutByteOrderMark(std::string_view json)
{
    return json.starts_with("\xef\xbb\xbf") ? json.substr(3) : json;
}

std::string_view withoutTrailingSpace(std::string_view token)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    while (!token.empty() && isSpace(token.back())) token.remove_suffix(1);
    return token;
}

// One reading: the parser's tokens, converted here and fed to the sink. The
// parser finds structure and checks UTF-8; what it would convert for us, it
// would also refuse (an integer past 64 bits).
class Reader {
public:
    Reader(const simdjson::padded_string& json, ValueSink& sink) : json_(json), sink_(sink) {}

    void read()
    {
        ondemand::document document;
        check(parser_.iterate(json_).get(document));
        std::string_view token;
        check(document.raw_json_token().get(token));
        if (!token.starts_with('[') && !token.starts_with('{')) return rootScalar(token);
        ondemand::value root;
        check(document.get_value().get(root));
        value(root, 1);
        if (document.current_location().error() != simdjson::OUT_OF_BOUNDS) refuse("there is more behind its end");
    }

private:
    void check(simdjson::error_code error) const
    {
        if (error != simdjson::SUCCESS) refuse(simdjson::error_message(error));
    }

    [[noreturn]] void refuse(std::string_view reason) const
    {
        throw DecodingError::dataCorrupted(sink_.codingPath(), std::string(notJson) + ": " + std::string(reason) + ".");
    }

    void rootScalar(std::string_view token)
    {
        if (token.data() + token.size() < json_.data() + json_.size()) refuse("there is more behind its end");
        if (!token.starts_with('"')) return scalar(token);
        const std::string_view text = takeText(token.data() + 1);
        const std::size_t behind = static_cast<std::size_t>(textEnd_ - token.data()) + 1;
        if (!withoutTrailingSpace(token.substr(behind)).empty()) refuse("there is more behind its end");
        sink_.text(text);
    }

    void value(ondemand::value& value, int depth)
    {
        const std::string_view token = value.raw_json_token();
        switch (token.front()) {
            case '[':
                return array(value, depth);
            case '{':
                return dictionary(value, depth);
            case '"': {
                ondemand::raw_json_string raw;
                check(value.get_raw_json_string().get(raw));
                return sink_.text(takeText(raw.raw()));
            }
            default:
                return scalar(token);
        }
    }

    void enter(int depth) const
    {
        if (depth <= JSONDecoder::maximumDepth) return;
        throw DecodingError::dataCorrupted(sink_.codingPath(), "The document is nested too deeply.");
    }

    void array(ondemand::value& value, int depth)
    {
        enter(depth);
        ondemand::array elements;
        check(value.get_array().get(elements));
        sink_.beginArray();
        for (auto&& element : elements) {
            ondemand::value item;
            check(std::move(element).get(item));
            this->value(item, depth + 1);
        }
        sink_.endArray();
    }

    void dictionary(ondemand::value& value, int depth)
    {
        enter(depth);
        ondemand::object members;
        check(value.get_object().get(members));
        sink_.beginDictionary();
        for (auto&& member : members) {
            ondemand::field field;
            check(std::move(member).get(field));
            sink_.key(takeText(field.key().raw()));
            ondemand::value item = field.value();
            this->value(item, depth + 1);
        }
        sink_.endDictionary();
    }

    // The text from behind its opening quote; valid until the next one.
    std::string_view takeText(const char* start)
    {
        const char* end = start;
        for (;; end += 8) {
            const std::uint64_t word = ByteScan::load(end);
            const std::uint64_t marks = ByteScan::equalTo(word, '"') | ByteScan::equalTo(word, '\\');
            if (marks == 0) continue;
            end += ByteScan::first(marks);
            break;
        }
        if (*end == '"') {
            textEnd_ = end;
            return {start, static_cast<std::size_t>(end - start)};
        }
        return takeEscapedText(start, end);
    }

    std::string_view takeEscapedText(const char* start, const char* end)
    {
        while (*end != '"') end += *end == '\\' ? 2 : 1;
        textEnd_ = end;
        text_.clear();
        if (!appendUnescaped({start, static_cast<std::size_t>(end - start)}, text_)) {
            refuse("a text holds an escape without meaning or half of a surrogate pair");
        }
        return text_;
    }

    void scalar(std::string_view token)
    {
        token = withoutTrailingSpace(token);
        switch (token.empty() ? '\0' : token.front()) {
            case 't':
                return token == "true" ? sink_.boolean(true) : refuse("unknown word");
            case 'f':
                return token == "false" ? sink_.boolean(false) : refuse("unknown word");
            case 'n':
                return token == "null" ? sink_.null() : refuse("unknown word");
            default:
                return number(token);
        }
    }

    void number(std::string_view token)
    {
        const JsonNumber number = JsonNumber::parse(token);
        switch (number.kind) {
            case JsonNumber::Kind::integer:
                return sink_.integer(number.integer);
            case JsonNumber::Kind::unsignedInteger:
                return sink_.unsignedInteger(number.unsignedInteger);
            case JsonNumber::Kind::real:
                return sink_.real(number.real);
            case JsonNumber::Kind::tooLarge:
                throw DecodingError::dataCorrupted(sink_.codingPath(), "The number is outside a double's range.");
            case JsonNumber::Kind::malformed:
                refuse("a value was expected");
        }
    }

    const simdjson::padded_string& json_;
    ValueSink& sink_;
    ondemand::parser parser_;
    std::string text_;
    const char* textEnd_ = nullptr;
};

}  // namespace

void readJson(std::string_view json, ValueSink& sink)
{
    const simdjson::padded_string padded(withoutByteOrderMark(json));
    Reader(padded, sink).read();
}

bool isJsonText(std::string_view bytes)
{
    return simdjson::validate_utf8(bytes);
}

}  // namespace Platform
