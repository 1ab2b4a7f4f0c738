#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// The content of a small kernel or configuration file, at most 1 MiB of it;
// absent when it cannot be read.
std::optional<std::string> readSmallFile(const std::string& path);
// Without white space at both ends; absent also when nothing is left.
std::optional<std::string> readLine(const std::string& path);
// A decimal number; absent when the file holds anything else.
std::optional<long long> readNumber(const std::string& path);
// As readSmallFile, for files whose driver may block: gives up after the time.
std::optional<std::string> readWithin(const std::string& path, std::chrono::milliseconds time);

// The value of KEY in a file of KEY=VALUE lines, unquoted as a shell would
// (os-release, machine-info); absent when the key is missing.
std::optional<std::string> shellValue(std::string_view content, std::string_view key);

std::optional<long long> parseNumber(std::string_view text);
std::string_view trimmed(std::string_view text);
// Names of a folder's entries that start with the prefix, in no order; "." and ".." never.
std::vector<std::string> entriesWithPrefix(const std::string& folder, std::string_view prefix);

}  // namespace Platform
