#include "platform/coding/internal/JsonReader.h"

#include <cstring>
#include <memory>
#include <new>
#include <string>

#include <simdjson.h>

#include "platform/coding/CodingErrors.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/internal/ByteScan.h"
#include "platform/coding/internal/JsonNumber.h"
#include "platform/coding/internal/JsonText.h"

namespace Platform {

namespace {

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

// The document's bytes with what the scanner may read behind them.
class PaddedText {
public:
    explicit PaddedText(std::string_view text)
        : bytes_(std::make_unique_for_overwrite<char[]>(text.size() + simdjson::SIMDJSON_PADDING)), size_(text.size())
    {
        text.copy(bytes_.get(), text.size());
        std::memset(bytes_.get() + text.size(), 0, simdjson::SIMDJSON_PADDING);
    }
    const char* data() const { return bytes_.get(); }
    std::size_t size() const { return size_; }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

// The next quote or backslash; the scanner has seen that a quote comes.
const char* nextMark(const char* at)
{
    for (;; at += 8) {
        const std::uint64_t word = ByteScan::load(at);
        const std::uint64_t marks = ByteScan::equalTo(word, '"') | ByteScan::equalTo(word, '\\');
        if (marks != 0) return at + ByteScan::first(marks);
    }
}

// One reading. The scanner checks UTF-8 and the ends of texts and finds where
// each bracket, comma, colon, text and word begins; the grammar, numbers and
// texts are ours (the scanner's own tree would refuse an integer past 64 bits).
class Reader {
public:
    Reader(std::string_view json, ValueSink& sink) : text_(json), sink_(sink) {}

    void read()
    {
        constexpr std::size_t depthOfItsTree = 1;
        const auto* fastest = static_cast<const simdjson::implementation*>(simdjson::get_active_implementation());
        check(fastest->create_dom_parser_implementation(text_.size(), depthOfItsTree, scanner_));
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(text_.data());
        check(scanner_->stage1(bytes, text_.size(), simdjson::stage1_mode::regular));
        next_ = scanner_->structural_indexes.get();
        end_ = next_ + scanner_->n_structural_indexes;
        value(1);
        if (next_ != end_) refuse("there is more behind its end");
    }

private:
    void check(simdjson::error_code error) const
    {
        if (error == simdjson::MEMALLOC) throw std::bad_alloc();
        if (error != simdjson::SUCCESS) refuse(simdjson::error_message(error));
    }

    [[noreturn]] void refuse(std::string_view reason) const
    {
        throw DecodingError::dataCorrupted(sink_.codingPath(), std::string(notJson) + ": " + std::string(reason) + ".");
    }

    // Where the next token begins; behind the last one at the padding's NUL.
    const char* peek() const { return text_.data() + (next_ != end_ ? *next_ : text_.size()); }
    const char* take()
    {
        if (next_ == end_) refuse("its end is missing");
        return text_.data() + *next_++;
    }

    void value(int depth)
    {
        const char* const at = take();
        switch (*at) {
            case '[':
                return array(depth);
            case '{':
                return dictionary(depth);
            case '"':
                return sink_.text(takeText(at + 1));
            default:
                return scalar({at, peek()});
        }
    }

    void enter(int depth) const
    {
        if (depth <= JSONDecoder::maximumDepth) return;
        throw DecodingError::dataCorrupted(sink_.codingPath(), "The document is nested too deeply.");
    }

    void array(int depth)
    {
        enter(depth);
        sink_.beginArray();
        if (*peek() == ']') {
            take();
            return sink_.endArray();
        }
        do {
            value(depth + 1);
        } while (goesOn(']'));
        sink_.endArray();
    }

    void dictionary(int depth)
    {
        enter(depth);
        sink_.beginDictionary();
        if (*peek() == '}') {
            take();
            return sink_.endDictionary();
        }
        do {
            member(depth);
        } while (goesOn('}'));
        sink_.endDictionary();
    }

    void member(int depth)
    {
        const char* const at = take();
        if (*at != '"') refuse("a key was expected");
        sink_.key(takeText(at + 1));
        if (*take() != ':') refuse("a colon was expected");
        value(depth + 1);
    }

    // Whether a comma comes, else the closing bracket.
    bool goesOn(char bracket)
    {
        const char mark = *take();
        if (mark != ',' && mark != bracket) refuse("a comma or a closing bracket was expected");
        return mark == ',';
    }

    // The text from behind its opening quote; valid until the next one.
    std::string_view takeText(const char* start)
    {
        const char* end = nextMark(start);
        if (*end == '"') return {start, end};
        while (*end == '\\') end = nextMark(end + 2);
        unescaped_.clear();
        if (!appendUnescaped({start, end}, unescaped_)) {
            refuse("a text holds an escape without meaning or half of a surrogate pair");
        }
        return unescaped_;
    }

    void scalar(std::string_view token)
    {
        token = withoutTrailingSpace(token);
        switch (token.front()) {
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

    PaddedText text_;
    ValueSink& sink_;
    std::unique_ptr<simdjson::internal::dom_parser_implementation> scanner_;
    const std::uint32_t* next_ = nullptr;  // places of the tokens that are not taken yet
    const std::uint32_t* end_ = nullptr;
    std::string unescaped_;
};

}  // namespace

void readJson(std::string_view json, ValueSink& sink)
{
    Reader(withoutByteOrderMark(json), sink).read();
}

bool isJsonText(std::string_view bytes)
{
    return simdjson::validate_utf8(bytes);
}

}  // namespace Platform
