#pragma once

#include <string>

#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// How full the file system of a folder is, as its owner may use it:
// "disk.percent", "disk.used", "disk.free".
class DiskProvider final : public Provider {
public:
    explicit DiskProvider(std::string folder = "/");
    void update(double elapsed) override;

private:
    const std::string folder_;
    NumberReading percent_;
    NumberReading used_;
    NumberReading free_;
};

}  // namespace Pellora
