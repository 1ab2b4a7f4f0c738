#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/bundle/Bundle.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/TemporaryDirectory.h"

namespace Tests {

// Files below the machine's root and their content.
using Files = std::vector<std::pair<std::string, std::string>>;

// A machine whose /proc and /sys are files of the test, and whose user reads English.
struct Machine {
    void write(const Files& files) const
    {
        for (const auto& [path, content] : files) folder.write(path, content);
    }

    TemporaryDirectory folder;
    ReplacedSystemRoots roots{folder.path()};
    ReplacedEnvironment environment{folder / "home"};
    Platform::Shared<Platform::Bundle>::Override bundle{Platform::Bundle::open(PELLORA_APP)};
};

}  // namespace Tests
