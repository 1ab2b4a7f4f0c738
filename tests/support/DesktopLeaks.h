#pragma once

// Included by one source of each test program with a real display. The font
// library keeps a pattern to itself at the end of the process, the toolkit's
// accessibility a message of the bus library.
extern "C" inline __attribute__((used, visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}
