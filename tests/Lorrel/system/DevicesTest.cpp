#include <regex>
#include <set>

#include <gtest/gtest.h>

#include "Lorrel/resource_bundle_accessor.h"
#include "Lorrel/system/MacDevices.h"
#include "Lorrel/system/MobileDevices.h"
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
};

std::string declaration(const std::string& identifier, const std::string& codes)
{
    const std::string name = identifier.empty() ? "" : "<key>UTTypeIdentifier</key><string>" + identifier + "</string>";
    return "<dict>" + name + "<key>UTTypeTagSpecification</key><dict><key>com.apple.device-model-code</key>" + codes +
           "</dict></dict>";
}

}  // namespace

TEST_F(DevicesTest, MobileTablesAreWholeAndUnique)
{
    std::set<std::string_view> identifiers;
    for (const auto rows : {Lorrel::phoneRows(), Lorrel::audioRows(), Lorrel::tabletRows(), Lorrel::watchRows()}) {
        for (const auto& row : rows) {
            EXPECT_TRUE(identifiers.insert(row.identifier).second) << row.identifier;
            EXPECT_EQ(row.iconName.ends_with(".icns"), row.identifier != "iPhone1,1") << row.identifier;
        }
    }
    EXPECT_EQ(identifiers.size(), 53u + 7 + 82 + 39);
}

TEST_F(DevicesTest, IdentifiersFindTheirFamilyTheirRowOrTheGenericOne)
{
    const std::tuple<const char*, const char*, const char*, std::optional<std::string>> cases[] = {
        {"iPhone7,1", "iPhone 6 Plus", "iPhone 6+", "com.apple.iphone-6-plus-b4b5b9.icns"},
        {"iPhone17,1", "iPhone", "iPhone", std::nullopt},
        {"iPad14,6-B", "iPad Pro 12.9 inch 6th Gen", "iPad Pro", "com.apple.ipad-pro-12point9-2.icns"},
        {"iPad99,1", "iPad", "iPad", "com.apple.ipad-pro-12point9-2.icns"},
        {"Watch6", "Apple Watch Series 6 44mm case (GPS)", "Watch S6", "com.apple.watch-44mm-6.icns"},
        {"Watch6,2", "Apple Watch", "Apple Watch", "com.apple.watch-placeholder.icns"},
    };
    for (const auto& [identifier, name, shortName, icon] : cases) {
        SCOPED_TRACE(identifier);
        const auto device = MobileDevices::device(identifier);
        ASSERT_TRUE(device);
        EXPECT_EQ(device->name(), name);
        EXPECT_EQ(device->shortName(), shortName);
        EXPECT_EQ(device->iconName(), icon);
    }
    for (const char* unknown : {"iPod8,1", ""}) EXPECT_FALSE(MobileDevices::device(unknown)) << unknown;
    EXPECT_TRUE(std::dynamic_pointer_cast<Lorrel::Tablet>(MobileDevices::device("iPad1,1")));
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
    const auto declare = [&](const std::string& file, const std::string& declarations) {
        root.write(coreTypes + file, "<plist version=\"1.0\"><dict><key>UTExportedTypeDeclarations</key><array>" +
                                         declarations + "</array></dict></plist>");
    };
    declare("broken.plist", "<dict>");
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

TEST_F(DevicesTest, CatalogueIsUniqueAndSpeltInOneStyle)
{
    const std::regex model("[A-Za-z]+[0-9]+,[0-9]+");
    const std::regex description("[^(]+\\([^()]+\\)");
    std::set<std::string> models;
    for (const auto& device : MacDevices::allDevices()) {
        EXPECT_TRUE(models.insert(device.model).second) << device.model;
        EXPECT_TRUE(std::regex_match(device.model, model)) << device.model;
        EXPECT_TRUE(std::regex_match(device.description, description)) << device.description;
    }
    EXPECT_GT(models.size(), 150U);
    EXPECT_EQ(MacDevices::device("MacBookPro18,3")->description, "MacBook Pro (14-inch, 2021)");
}

TEST_F(DevicesTest, LookupsKeepWhatWasFoundAndSurviveABrokenCatalogue)
{
    const std::string name = "Lorrel_Lorrel.bundle/Contents/Resources/mac-devices.json";
    const auto write = [&](const char* json) { root.write(name, json); };
    write(R"([{"model":"A","description":"first"},{"model":"A","description":"second"}])");
    const Platform::Shared<Lorrel::Resources::Found>::Override resources(std::make_shared<Lorrel::Resources::Found>(
        Lorrel::Resources::Found{Platform::Bundle::open(root / "Lorrel_Lorrel.bundle")}));
    EXPECT_EQ(MacDevices::device("A")->description, "first");
    EXPECT_EQ(MacDevices::device("B"), std::nullopt);
    for (const char* json : {"", "{}", R"([{"model":"B"}])", R"([{"model":1,"description":"x"}])"}) {
        write(json);
        EXPECT_TRUE(MacDevices::allDevices().empty()) << json;
    }
    write(R"([{"model":"B","description":"new"}])");
    EXPECT_EQ(MacDevices::device("A")->description, "first");
    EXPECT_EQ(MacDevices::device("B")->description, "new");
}
