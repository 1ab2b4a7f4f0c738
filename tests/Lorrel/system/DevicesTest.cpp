#include <algorithm>
#include <cstring>
#include <set>

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

}  // namespace

TEST_F(DevicesTest, MobileTablesAreUniqueInOrderAndSpeltInTheirStyle)
{
    const struct {
        std::span<const Lorrel::MobileDeviceRow> rows;
        std::size_t count;
        const char *family, *brand, *icon;
    } tables[] = {{Lorrel::phoneRows(), 53, "iPhone", "iPhone", "com.apple.iphone-"},
                  {Lorrel::audioRows(), 7, "iPod", "", "com.apple.ipod-touch"},
                  {Lorrel::tabletRows(), 82, "iPad", "iPad", "com.apple.ipad"},
                  {Lorrel::watchRows(), 39, "Watch", "Apple Watch", "com.apple.watch-"}};
    for (const auto& table : tables) {
        std::set<std::string_view> identifiers;
        int generation = 0;
        for (const auto& row : table.rows) {
            SCOPED_TRACE(row.identifier);
            const std::string_view name = row.name, identifier = row.identifier;
            EXPECT_TRUE(identifiers.insert(identifier).second);
            ASSERT_TRUE(identifier.starts_with(table.family));
            const int next = std::stoi(std::string(identifier.substr(std::strlen(table.family))));
            EXPECT_LE(std::exchange(generation, next), next);
            EXPECT_TRUE(name.starts_with(table.brand));
            EXPECT_LE(row.shortName.size(), std::max<std::size_t>(name.size(), 12));
            EXPECT_EQ(name.find("  "), std::string::npos);
            EXPECT_EQ(std::ranges::count(name, '('), std::ranges::count(name, ')'));
            EXPECT_EQ(row.iconName.empty(), identifier == "iPhone1,1");
            EXPECT_TRUE(row.iconName.empty() ||
                        (row.iconName.starts_with(table.icon) && row.iconName.ends_with(".icns")));
        }
        EXPECT_EQ(identifiers.size(), table.count) << table.family;
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
        {"iPhone16,2", "iPhone 15", "15 Pro Max", "com.apple.iphone-15-pro-2.icns"},
        {"iPhone17,1", "iPhone", "iPhone", std::nullopt},
        {"xiPhone14,2", "iPhone", "iPhone", std::nullopt},
        {"iPod8,1", nullptr, "", std::nullopt},
        {"iPad14,6-B", "iPad Pro 12.9 inch 6th Gen", "iPad Pro", "com.apple.ipad-pro-12point9-2.icns"},
        {"iPad99,1", "iPad", "iPad", "com.apple.ipad-pro-12point9-2.icns"},
        {"Watch6", "Apple Watch Series 6 44mm case (GPS)", "Watch S6", "com.apple.watch-44mm-6.icns"},
        {"Watch6,2", "Apple Watch", "Apple Watch", "com.apple.watch-placeholder.icns"},
        {"Watch6,18", "Apple Watch Ultra", "Watch Ultra", "com.apple.watch-u-8.icns"},
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
        {"{}", 0},
        {R"([{"model":"A"}])", 0},
        {R"([{"model":1,"description":"x"}])", 0},
        {R"([{"model":"A","description":"first"},{"model":"A","description":"second"}])", 2},
    };
    for (const Case& item : cases) EXPECT_EQ(Lorrel::decodeDevices(item.json).size(), item.count) << item.json;

    const std::string catalogue = root.write("Lorrel_Lorrel.bundle/Contents/Resources/mac-devices.json", cases[4].json);
    const Platform::Shared<Lorrel::Resources::Found>::Override resources(std::make_shared<Lorrel::Resources::Found>(
        Lorrel::Resources::Found{Platform::Bundle::open(root / "Lorrel_Lorrel.bundle")}));
    EXPECT_EQ(MacDevices::device("A")->description, "first");
    EXPECT_EQ(MacDevices::device("B"), std::nullopt);
    root.write("Lorrel_Lorrel.bundle/Contents/Resources/mac-devices.json", R"([{"model":"B","description":"new"}])");
    EXPECT_EQ(MacDevices::device("A")->description, "first");
    EXPECT_EQ(MacDevices::device("B")->description, "new");
}
