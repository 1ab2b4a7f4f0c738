#include "platform/input/HotKeyTable.h"

#include <algorithm>
#include <set>

namespace Platform {

HotKeyHandle HotKeyTable::add(const KeyCombination& combination, HotKeyId id)
{
    entries_.emplace(++lastHandle_, Entry{combination, id});
    return lastHandle_;
}

bool HotKeyTable::remove(HotKeyHandle handle)
{
    return entries_.erase(handle) > 0;
}

bool HotKeyTable::holds(const KeyCombination& combination) const
{
    return std::ranges::any_of(entries_, [&](const auto& entry) { return entry.second.combination == combination; });
}

std::vector<KeyCombination> HotKeyTable::combinations() const
{
    std::set<KeyCombination> known;
    std::vector<KeyCombination> all;
    for (const auto& [handle, entry] : entries_) {
        if (known.insert(entry.combination).second) all.push_back(entry.combination);
    }
    return all;
}

HotKeyEventHandlerHandle HotKeyTable::install(HotKeyEventHandler handler)
{
    handlers_.push_back(std::move(handler));
    return handlers_.size();
}

void HotKeyTable::press(const KeyCombination& combination)
{
    if (down_.contains(combination.keyCode)) return;
    std::vector<HotKeyHandle> pressed;
    for (const auto& [handle, entry] : entries_) {
        if (entry.combination == combination) pressed.push_back(handle);
    }
    if (pressed.empty()) return;
    down_[combination.keyCode] = pressed;
    tell(pressed, HotKeyEventKind::pressed);
}

void HotKeyTable::release(std::uint32_t keyCode)
{
    const auto found = down_.find(keyCode);
    if (found == down_.end()) return;
    const std::vector<HotKeyHandle> pressed = std::move(found->second);
    down_.erase(found);
    tell(pressed, HotKeyEventKind::released);
}

void HotKeyTable::tell(const std::vector<HotKeyHandle>& handles, std::uint32_t kind)
{
    for (const HotKeyHandle handle : handles) {
        const auto entry = entries_.find(handle);  // may be gone since the first was told
        if (entry == entries_.end()) continue;
        tell(HotKeyEvent{HotKeyStatuses::noError, entry->second.id, kind});
    }
}

void HotKeyTable::tell(const HotKeyEvent& event)
{
    for (std::size_t index = handlers_.size(); index-- > 0;) {
        const HotKeyEventHandler handler = handlers_[index];
        if (handler(&event) == HotKeyStatuses::noError) return;
    }
}

}  // namespace Platform
