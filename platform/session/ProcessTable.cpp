#include "platform/session/ProcessTable.h"

#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"
#include "platform/session/internal/ProcessFolder.h"

namespace Platform {

namespace {

constexpr std::size_t longestName = 16;
constexpr std::size_t longestKernelName = 15;

// The base name of the program behind a kernel name that may have been cut.
std::string_view fullerName(const ProcessFolder& folder, pid_t process, std::string_view kernelName,
                            ProcessFolder::Buffer& buffer)
{
    std::string_view program = folder.executable(process, buffer).value_or("");
    program = program.substr(program.rfind('/') + 1);
    return program.starts_with(kernelName) ? program.substr(0, longestName) : kernelName;
}

bool hasName(const ProcessFolder& folder, pid_t process, std::string_view name)
{
    ProcessFolder::Buffer text;
    const auto kernelName = folder.commandName(process, text);
    if (!kernelName) return false;
    if (kernelName->size() != longestKernelName) return kernelName->substr(0, longestName) == name;
    if (!name.starts_with(*kernelName)) return false;
    ProcessFolder::Buffer link;
    return fullerName(folder, process, *kernelName, link) == name;
}

}  // namespace

ProcessTable& ProcessTable::shared()
{
    return Shared<ProcessTable>::get([] { return std::make_unique<ProcessTable>(); });
}

ProcessTable::ProcessTable() : folder_(std::make_unique<ProcessFolder>(SystemRoots::shared().proc())) {}
ProcessTable::~ProcessTable() = default;

bool ProcessTable::contains(std::string_view name) const
{
    if (name.size() > longestName) return false;
    return folder_->anyProcess([&](pid_t process) { return hasName(*folder_, process, name); });
}

}  // namespace Platform
