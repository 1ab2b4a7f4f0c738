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

[[noreturn]] inline void endForBroken(const char* what)
{
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Called with what should have held.
inline void (*broken)(const char* what) = &endForBroken;

// What must hold for every input.
inline void require(bool holds, const char* what)
{
    if (!holds) broken(what);
}
