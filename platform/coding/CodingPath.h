#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Platform {

// One step into a document: a member's key or an element's index.
struct CodingKey {
    std::string text;                  // empty for an index
    std::optional<std::size_t> index;  // present for an element

    static CodingKey member(std::string key) { return {std::move(key), std::nullopt}; }
    static CodingKey element(std::size_t index) { return {{}, index}; }

    friend bool operator==(const CodingKey&, const CodingKey&) = default;
};

// Where a value stands, from the document's root inwards; empty is the root.
using CodingPath = std::vector<CodingKey>;

// "devices[3].model"; the root is the empty text. Keys are shown as they are.
std::string pathText(const CodingPath& path);

}  // namespace Platform
