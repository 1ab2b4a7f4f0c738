#pragma once

#include <memory>
#include <string_view>

namespace Platform {

class ProcessFolder;

// The kernel's table of processes, all users'. Thread: any.
class ProcessTable {
public:
    static ProcessTable& shared();
    ProcessTable();
    ~ProcessTable();

    // Whether some process has exactly this name, by one pass over the table.
    // A name has at most 16 characters: the command name, or, where the kernel
    // cut that (it keeps 15), the executable's name if it begins with it.
    bool contains(std::string_view name) const;

private:
    std::unique_ptr<ProcessFolder> folder_;
};

}  // namespace Platform
