#include <gtest/gtest.h>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/NumberIdentifier.h"
#include "Fennick/datastore/StringIdentifier.h"
#include "examples/pellora/table/LiveTable.h"
#include "examples/pellora/table/ReadingsTable.h"
#include "examples/pellora/table/Sparkline.h"
#include "tests/examples/pellora/Machine.h"

namespace {

using Lines = std::vector<std::string>;

TEST(Sparkline, SpansFromZeroOrBelowToTheHighest)
{
    const struct {
        std::vector<Platform::Number> history;
        std::size_t width;
        const char* expected;
    } cases[] = {
        {{7, 7}, 5, "██"},
        {{0, 1, 2, 3, 4, 5, 6, 7}, 8, "▁▂▃▄▅▆▇█"},
        {{100, 0, 7}, 2, "▁█"},
        {{-7, 0}, 2, "▁█"},
    };
    for (const auto& one : cases) EXPECT_EQ(Pellora::sparkline(one.history, one.width), one.expected);
}

struct Table : testing::Test {
    Table()
    {
        load->set(1.5);
        store->add(load);
        store->add(std::make_shared<Fennick::StringIdentifier>("state", "État", "en charge"));
        store->setHistorySize(2);
        load->set(3.0);
    }

    // What the table has written so far.
    std::string written()
    {
        std::rewind(file.get());
        std::string content(4096, '\0');
        content.resize(std::fread(content.data(), 1, content.size(), file.get()));
        return content;
    }

    Tests::Machine machine;
    std::shared_ptr<Fennick::IDataStore> store = std::make_shared<Fennick::DataStore>();
    std::shared_ptr<Fennick::NumberIdentifier> load = std::make_shared<Fennick::NumberIdentifier>("load", "Load", 1);
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::tmpfile(), &std::fclose};
    Lines keys{"load", "missing", "state"};
    int ends = 0;
};

TEST_F(Table, AlignsWhatReadersSeeAsCharacters)
{
    EXPECT_EQ(Pellora::tableLines(*store, keys, 2), (Lines{"Load        3.0  ▁█", "État  en charge"}));
}

TEST_F(Table, IsPlainLinesRefreshByRefreshUntilItsEnd)
{
    Pellora::LiveTable table(
        store, [&] { return keys; }, {file.get()}, 2, [&] { ++ends; });
    table.didRefresh(1);
    EXPECT_EQ(ends, 0);
    load->set(4.0);
    table.didRefresh(1.005);

    EXPECT_EQ(ends, 1);
    EXPECT_EQ(written(),
              "Reading 1  +1.00 s\n  Load        3.0\n  État  en charge\n"
              "Reading 2  +1.00 s\n  Load        4.0\n  État  en charge\n");
}

TEST_F(Table, IsRewrittenInPlaceAndNeverHigherThanTheTerminal)
{
    Pellora::LiveTable table(
        store, [&] { return keys; }, {file.get(), true, 3, 40}, 0, [&] { ++ends; });
    table.didRefresh(1);
    keys.clear();
    table.didRefresh(1);

    EXPECT_EQ(written(),
              "Reading 1  +1.00 s\x1b[K\nLoad        3.0\x1b[K\n"
              "\x1b[2AReading 2  +1.00 s\x1b[K\n\x1b[K\n");
    EXPECT_EQ(ends, 0);
}

}  // namespace
