#pragma once

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace Tests {

inline long tortureSetting(const char* variable, long usual)
{
    const char* text = std::getenv(variable);
    return text ? std::atol(text) : usual;
}

// How much of something a test does: as usual, or times the factor that
// "./test torture" sets, which reads the figure from the test's report.
inline long atLength(const char* what, long usual)
{
    const long count = usual * tortureSetting("PELLORA_TORTURE", 1);
    testing::Test::RecordProperty(what, std::to_string(count));
    return count;
}

// The usual start of random numbers, or another one in each round of torture.
inline unsigned seedOf(unsigned usual)
{
    return usual + static_cast<unsigned>(tortureSetting("PELLORA_SEED", 0));
}

}  // namespace Tests
