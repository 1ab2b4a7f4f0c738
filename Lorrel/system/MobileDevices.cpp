#include "Lorrel/system/MobileDevices.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "Lorrel/system/internal/MobileDeviceTable.h"

namespace Lorrel {

namespace {

using Rows = std::span<const MobileDeviceRow>;

constexpr MobileDeviceRow genericPhone{"", "iPhone", "iPhone", ""};
constexpr MobileDeviceRow genericTablet{"", "iPad", "iPad", "com.apple.ipad-pro-12point9-2.icns"};
constexpr MobileDeviceRow genericWatch{"", "Apple Watch", "Apple Watch", "com.apple.watch-placeholder.icns"};

template <typename Family>
std::shared_ptr<MobileDevice> record(Rows rows, std::string_view identifier, const MobileDeviceRow* generic)
{
    // Most rows differ already in the last character. Never empty: it holds the family's word.
    const auto isWanted = [&](const MobileDeviceRow& row) {
        return row.identifier.back() == identifier.back() && row.identifier == identifier;
    };
    const auto found = std::ranges::find_if(rows, isWanted);
    const MobileDeviceRow* row = found == rows.end() ? generic : &*found;
    if (!row) return nullptr;
    auto iconName = row->iconName.empty() ? std::nullopt : std::optional<std::string>(row->iconName);
    return std::make_shared<Family>(std::string(row->name), std::string(row->shortName), std::move(iconName));
}

std::shared_ptr<MobileDevice> phone(std::string_view identifier)
{
    return record<Phone>(phoneRows(), identifier, &genericPhone);
}

std::shared_ptr<MobileDevice> audio(std::string_view identifier)
{
    return record<Audio>(audioRows(), identifier, nullptr);
}

std::shared_ptr<MobileDevice> tablet(std::string_view identifier)
{
    return record<Tablet>(tabletRows(), identifier, &genericTablet);
}

std::shared_ptr<MobileDevice> watch(std::string_view identifier)
{
    return record<Watch>(watchRows(), identifier, &genericWatch);
}

struct Family {
    std::string_view word;
    std::shared_ptr<MobileDevice> (*lookUp)(std::string_view identifier);
};

// In the order in which the words are looked for.
constexpr Family families[] = {{"iPhone", phone}, {"iPod", audio}, {"iPad", tablet}, {"Watch", watch}};

}  // namespace

std::shared_ptr<MobileDevice> MobileDevices::device(std::string_view identifier)
{
    const auto family = std::ranges::find_if(
        families, [&](const Family& candidate) { return identifier.find(candidate.word) != std::string_view::npos; });
    return family == std::end(families) ? nullptr : family->lookUp(identifier);
}

}  // namespace Lorrel
