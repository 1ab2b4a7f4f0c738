#include "platform/menubar/internal/MenuItemProperties.h"

#include <array>
#include <cmath>
#include <utility>

#include "platform/menubar/Menu.h"
#include "platform/ui/Image.h"
#include "platform/ui/ImageCodec.h"

namespace Platform {

namespace {

// An underscore marks a key to press; two of them are one to read.
std::string escapedLabel(const std::string& title)
{
    std::string label;
    for (const char c : title) label.append(c == '_' ? 2 : 1, c);
    return label;
}

// What no screen shows of a picture need not be encoded, sent and scaled.
constexpr double pixelsPerPoint = 2;

void appendBytes(sd_bus_message* message, const std::vector<std::byte>& bytes)
{
    sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size());
}

constexpr std::array<std::pair<ModifierFlags, const char*>, 4> modifierNames{{{ModifierFlags::control, "Control"},
                                                                              {ModifierFlags::option, "Alt"},
                                                                              {ModifierFlags::shift, "Shift"},
                                                                              {ModifierFlags::command, "Super"}}};

void appendShortcut(sd_bus_message* message, ModifierFlags modifiers, const std::string& key)
{
    sd_bus_message_open_container(message, 'a', "as");
    sd_bus_message_open_container(message, 'a', "s");
    for (const auto& [flag, name] : modifierNames) {
        if (modifiers.contains(flag)) sd_bus_message_append_basic(message, 's', name);
    }
    sd_bus_message_append_basic(message, 's', key.c_str());
    sd_bus_message_close_container(message);
    sd_bus_message_close_container(message);
}

void addTick(std::vector<BusObject::Property>& properties, MenuItemState state)
{
    if (state == MenuItemState::off) return;
    properties.push_back(textProperty("toggle-type", "checkmark"));
    properties.push_back(numberProperty("toggle-state", static_cast<int>(state)));
}

void addPicture(std::vector<BusObject::Property>& properties, const MenuItem& item)
{
    const auto picture = pictureOf(item);
    auto png = picture ? encodePng(*picture) : std::nullopt;
    if (!png) return;
    properties.push_back(
        {"icon-data", "ay", [png = std::move(*png)](sd_bus_message* message) { appendBytes(message, png); }});
}

void addShortcut(std::vector<BusObject::Property>& properties, const MenuItem& item)
{
    const std::string key = busText(shortcutKeyName(item.keyEquivalent()));
    if (key.empty()) return;
    properties.push_back({"shortcut", "aas", [key, mask = item.keyEquivalentModifierMask()](sd_bus_message* message) {
                              appendShortcut(message, mask, key);
                          }});
}

}  // namespace

std::optional<Bitmap> pictureOf(const MenuItem& item)
{
    const ImageRef image = item.view() ? item.view()->rendered() : item.image();
    auto bitmap = image ? image->bitmap() : std::nullopt;
    if (!bitmap) return std::nullopt;
    const double width = std::ceil(image->size().width * pixelsPerPoint);
    const double height = std::ceil(image->size().height * pixelsPerPoint);
    const bool isTooFine = bitmap->width() > width && bitmap->height() > height && Bitmap::isPossible(width, height);
    return isTooFine ? image->bitmap(static_cast<int>(width), static_cast<int>(height)) : bitmap;
}

std::string shortcutKeyName(const std::string& keyEquivalent)
{
    static constexpr std::pair<std::string_view, const char*> names[] = {
        {" ", "space"}, {"\r", "Return"}, {"\t", "Tab"}, {"\b", "BackSpace"}, {"\x1B", "Escape"}, {"\x7F", "Delete"},
        {"⎵", "space"}, {"↩", "Return"},  {"⇥", "Tab"},  {"⌫", "BackSpace"},  {"⎋", "Escape"},    {"⌦", "Delete"},
        {"↑", "Up"},    {"→", "Right"},   {"↓", "Down"}, {"←", "Left"},       {"↖", "Home"},      {"↘", "End"},
        {"⇞", "Prior"}, {"⇟", "Next"},    {"+", "plus"}, {"-", "minus"},      {",", "comma"},     {".", "period"},
    };
    for (const auto& [text, name] : names) {
        if (keyEquivalent == text) return name;
    }
    // U+F704 is F1, three bytes of which the last one counts.
    const bool isPrivate = keyEquivalent.size() == 3 && keyEquivalent.starts_with("\xEF\x9C");
    const int number = isPrivate ? static_cast<unsigned char>(keyEquivalent[2]) - 0x84 + 1 : 0;
    return number >= 1 && number <= 35 ? 'F' + std::to_string(number) : keyEquivalent;
}

std::string shortcutPrefix(ModifierFlags modifiers)
{
    std::string prefix;
    for (const auto& [flag, name] : modifierNames) {
        if (modifiers.contains(flag)) prefix.append(name).append("+");
    }
    return prefix;
}

std::vector<BusObject::Property> propertiesOf(const MenuItem& item)
{
    std::vector<BusObject::Property> properties;
    if (item.isHidden()) properties.push_back(truthProperty("visible", false));
    if (item.isSeparator()) {
        properties.push_back(textProperty("type", "separator"));
        return properties;
    }
    properties.push_back(textProperty("label", item.view() ? std::string() : escapedLabel(item.title())));
    if (!item.isEnabled()) properties.push_back(truthProperty("enabled", false));
    if (item.submenu()) properties.push_back(textProperty("children-display", "submenu"));
    addTick(properties, item.state());
    addPicture(properties, item);
    addShortcut(properties, item);
    return properties;
}

const std::vector<std::string>& menuPropertyNames()
{
    static const std::vector<std::string> names{"visible",          "type",        "label",        "enabled",
                                                "children-display", "toggle-type", "toggle-state", "icon-data",
                                                "shortcut"};
    return names;
}

}  // namespace Platform
