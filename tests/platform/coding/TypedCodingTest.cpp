#include <cmath>

#include <gtest/gtest.h>

#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"

namespace Platform {

namespace {

struct Sensor {
    std::string name;
    std::optional<double> limit;
    std::uint8_t channel = 0;

    static constexpr auto codingFields()
    {
        return std::tuple(codingField("name", &Sensor::name), codingField("limit", &Sensor::limit),
                          codingField("channel", &Sensor::channel));
    }
    friend bool operator==(const Sensor&, const Sensor&) = default;
};

struct Station {
    std::vector<Sensor> sensors;
    std::map<std::string, std::int64_t> totals;
    Date since;
    std::optional<Url> page;

    static constexpr auto codingFields()
    {
        return std::tuple(codingField("sensors", &Station::sensors), codingField("totals", &Station::totals),
                          codingField("since", &Station::since), codingField("page", &Station::page));
    }
    friend bool operator==(const Station&, const Station&) = default;
};

// Written by hand: a point as an array, with a nested dictionary behind it.
struct Point {
    int x = 0;
    int y = 0;

    void encode(Encoder& encoder) const
    {
        auto list = encoder.unkeyedContainer();
        list.encode(x);
        list.nestedContainer().encode(y, "y");
        list.encodeNil();
    }
    static Point decode(const Decoder& decoder)
    {
        auto list = decoder.unkeyedContainer();
        Point point;
        point.x = list.decode<int>();
        point.y = list.next().keyedContainer().decode<int>("y");
        EXPECT_TRUE(list.decodeNil() && list.isAtEnd());
        return point;
    }
};

TEST(TypedCoding, RecordsGoOutAndComeBackUnchanged)
{
    const Station station{{{"fan", 80.5, 255}, {"disk", std::nullopt, 0}},
                          {{"reads", 12}, {"writes", INT64_MIN}},
                          Date(1709208000),
                          Url::parse("https://example.org/a?b=c")};
    JSONEncoder encoder;
    encoder.dateStrategy = DateStrategy::iso8601;
    const std::string json = encoder.encode(station);
    EXPECT_EQ(json, R"({"sensors":[{"name":"fan","limit":80.5,"channel":255},{"name":"disk","channel":0}],)"
                    R"("totals":{"reads":12,"writes":-9223372036854775808},"since":"2024-02-29T12:00:00Z",)"
                    R"("page":"https://example.org/a?b=c"})");
    JSONDecoder decoder;
    decoder.dateStrategy = DateStrategy::iso8601;
    EXPECT_EQ(decoder.decode<Station>(json), station);
    encoder.format = JSONEncoder::Format::pretty;
    EXPECT_EQ(decoder.decode<Station>(encoder.encode(station)), station);
    EXPECT_EQ(encoder.encode(std::map<std::string, std::vector<int>>{{"a", {1, 2}}, {"b", {}}}),
              "{\n  \"a\": [\n    1,\n    2\n  ],\n  \"b\": []\n}");
}

TEST(TypedCoding, HandWrittenTypesUseNestedContainers)
{
    const std::string json = JSONEncoder().encode(std::vector<Point>{{1, 2}});
    EXPECT_EQ(json, R"([[1,{"y":2},null]])");
    EXPECT_EQ(JSONDecoder().decode<std::vector<Point>>(json).at(0).y, 2);
}

template <typename T>
std::string errorOf(std::string_view json, DateStrategy dates = DateStrategy::secondsSince1970)
{
    JSONDecoder decoder;
    decoder.dateStrategy = dates;
    try {
        decoder.decode<T>(json);
    } catch (const DecodingError& error) {
        return std::to_string(static_cast<int>(error.kind())) + ' ' + error.what();
    }
    return "none";
}

TEST(TypedCoding, SaysWhichMemberDoesNotFit)
{
    const auto sensors = [](std::string_view fields) { return "{\"sensors\":[{" + std::string(fields) + "}]}"; };
    EXPECT_EQ(errorOf<Station>(sensors(R"("name":1,"channel":1)")),
              "1 sensors[0].name: Expected a text but found a number.");
    EXPECT_EQ(errorOf<Station>(sensors(R"("name":null)")), "3 sensors[0].name: Expected a text but found null.");
    EXPECT_EQ(errorOf<Station>(sensors(R"("name":"a")")), "2 sensors[0]: No value associated with key \"channel\".");
    EXPECT_EQ(errorOf<Station>(sensors(R"("name":"a","channel":2.5)")),
              "0 sensors[0].channel: The number 2.5 does not fit in the wanted type.");
    EXPECT_EQ(errorOf<Point>("[1]"), "3 [1]: The array has no more values.");
    EXPECT_EQ(errorOf<Date>("\"2023-02-29T00:00:00Z\"", DateStrategy::iso8601), "0 Expected a date in ISO 8601 form.");
    EXPECT_EQ(errorOf<Url>("\"a b\""), "0 Invalid URL.");
}

TEST(TypedCoding, NumbersFitOrAreRefusedAtTheLimits)
{
    EXPECT_EQ(JSONDecoder().decode<std::int64_t>("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(JSONDecoder().decode<std::uint64_t>("18446744073709551615"), UINT64_MAX);
    EXPECT_EQ(JSONDecoder().decode<int>("3.0"), 3);
    for (const std::string& error :
         {errorOf<std::int64_t>("9223372036854775808"), errorOf<std::uint64_t>("18446744073709551616"),
          errorOf<std::uint8_t>("-1"), errorOf<float>("1e300"), errorOf<bool>("1")})
        EXPECT_NE(error, "none");
}

TEST(TypedCoding, OfARepeatedKeyTheLastValueCounts)
{
    const auto source = JSONDecoder().sourceOf(R"({"a":1,"b":2,"a":3})");
    const auto record = Decoder(*source).keyedContainer();
    EXPECT_EQ(record.decode<int>("a"), 3);
    EXPECT_EQ(record.allKeys(), (std::vector<std::string>{"a", "b"}));
}

TEST(TypedCoding, Iso8601DatesReachFromYear0To9999)
{
    const std::pair<double, std::string_view> cases[] = {
        {-0.5, "1969-12-31T23:59:59Z"},
        {951782400, "2000-02-29T00:00:00Z"},
        {-62167219200, "0000-01-01T00:00:00Z"},
        {253402300799, "9999-12-31T23:59:59Z"},
    };
    for (const auto& [seconds, text] : cases) {
        EXPECT_EQ(iso8601Text(Date(seconds)), text);
        EXPECT_EQ(dateFromIso8601(text), Date(std::floor(seconds)));
    }
    EXPECT_EQ(dateFromIso8601("1970-01-01T02:30:00.25+02:30"), Date(0.25));
    EXPECT_EQ(dateFromIso8601("1969-12-31T21:00:00-0300"), Date(0));
    EXPECT_FALSE(iso8601Text(Date(253402300800)));
    for (const auto text :
         {"", "1970-01-01", "1970-13-01T00:00:00Z", "1970-01-01T24:00:00Z", "1970-01-01T00:00:00",
          "1970-01-01T00:00:00Zx", "+970-01-01T00:00:00Z", "1970-01-01T00:00:00+24:00", "1970-01-01T00:00:00-00:60"})
        EXPECT_FALSE(dateFromIso8601(text)) << text;
}

}  // namespace

}  // namespace Platform
