#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/datastore/IDataStore.h"

namespace Pellora {

// How many columns a text takes up on a terminal, one for each user-perceived character.
std::size_t columnsOf(std::string_view text);

// One line a reading: name, value and, where it has a history and `graphWidth`
// is not 0, its graph; the columns aligned. Keys without a reading are left out.
std::vector<std::string> tableLines(const Fennick::IDataStore& readings, const std::vector<std::string>& keys,
                                    std::size_t graphWidth);

}  // namespace Pellora
