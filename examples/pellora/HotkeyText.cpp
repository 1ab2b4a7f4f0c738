#include "examples/pellora/HotkeyText.h"

#include <algorithm>
#include <utility>

namespace Pellora {

namespace {

using Lorrel::Key;
using Platform::ModifierFlags;

constexpr std::pair<std::string_view, ModifierFlags> modifierNames[] = {
    {"control", ModifierFlags::control},
    {"option", ModifierFlags::option},
    {"shift", ModifierFlags::shift},
    {"command", ModifierFlags::command},
};

constexpr Key letters[] = {Key::a, Key::b, Key::c, Key::d, Key::e, Key::f, Key::g, Key::h, Key::i,
                           Key::j, Key::k, Key::l, Key::m, Key::n, Key::o, Key::p, Key::q, Key::r,
                           Key::s, Key::t, Key::u, Key::v, Key::w, Key::x, Key::y, Key::z};
constexpr Key digits[] = {Key::zero, Key::one, Key::two,   Key::three, Key::four,
                          Key::five, Key::six, Key::seven, Key::eight, Key::nine};
constexpr std::pair<std::string_view, Key> functionKeys[] = {
    {"f1", Key::f1},   {"f2", Key::f2},   {"f3", Key::f3},   {"f4", Key::f4},   {"f5", Key::f5},
    {"f6", Key::f6},   {"f7", Key::f7},   {"f8", Key::f8},   {"f9", Key::f9},   {"f10", Key::f10},
    {"f11", Key::f11}, {"f12", Key::f12}, {"f13", Key::f13}, {"f14", Key::f14}, {"f15", Key::f15},
    {"f16", Key::f16}, {"f17", Key::f17}, {"f18", Key::f18}, {"f19", Key::f19}, {"f20", Key::f20},
};

std::optional<Key> writingKey(std::string_view name)
{
    if (name == "space") return Key::space;
    if (name.size() != 1) return std::nullopt;
    if (name[0] >= 'a' && name[0] <= 'z') return letters[static_cast<std::size_t>(name[0] - 'a')];
    if (name[0] >= '0' && name[0] <= '9') return digits[static_cast<std::size_t>(name[0] - '0')];
    return std::nullopt;
}

template <typename Table>
auto named(const Table& table, std::string_view name) -> std::optional<decltype(std::begin(table)->second)>
{
    const auto* found = std::ranges::find(table, name, [](const auto& row) { return row.first; });
    if (found == std::end(table)) return std::nullopt;
    return found->second;
}

}  // namespace

std::optional<Lorrel::Hotkey> hotkeyFrom(std::string_view text)
{
    ModifierFlags modifiers{};
    for (std::size_t plus = text.find('+'); plus != std::string_view::npos; plus = text.find('+')) {
        const auto modifier = named(modifierNames, text.substr(0, plus));
        if (!modifier) return std::nullopt;
        modifiers = modifiers | *modifier;
        text.remove_prefix(plus + 1);
    }
    const auto functionKey = named(functionKeys, text);
    const auto key = functionKey ? functionKey : writingKey(text);
    if (!key || (!functionKey && modifiers.isEmpty())) return std::nullopt;
    return Lorrel::Hotkey("menu", *key, modifiers);
}

}  // namespace Pellora
