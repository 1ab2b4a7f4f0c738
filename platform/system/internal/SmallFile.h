#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// The content of a small kernel or configuration file, at most that many bytes
// from its start; absent when it cannot be read. Never waits.
std::optional<std::string> readSmallFile(const std::string& path, std::size_t most = 1 << 20);
// The same for a file whose driver may take its time, however long.
std::optional<std::string> readSlowFile(const std::string& path);
// Without white space at both ends; absent also when nothing is left.
std::optional<std::string> readLine(const std::string& path);
// A decimal number; absent when the file holds anything else.
std::optional<long long> readNumber(const std::string& path);

// The value of KEY in a file of KEY=VALUE lines, unquoted as a shell would
// (os-release, machine-info), invalid UTF-8 replaced; absent when the key is missing.
std::optional<std::string> shellValue(std::string_view content, std::string_view key);

std::optional<long long> parseNumber(std::string_view text);
// Names of a folder's entries that start with the prefix, in no order; "." and ".." never.
std::vector<std::string> entriesWithPrefix(const std::string& folder, std::string_view prefix);

}  // namespace Platform
