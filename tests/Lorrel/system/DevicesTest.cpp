#include <algorithm>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Lorrel/resource_bundle_accessor.h"
#include "Lorrel/system/MacDevices.h"
#include "Lorrel/system/MobileDevices.h"
#include "Lorrel/system/internal/DeviceCoding.h"
#include "Lorrel/system/internal/MobileDeviceTable.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeIconService.h"
#include "tests/support/TemporaryDirectory.h"

using Lorrel::MacDevices;
using Lorrel::MobileDevices;

namespace {

constexpr const char* coreTypes = "System/Library/CoreServices/CoreTypes.bundle/Contents/";

class DevicesTest : public testing::Test {
protected:
    Tests::TemporaryDirectory root;
    Tests::ReplacedSystemRoots roots{root.path()};
    Tests::ReplacedIconService icons;

    void declare(const std::string& file, const std::string& declarations)
    {
        root.write(coreTypes + file, "<plist version=\"1.0\"><dict><key>UTExportedTypeDeclarations</key><array>" +
                                         declarations + "</array></dict></plist>");
    }
};

std::string declaration(const std::string& identifier, const std::string& codes)
{
    const std::string name = identifier.empty() ? "" : "<key>UTTypeIdentifier</key><string>" + identifier + "</string>";
    return "<dict>" + name + "<key>UTTypeTagSpecification</key><dict><key>com.apple.device-model-code</key>" + codes +
           "</dict></dict>";
}

// "iPad" and "1,1 2,4-6": iPad1,1 iPad2,4 iPad2,5 iPad2,6.
std::vector<std::string> identifiersOf(const std::string& family, const std::string& numbers)
{
    std::vector<std::string> identifiers;
    std::istringstream words(numbers);
    for (std::string word; words >> word;) {
        const std::size_t dash = word.find('-');
        if (dash == std::string::npos || !std::isdigit(word.back())) {
            identifiers.push_back(family + word);
            continue;
        }
        const std::size_t comma = word.find(',') + 1;
        for (int i = std::stoi(word.substr(comma)); i <= std::stoi(word.substr(dash + 1)); ++i) {
            identifiers.push_back(family + word.substr(0, comma) + std::to_string(i));
        }
    }
    return identifiers;
}

}  // namespace

TEST_F(DevicesTest, MobileTablesAreCompleteUniqueAndSpeltInTheirStyle)
{
    struct Table {
        std::span<const Lorrel::MobileDeviceRow> rows;
        const char* numbers;  // in the order of lookup
        std::string family;
        std::string brand;
        std::string icon;
    };
    const Table tables[] = {
        {Lorrel::phoneRows(),
         "1,1-2 2,1 3,1-3 4,1 5,1-4 6,1-2 7,1-2 8,1-2 8,4 9,1-4 10,1-6 11,2 11,4 11,6 11,8 12,1 12,3 12,5 12,8 13,1-4 "
         "14,2-8 15,2-5 16,1-2",
         "iPhone", "iPhone", "com.apple.iphone-"},
        {Lorrel::audioRows(), "1,1 2,1 3,1 4,1 5,1 7,1 9,1", "iPod", "", "com.apple.ipod-touch"},
        {Lorrel::tabletRows(),
         "1,1-2 2,1-7 3,1-6 4,1-9 5,1-4 6,3-4 6,7-8 6,11-12 7,1-6 7,11-12 8,1-12 11,1-4 11,6-7 13,1-2 13,4-11 13,16-19 "
         "14,3-A 14,3-B 14,4-A 14,4-B 14,5-A 14,5-B 14,6-A 14,6-B",
         "iPad", "iPad", "com.apple.ipad"},
        {Lorrel::watchRows(), "1,1-2 2,6-7 2,3-4 3,1-4 4,1-4 5,1-4 5,9-12 6,1 6 6,3-4 6,6-18", "Watch", "Apple Watch",
         "com.apple.watch-"},
    };
    for (const Table& table : tables) {
        std::vector<std::string> identifiers;
        for (const auto& row : table.rows) {
            SCOPED_TRACE(row.identifier);
            const std::string_view name = row.name;
            identifiers.emplace_back(row.identifier);
            EXPECT_TRUE(name.starts_with(table.brand));
            EXPECT_LE(row.shortName.size(), std::max<std::size_t>(name.size(), 12));
            EXPECT_EQ(name.find("  "), std::string::npos);
            EXPECT_EQ(std::ranges::count(name, '('), std::ranges::count(name, ')'));
            const bool hasIcon = !row.iconName.empty();
            EXPECT_EQ(hasIcon, row.identifier != "iPhone1,1");
            if (!hasIcon) continue;
            EXPECT_TRUE(row.iconName.starts_with(table.icon));
            EXPECT_TRUE(row.iconName.ends_with(".icns"));
        }
        EXPECT_EQ(identifiers, identifiersOf(table.family, table.numbers));
    }
}

TEST_F(DevicesTest, IdentifiersFindTheirFamilyTheirRowOrTheGenericOne)
{
    struct Case {
        const char* identifier;
        const char* name;  // null: no record
        const char* shortName;
        std::optional<std::string> icon;
    };
    const Case cases[] = {
        {"iPhone7,1", "iPhone 6 Plus", "iPhone 6+", "com.apple.iphone-6-plus-b4b5b9.icns"},
        {"iPhone16,1", "iPhone 15", "15 Pro", "com.apple.iphone-15-pro-2.icns"},
        {"iPhone16,2", "iPhone 15", "15 Pro Max", "com.apple.iphone-15-pro-2.icns"},
        {"iPhone17,1", "iPhone", "iPhone", std::nullopt},
        {"xiPhone14,2", "iPhone", "iPhone", std::nullopt},
        {"Watch iPhone", "iPhone", "iPhone", std::nullopt},
        {"iPod8,1", nullptr, "", std::nullopt},
        {"iPad14,6-B", "iPad Pro 12.9 inch 6th Gen", "iPad Pro", "com.apple.ipad-pro-12point9-2.icns"},
        {"iPad99,1", "iPad", "iPad", "com.apple.ipad-pro-12point9-2.icns"},
        {"Watch6", "Apple Watch Series 6 44mm case (GPS)", "Watch S6", "com.apple.watch-44mm-6.icns"},
        {"Watch6,2", "Apple Watch", "Apple Watch", "com.apple.watch-placeholder.icns"},
        {"Watch6,18", "Apple Watch Ultra", "Watch Ultra", "com.apple.watch-u-8.icns"},
        {"iphone14,2", nullptr, "", std::nullopt},
        {"", nullptr, "", std::nullopt},
    };
    for (const Case& item : cases) {
        SCOPED_TRACE(item.identifier);
        const auto device = MobileDevices::device(item.identifier);
        ASSERT_EQ(device != nullptr, item.name != nullptr);
        if (!device) continue;
        EXPECT_EQ(device->name(), item.name);
        EXPECT_EQ(device->shortName(), item.shortName);
        EXPECT_EQ(device->iconName(), item.icon);
        EXPECT_NE(MobileDevices::device(item.identifier), device);  // a new record each time
    }
    EXPECT_TRUE(std::dynamic_pointer_cast<Lorrel::Tablet>(MobileDevices::device("iPad1,1")));
    EXPECT_TRUE(std::dynamic_pointer_cast<Lorrel::Watch>(MobileDevices::device("Watch9,9")));
}

TEST_F(DevicesTest, MobileIconsAreSoughtInTheBundlesThenByTheirType)
{
    const auto phone = MobileDevices::device("iPhone5,1");
    const std::string file = "com.apple.iphone-5-black.icns";
    EXPECT_EQ(icons->nameOf(phone->icon()), "type com.apple.iphone-5-black");

    const std::string bundles = coreTypes + std::string("Library/");
    root.write(bundles + ".hidden.bundle/Contents/Resources/" + file, "x");
    root.makeFolder(bundles + "A.bundle/Contents/Resources");
    const std::string found = root.write(bundles + "B.bundle/Contents/Resources/" + file, "x");
    EXPECT_EQ(icons->nameOf(phone->icon()), "image " + found);
    EXPECT_EQ(MobileDevices::device("iPhone1,1")->icon(), nullptr);
}

TEST_F(DevicesTest, ComputerIconsFallBackFromTheModelToItsFamilyAndKind)
{
    EXPECT_EQ(MacDevices::icon("MacBookPro18,3"), nullptr);
    root.write(coreTypes + std::string("broken.plist"), "<plist><dict>");
    declare("a.plist",
            declaration("", "<string>MacBookPro</string>") +
                declaration("com.apple.unknown", "<string>MacBookPro</string>") +
                declaration("com.apple.laptop", "<array><string>x</string><string>MacBookPro</string></array>") +
                declaration("com.apple.mixed", "<array><integer>1</integer><string>MacBookPro18</string></array>"));
    icons->lack("type com.apple.unknown");
    EXPECT_EQ(icons->nameOf(MacDevices::icon("MacBookPro18,3")), "type com.apple.laptop");
    declare("Library/Sub.bundle/Contents/b.plist", declaration("com.apple.pro18", "<string>MacBookPro18</string>"));
    EXPECT_EQ(icons->nameOf(MacDevices::icon("MacBookPro18,3")), "type com.apple.pro18");
    EXPECT_EQ(MacDevices::icon(""), nullptr);
}

TEST_F(DevicesTest, CatalogueIsUniqueOrderedByFamilyAndSpeltInOneStyle)
{
    const auto devices = MacDevices::allDevices();
    EXPECT_GT(devices.size(), 150U);
    std::set<std::string> models;
    for (const auto& device : devices) {
        SCOPED_TRACE(device.model);
        EXPECT_TRUE(models.insert(device.model).second);
        const std::size_t comma = device.model.find(',');
        ASSERT_NE(comma, std::string::npos);
        EXPECT_TRUE(std::isdigit(device.model[comma - 1]) && std::isdigit(device.model.back()));
        EXPECT_TRUE(device.description.ends_with(')'));
        EXPECT_EQ(std::ranges::count(device.description, '('), 1);
    }
    EXPECT_EQ(MacDevices::device("MacBookPro18,3")->description, "MacBook Pro (14-inch, 2021)");
}

TEST_F(DevicesTest, LookupsKeepWhatWasFoundAndSurviveABrokenCatalogue)
{
    struct Case {
        const char* json;
        std::size_t count;
    };
    const Case cases[] = {
        {"", 0},
        {"[", 0},
        {"{}", 0},
        {R"([{"model":"A"}])", 0},
        {R"([{"model":1,"description":"x"}])", 0},
        {"[]", 0},
        {R"([{"model":"A","description":"first"},{"model":"A","description":"second"}])", 2},
    };
    for (const Case& item : cases) EXPECT_EQ(Lorrel::decodeDevices(item.json).size(), item.count) << item.json;

    const std::string catalogue = root.write("Lorrel_Lorrel.bundle/Contents/Resources/mac-devices.json", cases[6].json);
    const Platform::Shared<Lorrel::Resources::Found>::Override resources(std::make_shared<Lorrel::Resources::Found>(
        Lorrel::Resources::Found{Platform::Bundle::open(root / "Lorrel_Lorrel.bundle")}));
    EXPECT_EQ(MacDevices::device("A")->description, "first");
    EXPECT_EQ(MacDevices::device("B"), std::nullopt);
    root.write("Lorrel_Lorrel.bundle/Contents/Resources/mac-devices.json", R"([{"model":"B","description":"new"}])");
    EXPECT_EQ(MacDevices::device("A")->description, "first");
    EXPECT_EQ(MacDevices::device("B")->description, "new");
}
