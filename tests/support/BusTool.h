#pragma once

#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"

namespace Tests {

// What busctl, a program of another maker, writes when it is given the words;
// it joins the session bus while our loop runs on. Thread: main.
inline std::string busctl(std::vector<std::string> words)
{
    words.insert(words.begin(), {"busctl", "--user"});
    ChildProcess program(words, {.streams = ChildStreams::outputAndErrors});
    eventually([&] { return program.hasEnded(); });
    return program.readAll();
}

}  // namespace Tests
