#pragma once

#include <cstdlib>

// Included by one source of each test program that loads the toolkit: its
// tests press the buttons themselves, and nothing of them belongs on the
// screen of whoever runs them.
namespace Tests {

const int isOffscreen = setenv("QT_QPA_PLATFORM", "offscreen", 1);

}  // namespace Tests

// The font library keeps a pattern to itself at the end of the process.
extern "C" inline __attribute__((used, visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
