#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

// Takes one input; an answer of 0 means that nothing broke.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The files of the folders named as a program's arguments.
inline std::vector<std::vector<std::uint8_t>> inputsIn(int argc, char** argv)
{
    std::vector<std::vector<std::uint8_t>> inputs;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        }
    }
    return inputs;
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// An answer without memory may be any.
inline bool isStarving = false;

// What must hold for every input.
inline void require(bool holds, const char* what)
{
    if (holds || isStarving) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
