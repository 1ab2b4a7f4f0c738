#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "Fennick/datastore/NumberIdentifier.h"
#include "tests/fakes/FakeEnvironment.h"

using namespace Fennick;
using Platform::Number;
using Category = IdentifierCategory;

namespace {

std::vector<double> doubles(const std::vector<Number>& numbers)
{
    std::vector<double> result;
    for (const Number& number : numbers) result.push_back(number.doubleValue());
    return result;
}

}  // namespace

TEST(Value, ShowsItsNumberByCategoryDecimalsAndSign)
{
    struct Row {
        Category category;
        bool isSigned;
        std::optional<std::int64_t> decimals;
        double number;
        const char* expected;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Tests::ReplacedEnvironment environment;
    environment->set("LANG", "en_US.UTF-8");
    for (const Row& row :
         {Row{Category::raw, true, std::nullopt, -5, "-5"},
          Row{Category::raw, false, std::nullopt, -5, "18446744073709551611"}, Row{Category::raw, true, -3, 1.9, "1"},
          Row{Category::raw, true, 2, 1.999, "1.99"}, Row{Category::raw, true, 2, 7, "7.00"},
          Row{Category::raw, true, 2000, 7, "-"}, Row{Category::raw, true, std::nullopt, nan, "0"},
          Row{Category::percentage, true, std::nullopt, 42, "42 %"},
          Row{Category::percentage, false, std::nullopt, -1, "18446744073709551615 %"},
          Row{Category::percentage, true, 1, 12.25, "12.2 %"}, Row{Category::percentage, true, 1, 12.0, "12 %"},
          Row{Category::percentage, true, 2, 12.5, "12.5 %"}, Row{Category::size, true, 3, 0, "0 B"},
          Row{Category::size, true, 3, 1023, "1023 B"}, Row{Category::size, true, std::nullopt, -1024, "16 EB"}}) {
        Value value(row.category, row.isSigned, row.decimals);
        EXPECT_EQ(value.description(), "-");
        value.set(row.number);
        EXPECT_EQ(value.description(), row.expected);
    }
}

TEST(NumberIdentifier, SlidesItsHistoryOfAnySizeAndWidensItsExtremes)
{
    NumberIdentifier identifier("key");
    EXPECT_EQ(doubles(identifier.history()), std::vector<double>(60, 0));
    EXPECT_FALSE(identifier.value() || identifier.min() || identifier.max());
    for (int reading = 1; reading <= 150; ++reading) identifier.set(reading);
    EXPECT_EQ(identifier.history().front(), Number(91));
    EXPECT_EQ(identifier.history().back(), Number(150));
    identifier.setHistorySize(4);
    for (const int reading : {5, 3, 9}) identifier.set(reading);
    EXPECT_EQ(doubles(identifier.history()), (std::vector<double>{0, 5, 3, 9}));
    identifier.set(std::optional<int>());
    EXPECT_EQ(identifier.description(), "-");
    identifier.set(4U);
    EXPECT_EQ(doubles(identifier.history()), (std::vector<double>{3, 9, 4}));
    identifier.setHistory({Number(1), Number(2)});
    for (int reading = 3; reading <= 150; ++reading) {
        identifier.set(reading);
        EXPECT_EQ(doubles(identifier.history()), (std::vector<double>{reading - 1.0, reading + 0.0}));
    }
    for (const std::int64_t size : {0, -7}) {
        identifier.setHistorySize(size);
        EXPECT_EQ(identifier.historySize(), size);
        identifier.set(std::optional<double>());
        EXPECT_TRUE(identifier.history().empty());
        identifier.set(7);
        identifier.set(8);
        EXPECT_EQ(doubles(identifier.history()), std::vector<double>{8});
    }
    EXPECT_EQ(doubles({*identifier.min(), *identifier.max()}), (std::vector<double>{1, 150}));
}
