#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// Takes one input; an answer of 0 means that nothing broke.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// What must hold for every input; ends the program where it does not.
inline void require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
