#include <limits>

#include <gtest/gtest.h>

#include "platform/bundle/PropertyList.h"

using Platform::Date;
using Platform::PropertyList;

namespace {

std::string xml(const std::string& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body + "</plist>\n";
}

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

std::string nestedArrays(int levels)
{
    return xml(repeated("<array>", levels) + repeated("</array>", levels));
}

std::string bytes(std::initializer_list<int> values)
{
    return std::string(values.begin(), values.end());
}

// A binary property list of the given objects (each at most 255 bytes in all), one-byte offsets and references.
std::string binaryList(const std::vector<std::string>& objects)
{
    std::string list = "bplist00";
    std::string offsets;
    for (const auto& object : objects) {
        offsets += static_cast<char>(list.size());
        list += object;
    }
    const auto table = static_cast<int>(list.size());
    return list + offsets + bytes({0, 0, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, static_cast<int>(objects.size()),  //
                                   0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, table});
}

std::string doublingArrays(int levels)
{
    std::vector<std::string> objects;
    for (int i = 1; i < levels; ++i) objects.push_back(bytes({0xA2, i, i}));
    objects.emplace_back("\x51x");
    return binaryList(objects);
}

PropertyList sample()
{
    return PropertyList::Dictionary{
        {"zulu", "an & <accented> é 😀"},
        {"data", PropertyList::Data{0, 1, 255}},
        {"whole", PropertyList::Array{0, -5, std::numeric_limits<std::int64_t>::min(),
                                      std::numeric_limits<std::uint64_t>::max()}},
        {"reals", PropertyList::Array{0.1, -2.5e-10, 1e300}},
        {"yes", true},
        {"dates", PropertyList::Array{Date(0), Date(1.6e9), Date::distantPast(), Date(4.7e9)}},
        {"empty", PropertyList::Array{PropertyList::Dictionary{}, PropertyList::Array{}, "", PropertyList::Data{}}}};
}

}  // namespace

TEST(PropertyListForms, BothKeepEveryKindOfValueAndTheOrderOfKeys)
{
    for (const auto& form : {sample().xml(), sample().binary()}) {
        ASSERT_TRUE(form) << form.error().message();
        const auto read = PropertyList::parse(*form);
        ASSERT_TRUE(read) << read.error().message();
        EXPECT_EQ(*read, sample());
        EXPECT_EQ(read->dictionary()->begin()->first, "zulu");
    }
    const Date fraction(1.6e9 + 0.25);  // kept by the binary form only
    EXPECT_EQ(PropertyList::parse(*PropertyList(fraction).binary())->date(), fraction);
}

TEST(PropertyListForms, RefuseWhatTheyCannotHold)
{
    PropertyList deep = PropertyList::Array{};
    for (int i = 0; i < 300; ++i) deep = PropertyList::Array{std::move(deep)};
    const std::vector<std::pair<PropertyList, std::string>> cases{
        {"\xff", "a text is not UTF-8"},
        {std::string("a\0b", 3), "a text is not UTF-8"},
        {PropertyList::Dictionary{{"\xed\xa0\x80", 1}}, "a key is not UTF-8"},
        {Date(std::numeric_limits<double>::infinity()), "a date is not finite"},
        {Date(1e300), "a date is out of range"},
        {std::move(deep), "nested too deeply"}};
    for (const auto& [value, reason] : cases) {
        EXPECT_EQ(value.xml().error().reason, reason);
        EXPECT_EQ(value.binary().error().reason, reason);
    }
}

TEST(PropertyListReading, SaysWhatIsWrongWithTheBytes)
{
    const std::string whole = *sample().binary();
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "empty"},
        {"{ old = style; }", "neither XML nor binary"},
        {std::string("\xFF\xFE<\0?\0", 6), "neither XML nor binary"},
        {xml("<string>\xC0\x80</string>"), "not UTF-8"},
        {xml("<dict><key>a</key><string>b"), "</plist> closes nothing"},
        {"<plist><array <array>>", "a tag inside a tag"},
        {"<!DOCTYPE plist [ ]><plist/>", "a document type of its own"},
        {xml("<array><string a=\"</array>\"/></array>"), "a tag inside a tag"},
        {xml("<array><plist a=''/></array>"), "<plist> inside the document"},
        {xml("<unknown/>"), "damaged"},
        {nestedArrays(200000), "nested too deeply"},
        {xml(repeated("<array><string><![CDATA[</array>]]></string>", 200000)), "nested too deeply"},
        {whole.substr(0, whole.size() - 1), "the trailer is damaged"},
        {binaryList({bytes({0xA1, 1}), bytes({0xA1, 0})}), "an object contains itself"},
        {binaryList({bytes({0xA1, 9})}), "a reference leads nowhere"},
        {binaryList({bytes({0x5F, 0x12, 0x7F, 0xFF, 0xFF, 0xFF})}), "an object reaches past its end"},
        {binaryList({bytes({0x5F, 0x51})}), "an object is damaged"},
        {doublingArrays(60), "too large once expanded"}};
    for (const auto& [text, reason] : cases) {
        const auto read = PropertyList::parse(text);
        ASSERT_FALSE(read) << reason;
        EXPECT_EQ(read.error().reason, reason) << text.substr(0, 60);
    }
    EXPECT_TRUE(PropertyList::parse(nestedArrays(256)));
}

TEST(PropertyListReading, SurvivesEveryDamagedByteOfABinaryList)
{
    const std::string whole = *sample().binary();
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const int flip : {0x01, 0x10, 0x80, 0xFF}) {
            std::string damaged = whole;
            damaged[i] = static_cast<char>(damaged[i] ^ flip);
            const auto read = PropertyList::parse(damaged);
            if (!read) continue;
            const auto again = read->binary();
            EXPECT_TRUE(!again || PropertyList::parse(*again)) << i;
        }
    }
}

TEST(PropertyListValues, AnswerOnlyWhereTheirNumberFits)
{
    EXPECT_EQ(PropertyList(7U).number(), 7.0);
    EXPECT_FALSE(PropertyList(7U).boolean() || PropertyList(7U).real());
    EXPECT_FALSE(PropertyList(-1).unsignedInteger());
    EXPECT_FALSE(PropertyList(std::numeric_limits<std::uint64_t>::max()).integer());
}

TEST(PropertyListDictionary, SetsReplacesAndRemovesAtAnySize)
{
    for (const int size : {3, 24, 1000}) {
        PropertyList::Dictionary entries;
        for (int i = 0; i < size; ++i) entries.set(std::to_string(i), i);
        entries.set("1", "new");
        EXPECT_TRUE(entries.remove("0"));
        EXPECT_EQ(entries.size(), static_cast<std::size_t>(size - 1));
        EXPECT_EQ(entries.begin()->first, "1");
        EXPECT_EQ(*entries.find("1")->text(), "new");
        EXPECT_EQ(entries.find(std::to_string(size - 1))->integer(), size - 1);
        EXPECT_FALSE(entries.find("0"));
    }
}
