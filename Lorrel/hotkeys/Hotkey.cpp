#include "Lorrel/hotkeys/Hotkey.h"

#include <limits>
#include <string_view>
#include <utility>

#include "platform/input/KeyboardLayout.h"
#include "platform/text/Characters.h"

namespace Lorrel {

namespace {

constexpr std::pair<Key, std::string_view> symbols[] = {
    {Key::return_, "↩"},  {Key::delete_, "⌫"}, {Key::forwardDelete, "⌦"}, {Key::end, "↘"},       {Key::escape, "⎋"},
    {Key::help, "?⃝"},     {Key::home, "↖"},    {Key::space, "⎵"},         {Key::tab, "⇥"},       {Key::pageUp, "⇞"},
    {Key::pageDown, "⇟"}, {Key::upArrow, "↑"}, {Key::rightArrow, "→"},    {Key::downArrow, "↓"}, {Key::leftArrow, "←"},
};

constexpr Key functionKeys[] = {
    Key::f1,  Key::f2,  Key::f3,  Key::f4,  Key::f5,  Key::f6,  Key::f7,  Key::f8,  Key::f9,  Key::f10,
    Key::f11, Key::f12, Key::f13, Key::f14, Key::f15, Key::f16, Key::f17, Key::f18, Key::f19, Key::f20,
};

// U+F704 for F1, rising: three bytes each, of which the last one counts.
std::string functionKeyCharacter(int number)
{
    return {'\xEF', '\x9C', static_cast<char>(0x84 + number - 1)};
}

Hotkey::KeyTexts defaultCharacters()
{
    Hotkey::KeyTexts texts;
    for (const auto& [key, symbol] : symbols) texts.emplace(key, symbol);
    int number = 0;
    for (const Key key : functionKeys) texts.emplace(key, 'F' + std::to_string(++number));
    return texts;
}

Hotkey::KeyTexts defaultKeyEquivalents()
{
    Hotkey::KeyTexts texts{{Key::space, " "}};
    int number = 0;
    for (const Key key : functionKeys) texts.emplace(key, functionKeyCharacter(++number));
    return texts;
}

void mix(std::size_t& hash, std::size_t next)
{
    hash ^= next + 0x9E3779B97F4A7C15 + (hash << 6) + (hash >> 2);
}

// The entries stand in the order of their keys, however they came in.
void mix(std::size_t& hash, const Hotkey::KeyTexts& texts)
{
    for (const auto& [key, text] : texts) {
        mix(hash, std::hash<Key>()(key));
        mix(hash, std::hash<std::string>()(text));
    }
    mix(hash, texts.size());
}

}  // namespace

Hotkey::Hotkey(std::int64_t carbonKeyCode, std::int64_t carbonModifiers)
    : carbonKeyCode_(carbonKeyCode),
      carbonModifiers_(carbonFlags(modifierFlags(carbonModifiers))),
      keyToCharacterMapping_(defaultCharacters()),
      keyToKeyEquivalentString_(defaultKeyEquivalents())
{
}

Hotkey::Hotkey(std::optional<std::string> id, Key key, ModifierFlags modifiers)
    : Hotkey(key.rawValue(), carbonFlags(modifiers))
{
    id_ = std::move(id);
}

std::optional<std::string> Hotkey::character(std::int64_t keyCode) const
{
    const auto symbol = keyToCharacterMapping_.find(Key(keyCode));
    if (symbol != keyToCharacterMapping_.end()) return symbol->second;
    if (!std::in_range<std::uint16_t>(keyCode)) return std::nullopt;
    return Platform::KeyboardLayout::shared().character(static_cast<std::uint16_t>(keyCode));
}

std::string Hotkey::description() const
{
    const auto text = character(carbonKeyCode_);
    return Lorrel::description(modifiers()) + (text ? Platform::uppercased(*text) : "\uFFFD");
}

std::string Hotkey::keyEquivalent() const
{
    const std::string text = character(carbonKeyCode_).value_or("");
    if (Platform::characterCount(text) < 2) return text;
    const auto found = keyToKeyEquivalentString_.find(Key(carbonKeyCode_));
    return found == keyToKeyEquivalentString_.end() ? std::string() : found->second;
}

}  // namespace Lorrel

std::size_t std::hash<Lorrel::Hotkey>::operator()(const Lorrel::Hotkey& hotkey) const noexcept
{
    std::size_t value = hotkey.id() ? 1 : 0;
    if (hotkey.id()) Lorrel::mix(value, std::hash<std::string>()(*hotkey.id()));
    Lorrel::mix(value, std::hash<std::int64_t>()(hotkey.carbonKeyCode()));
    Lorrel::mix(value, std::hash<std::int64_t>()(hotkey.carbonModifiers()));
    Lorrel::mix(value, hotkey.keyToCharacterMapping());
    Lorrel::mix(value, hotkey.keyToKeyEquivalentString());
    return value;
}
