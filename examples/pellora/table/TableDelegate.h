#pragma once

#include <cstddef>
#include <memory>

#include "examples/pellora/Monitor.h"
#include "examples/pellora/table/LiveTable.h"
#include "platform/runtime/Application.h"

namespace Pellora {

// Pellora in a terminal: prints the readings and, after so many refreshes (0
// for never), ends. Thread: main.
class TableDelegate final : public Platform::ApplicationDelegate {
public:
    TableDelegate(const Settings& settings, std::size_t refreshes);

    void applicationDidFinishLaunching() override;

private:
    const Settings settings_;
    const std::size_t refreshes_;
    std::unique_ptr<Monitor> monitor_;
    std::shared_ptr<LiveTable> table_;
};

}  // namespace Pellora
