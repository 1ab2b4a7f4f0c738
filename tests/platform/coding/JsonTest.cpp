#include <charconv>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"
#include "tests/support/Torture.h"

namespace Platform {

namespace {

// Shows which event each value came as: i integer, u unsigned, r real.
class EventText final : public ValueSink {
public:
    std::string text_;

    void null() override { text_ += "null "; }
    void boolean(bool value) override { text_ += value ? "yes " : "no "; }
    void integer(std::int64_t value) override { text_ += 'i' + std::to_string(value) + ' '; }
    void unsignedInteger(std::uint64_t value) override { text_ += 'u' + std::to_string(value) + ' '; }
    void real(double value) override
    {
        char digits[32];
        text_ += 'r' + std::string(digits, std::to_chars(digits, digits + 32, value).ptr) + ' ';
    }
    void text(std::string_view value) override { text_ += '\'' + std::string(value) + "' "; }
    void date(Date) override { text_ += "date "; }
    void url(const Url& value) override { text_ += value.absoluteString() + ' '; }
    void beginArray() override { text_ += "[ "; }
    void endArray() override { text_ += "] "; }
    void beginDictionary() override { text_ += "{ "; }
    void key(std::string_view key) override { text_ += std::string(key) + ": "; }
    void endDictionary() override { text_ += "} "; }
    CodingPath codingPath() const override { return {}; }
};

// The document by way of the tape, or the error's text.
std::string eventsOf(std::string_view json)
{
    try {
        const auto source = JSONDecoder().sourceOf(json);
        EventText direct;
        source->read(direct);
        EventText replayed;
        source->tape().replay(0, replayed);
        EXPECT_EQ(direct.text_, replayed.text_);
        return direct.text_.substr(0, direct.text_.size() - 1);
    } catch (const DecodingError&) {
        // The tape knows the path.
    }
    try {
        const auto source = JSONDecoder().sourceOf(json);
        source->tape();
    } catch (const DecodingError& error) {
        return "at " + pathText(error.codingPath()) + ": " + error.description();
    }
    return "read once but not twice";
}

using namespace std::string_view_literals;

struct ReadCase {
    std::string_view json;
    std::string_view events;
};

TEST(JsonReading, GivesEachDocumentItsValues)
{
    const ReadCase cases[] = {
        {"null", "null"},
        {" true ", "yes"},
        {"\xef\xbb\xbf[false]", "[ no ]"},
        {"0", "i0"},
        {"-0", "i0"},
        {"9223372036854775807", "i9223372036854775807"},
        {"9223372036854775808", "u9223372036854775808"},
        {"18446744073709551615", "u18446744073709551615"},
        {"18446744073709551616", "r18446744073709551616"},
        {"-9223372036854775808", "i-9223372036854775808"},
        {"-9223372036854775809", "r-9223372036854775808"},
        {"1e2", "i100"},
        {"1000e-2", "i10"},
        {"1e19", "u10000000000000000000"},
        {"100000000000000000000000e-10", "i10000000000000"},
        {"0e99999999999", "i0"},
        {"1e20", "r1e+20"},
        {"12e-1", "r1.2"},
        {"1.0", "r1"},
        {"-1.5e1", "r-15"},
        {"0.1", "r0.1"},
        {"2.2250738585072011e-308", "r2.225073858507201e-308"},
        {"1.7976931348623157e308", "r1.7976931348623157e+308"},
        {"1e-400", "r0"},
        {"0.00000000000000000001e30", "r1e+10"},
        {R"("")", "''"},
        {R"("a\"\\\/\b\f\n\r\t")", "'a\"\\/\b\f\n\r\t'"},
        {R"("\u00e9\u20ac\ud83d\ude00")", "'\u00e9\u20ac\U0001f600'"},
        {R"("a\u0000b")", "'a\0b'"sv},
        {R"({"a\u0000":1,"":{}})", "{ a\0: i1 : { } }"sv},
        {R"({"k":1,"k":[2,{}],"l":null})", "{ k: i1 k: [ i2 { } ] l: null }"},
        {" [ [ ] , { \"a\" : [ 1 ] } ] ", "[ [ ] { a: [ i1 ] } ]"},
    };
    for (const auto& [json, events] : cases) EXPECT_EQ(eventsOf(json), events) << json;
}

TEST(JsonReading, TellsWhereAndWhyItRefuses)
{
    const ReadCase cases[] = {
        {R"({"a":[1,{"b":1e999}]})", "at a[1].b: The number is outside a double's range."},
        {"-1e400", "at : The number is outside a double's range."},
        {R"(["\ud800"])", "at [0]: The text is not valid JSON"},
        {R"(["\ud800\u0041"])", "at [0]: The text is not valid JSON"},
        {R"({"a":"\udc00"})", "at a: The text is not valid JSON"},
        {R"({"\ud800":1})", "at : The text is not valid JSON"},
        {R"({"a":[1,2,01]})", "at a[2]: The text is not valid JSON"},
        {R"({"a":1,"b":{"c":tru}})", "at b.c: The text is not valid JSON"},
        {R"({"a":1 "b":2})", "at : The text is not valid JSON"},
    };
    for (const auto& [json, message] : cases) EXPECT_EQ(eventsOf(json).substr(0, message.size()), message) << json;
}

TEST(JsonReading, RefusesEverythingThatIsNotJson)
{
    const std::string_view brief[] = {"",         " ",      "[",        "]",        "{",      "}",        "[1,]",
                                      "[,1]",     "[1 2]",  "[1],",     "[] []",    "{}x",    "1 2",      "1x",
                                      "+1",       ".5",     "1.",       "1e",       "1e+",    "-",        "--1",
                                      "0x10",     "NaN",    "Infinity", "nul",      "nulll",  "True",     "'a'",
                                      "\"a",      "\"a\"b", "{\"a\"}",  "{\"a\":}", "{a:1}",  "{1:2}",    "[\"\t\"]",
                                      "\"\x80\"", "\0"sv,   "[1\0]"sv,  "[1}",      "\"\\\"", "[\"\\\"]", "[1:2]"};
    const std::string_view longer[] = {"\"a\" \"b\"",        "{\"a\":1,}", "[\"\\x\"]", "[\"\\u12g4\"]",
                                       "[\"\xed\xa0\x80\"]", "\"a\0b\""sv, "{\"a\":1]", "{\"a\":1:2}",
                                       "{\"a\",1}",          "[\"a\":1]"};
    for (const auto json : brief) EXPECT_TRUE(eventsOf(json).starts_with("at ")) << json;
    for (const auto json : longer) EXPECT_TRUE(eventsOf(json).starts_with("at ")) << json;
}

TEST(JsonReading, EndsAtItsDepthLimitWhateverTheDepth)
{
    const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_TRUE(eventsOf(nested(JSONDecoder::maximumDepth)).starts_with("[ [ "));
    EXPECT_NE(eventsOf(nested(JSONDecoder::maximumDepth + 1)).find("nested too deeply"), std::string::npos);
    EXPECT_NE(eventsOf(std::string(500000, '[')).find("at "), std::string::npos);
    EXPECT_NE(eventsOf(nested(500000)).find("at [0][0]"), std::string::npos);
    std::string members;
    for (int i = 0; i < 100000; ++i) members += "{\"a\":";
    EXPECT_TRUE(eventsOf(members).starts_with("at "));
}

TEST(JsonWriting, WritesDoublesShortAndReadsThemBackExactly)
{
    const std::pair<double, std::string_view> cases[] = {
        {0.0, "0.0"},
        {-0.0, "-0.0"},
        {1.0, "1.0"},
        {0.1, "0.1"},
        {-2.5, "-2.5"},
        {1e17, "1.0e+17"},
        {1e22, "1.0e+22"},
        {5e-324, "5.0e-324"},
        {1e-7, "0.0000001"},
        {123456.789, "123456.789"},
        {0.1 + 0.2, "0.30000000000000004"},
    };
    for (const auto& [value, text] : cases) {
        const std::string json = JSONEncoder().encode(value);
        EXPECT_EQ(json, text);
        EXPECT_EQ(std::signbit(JSONDecoder().decode<double>(json)), std::signbit(value));
    }
    EXPECT_EQ(JSONEncoder().encode(0.1f), "0.1");

    std::mt19937_64 random(Tests::seedOf(7));
    for (long i = Tests::atLength("numbers", 200'000); i > 0; --i) {
        double value = std::bit_cast<double>(random());
        if (i % 2 == 0) value = static_cast<double>(random() % 100000000) / std::pow(10, static_cast<double>(i % 9));
        if (!std::isfinite(value)) continue;
        const std::string json = JSONEncoder().encode(value);
        ASSERT_EQ(JSONDecoder().decode<double>(json), value) << json;
        const std::size_t exponent = json.find('e');
        char shortest[40];
        const auto format = exponent == std::string::npos ? std::chars_format::fixed : std::chars_format::scientific;
        const std::string_view peer(shortest, std::to_chars(shortest, shortest + 40, value, format).ptr);
        ASSERT_LE(json.size(), peer.size() + 2) << json;  // ".0"
    }
}

TEST(JsonWriting, EscapesWhatJsonCannotHoldAndNothingElse)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", R"("")"},
        {"a/b", R"("a/b")"},
        {"\"\\\b\f\n\r\t", R"("\"\\\b\f\n\r\t")"},
        {"\0\x1f\x7f"sv, "\"\\u0000\\u001f\x7f\""},
        {"0123456789\"0123456789", R"("0123456789\"0123456789")"},
        {"\u00e9t\u00e9 \U0001f600", "\"\u00e9t\u00e9 \U0001f600\""},
    };
    for (const auto& [text, json] : cases) {
        EXPECT_EQ(JSONEncoder().encode(text), json);
        EXPECT_EQ(JSONDecoder().decode<std::string>(json), text);
    }
    for (std::size_t length : {15u, 1023u, 1024u, 1025u, 5000u}) {
        std::string text(length, 'x');
        text.back() = '\n';
        text.front() = '\x01';
        text[length / 2] = '"';
        EXPECT_EQ(JSONDecoder().decode<std::string>(JSONEncoder().encode(text)), text);
    }
}

TEST(JsonWriting, RefusesWithThePathWhatJsonCannotSay)
{
    const std::map<std::string, std::vector<double>> readings{{"cpu", {1, std::nan("")}}};
    const std::map<std::string, std::vector<std::string>> texts{{"a\"b", {"x", "y", "\xff"}}};
    try {
        JSONEncoder().encode(readings);
        ADD_FAILURE();
    } catch (const EncodingError& error) {
        EXPECT_EQ(pathText(error.codingPath()), "cpu[1]");
        EXPECT_TRUE(std::isnan(std::any_cast<double>(error.value())));
    }
    try {
        JSONEncoder().encode(texts);
        ADD_FAILURE();
    } catch (const EncodingError& error) {
        EXPECT_STREQ(error.what(), "a\"b[2]: The text is not UTF-8.");
    }
}

}  // namespace

}  // namespace Platform
