#include <charconv>
#include <cmath>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"
#include "tests/support/Torture.h"

namespace Platform {

namespace {

using namespace std::string_view_literals;

// The document as it is written again, or the error's text; its path is known only to the tape.
std::string readOnce(std::string_view json, bool isTaped)
try {
    const auto source = JSONDecoder().sourceOf(json);
    std::string text;
    JSONEncoder().write([&](ValueSink& sink) { isTaped ? source->tape().replay(0, sink) : source->read(sink); }, text);
    return text;
} catch (const DecodingError& error) {
    return isTaped ? error.what() : error.description();
}

std::string read(std::string_view json)
{
    const std::string taped = readOnce(json, true);
    EXPECT_THAT(taped, testing::EndsWith(readOnce(json, false)));
    return taped;
}

TEST(JsonReading, GivesEachDocumentItsValues)
{
    const std::string_view unchanged =
        R"([null,false,0,0.1,1.0,9223372036854775807,9223372036854775808,18446744073709551615,-9223372036854775808,)"
        R"("","a\"\\\b\f\n\r\t\u0000b",{"a\u0000":1,"":{}},{"k":1,"k":[2,{}],"l":null}])";
    EXPECT_EQ(read(unchanged), unchanged);
    const std::pair<std::string_view, std::string_view> cases[] = {
        {" true ", "true"},
        {"\xef\xbb\xbf[]", "[]"},
        {"-0", "0"},
        {"[1e2,1000e-2,1e19,100000000000000000000000e-10,0e99999999999]",
         "[100,10,10000000000000000000,10000000000000,0]"},
        {"[1e20,12e-1,-1.5e1,1e-400,0.00000000000000000001e30]", "[1.0e+20,1.2,-15.0,0.0,10000000000.0]"},
        {"[18446744073709551616,-9223372036854775809]", "[18446744073709551616.0,-9223372036854775808.0]"},
        {"[2.2250738585072011e-308,1.7976931348623157e308]", "[2.225073858507201e-308,1.7976931348623157e+308]"},
        {R"("\/\u20ac\ud83d\ude00")", R"("/€😀")"},
        {" [ [ ] , { \"a\" : 1 } ] ", R"([[],{"a":1}])"},
    };
    for (const auto& [json, value] : cases) EXPECT_EQ(read(json), value) << json;
}

TEST(JsonReading, TellsWhereAndWhyItRefuses)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"a":[1,{"b":1e999}]})", "a[1].b: The number is outside a double's range."},
        {"-1e400", "The number is outside a double's range."},
        {R"(["\ud800"])", "[0]: The text is not valid JSON"},
        {R"(["\ud800\u0041"])", "[0]: The text is not valid JSON"},
        {R"({"a":"\udc00"})", "a: The text is not valid JSON"},
        {R"({"\ud800":1})", "The text is not valid JSON"},
        {R"({"a":[1,2,01]})", "a[2]: The text is not valid JSON"},
        {R"({"a":1,"b":{"c":tru}})", "b.c: The text is not valid JSON"},
        {R"({"a":1 "b":2})", "The text is not valid JSON"},
    };
    for (const auto& [json, message] : cases) EXPECT_THAT(read(json), testing::StartsWith(message)) << json;
}

TEST(JsonReading, RefusesEverythingThatIsNotJson)
{
    const std::string_view brief[] = {"",         " ",      "[",        "]",        "{",      "}",        "[1,]",
                                      "[,1]",     "[1 2]",  "[1],",     "[] []",    "{}x",    "1 2",      "1x",
                                      "+1",       ".5",     "1.",       "1e",       "1e+",    "-",        "--1",
                                      "0x10",     "NaN",    "Infinity", "nul",      "nulll",  "True",     "'a'",
                                      "\"a",      "\"a\"b", "{\"a\"}",  "{\"a\":}", "{a:1}",  "{1:2}",    "[\"\t\"]",
                                      "\"\x80\"", "\0"sv,   "[1\0]"sv,  "[1}",      "\"\\\"", "[\"\\\"]", "[1:2]"};
    const std::string_view longer[] = {R"({"a":1,})", R"(["\x"])",    R"(["\u12g4"])", "\"\xed\xa0\x80\"", "\"a\0b\""sv,
                                       R"({"a":1])",  R"({"a":1:2})", R"({"a",1})",    R"(["a":1])"};
    for (const auto json : brief) EXPECT_THAT(read(json), testing::HasSubstr("not valid JSON")) << json;
    for (const auto json : longer) EXPECT_THAT(read(json), testing::HasSubstr("not valid JSON")) << json;
}

TEST(JsonReading, EndsAtItsDepthLimitWhateverTheDepth)
{
    const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_THAT(read(nested(JSONDecoder::maximumDepth)), testing::StartsWith("[[["));
    for (const std::size_t depth : {JSONDecoder::maximumDepth + 1, 500000}) {
        EXPECT_THAT(read(nested(depth)), testing::HasSubstr("nested too deeply")) << depth;
    }
    std::string members;
    for (int i = 0; i < 100000; ++i) members += "{\"a\":";
    for (const std::string& open : {std::string(500000, '['), members}) {
        EXPECT_THROW(JSONDecoder().sourceOf(open)->tape(), DecodingError);
    }
}

TEST(JsonWriting, WritesDoublesShortAndReadsThemBackExactly)
{
    const std::pair<double, std::string_view> cases[] = {{-0.0, "-0.0"},
                                                         {1e17, "1.0e+17"},
                                                         {5e-324, "5.0e-324"},
                                                         {1e-7, "0.0000001"},
                                                         {0.1 + 0.2, "0.30000000000000004"}};
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
        {"a/b", R"("a/b")"},
        {"\"\\\b\f\n\r\t", R"("\"\\\b\f\n\r\t")"},
        {"\0\x1f\x7f"sv, "\"\\u0000\\u001f\x7f\""},
        {"été 😀", R"("été 😀")"},
    };
    for (const auto& [text, json] : cases) {
        EXPECT_EQ(JSONEncoder().encode(text), json);
        EXPECT_EQ(JSONDecoder().decode<std::string>(json), text);
    }
    for (const std::size_t length : {15, 1023, 1024, 1025, 5000}) {
        std::string text(length, 'x');
        text.front() = text[length / 2] = text.back() = '\n';
        EXPECT_EQ(JSONDecoder().decode<std::string>(JSONEncoder().encode(text)), text);
    }
}

TEST(JsonWriting, RefusesWithThePathWhatJsonCannotSay)
{
    const auto refusal = [](const auto& value) {
        try {
            return JSONEncoder().encode(std::map<std::string, std::decay_t<decltype(value)>>{{"a\"b", value}});
        } catch (const EncodingError& error) {
            return std::string(error.what());
        }
    };
    EXPECT_EQ(refusal(std::vector{1, std::nan("")}), "a\"b[1]: JSON has no form for a number that is not finite.");
    EXPECT_EQ(refusal(std::vector<std::string>{"x", "y", "\xff"}), "a\"b[2]: The text is not UTF-8.");
}

}  // namespace

}  // namespace Platform
