#include <map>
#include <thread>

#include <gtest/gtest.h>

#include "Fennick/coding/AnyCodable.h"
#include "Fennick/coding/AnyDecodable.h"
#include "Fennick/coding/AnyDictionary.h"
#include "Fennick/coding/AnyEncodable.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"

namespace Fennick {

namespace {

using Kind = AnyValue::Kind;
using Platform::JSONDecoder;
using Platform::JSONEncoder;
using Platform::Number;

AnyValue decoded(std::string_view json)
{
    return JSONDecoder().decode<AnyDecodable>(json).value;
}

std::string encoded(const AnyEncodable& any)
{
    return JSONEncoder().encode(any);
}

TEST(AnyCoding, DecodesEachJsonKindAsItsFirstFittingType)
{
    const std::pair<std::string_view, Kind> cases[] = {
        {"null", Kind::null},       {"true", Kind::boolean},
        {"1", Kind::intWord},       {"9223372036854775808", Kind::uintWord},
        {"1.0", Kind::float64},     {"\"longer than what fits inside\"", Kind::text},
        {"[1,\"a\"]", Kind::array}, {"{\"a\":null}", Kind::dictionary},
    };
    for (const auto& [json, kind] : cases) {
        EXPECT_EQ(decoded(json).kind(), kind) << json;
        EXPECT_EQ(encoded(decoded(json)), json);
    }
}

TEST(AnyCoding, AnyDocumentComesBackAsTheSameJson)
{
    std::string json = R"({"limits":[10,2.5,{"deep":[[],{},"\u0000",-1]}],"long key beyond the inline":true)";
    for (int i = 0; i < 40; ++i) json += ",\"k" + std::to_string(i) + "\":" + std::to_string(i);
    json += '}';
    const auto any = JSONDecoder().decode<AnyCodable>(json);
    EXPECT_EQ(JSONEncoder().encode(any), json);
    EXPECT_EQ(any.value["k39"], 39);
    EXPECT_EQ(any.value["limits"][2]["deep"][3], -1);
    EXPECT_TRUE(any.value["limits"][7]["nowhere"].isEmpty());
    AnyValue part = decoded(json)["limits"];  // outlives its document, and goes on another thread
    std::thread([taken = std::move(part)] { EXPECT_EQ(taken[2]["deep"][3], -1); }).join();
    for (const std::string key : {"a", "a key beyond the inline"}) {
        const std::string twice = "{\"" + key + R"(":1,"b":2,")" + key + R"(":3})";
        EXPECT_EQ(decoded(twice), AnyValue(AnyDictionary{{"b", 2}, {key, 3}}));
    }
}

TEST(AnyCoding, EncodesEveryKindAsItself)
{
    const std::pair<AnyValue, std::string_view> cases[] = {
        {std::optional<int>(), "null"},
        {0.1f, "0.1"},
        {Number(static_cast<signed char>(7)), "true"},
        {Platform::Date(1.5), "1.5"},
        {*Platform::Url::parse("https://a.b/c"), "\"https://a.b/c\""},
        {std::vector<std::optional<int>>{1, std::nullopt}, "[1,null]"},
        {std::map<std::string, std::vector<bool>>{{"a", {true}}, {"b", {}}}, R"({"a":[true],"b":[]})"},
    };
    for (const auto& [value, json] : cases) EXPECT_EQ(encoded(value), json);
}

TEST(AnyCoding, RefusesWithFixedWordsAndThePath)
{
    struct Custom {};
    for (const AnyValue& refused : {AnyValue::object(Custom{}), AnyValue(AnyDictionary{{1, "one"}})}) {
        try {
            encoded(AnyDictionary{{"a", AnyArray{0, refused}}});
            ADD_FAILURE();
        } catch (const Platform::EncodingError& error) {
            EXPECT_STREQ(error.what(), "a[1]: AnyEncodable value cannot be encoded");
            EXPECT_EQ(std::any_cast<AnyValue>(error.value()), refused);
        }
    }
}

TEST(AnyValueTest, CopiesAreIndependent)
{
    AnyValue first = AnyDictionary{{"list", AnyArray{1, "a text that does not fit inside"}}};
    AnyValue second = first;
    second.editDictionary()["list"].editArray().push_back(3);
    EXPECT_EQ(first["list"].count(), 2u);
    EXPECT_EQ(second["list"][2], 3);
    second = second["list"];  // a part of itself
    EXPECT_EQ(second[0], 1);
    EXPECT_TRUE(first.editDictionary().remove("list"));
    EXPECT_EQ(first.count(), 0u);
}

TEST(AnyValueTest, EqualValuesHashAlikeAndNumbersCompareByValue)
{
    const std::vector<std::vector<AnyValue>> groups = {
        {1, 1l, 1u, 1.0, 1.0f, Number(1)},
        {true, Number(true)},
        {9223372036854775808ull, 9223372036854775808.0},
        {nullptr, AnyValue()},
        {1.5, 1.5f},
        {AnyArray{1, AnyArray{}}, AnyArray{1.0, AnyArray{}}},
        {AnyDictionary{{"a", 1}, {"b", 2}}, AnyDictionary{{"b", 2}, {"a", 1}}},
        {Platform::Date(1)},
    };
    for (const auto& group : groups) {
        for (const auto& other : groups) {
            for (const AnyValue& value : group) {
                EXPECT_EQ(value == other.back(), &group == &other);
                EXPECT_TRUE(&group != &other || value.hash() == other.back().hash());
            }
        }
    }
}

TEST(AnyValueTest, DepthOf500000IsNeverTheDepthOfTheStack)
{
    const auto nested = [] {
        AnyValue value = 1;
        for (int i = 0; i < 250000; ++i) value = AnyDictionary{{"k", AnyArray{std::move(value)}}};
        return value;
    };
    AnyValue deep = nested();
    const AnyValue copy = deep;
    EXPECT_TRUE(deep == nested());
    EXPECT_EQ(deep.hash(), copy.hash());
    EXPECT_THROW(encoded(deep), Platform::EncodingError);
    Platform::ValueTape tape;
    Platform::Encoder::write(AnyEncodable(deep), tape);
    Platform::TapeSource source(tape);
    EXPECT_TRUE(Platform::Decoder(source).decode<AnyDecodable>().value == deep);
    deep.editDictionary()["k"] = 0;
    EXPECT_EQ(copy["k"][0]["k"].count(), 1u);
}

}  // namespace

}  // namespace Fennick
