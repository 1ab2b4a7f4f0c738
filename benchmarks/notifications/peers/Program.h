#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace Bench {

// A peer's process whose output is read line by line. Killed with its owner.
class Program {
public:
    explicit Program(const std::vector<std::string>& command);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    pid_t pid() const { return pid_; }
    // Empty at the end of the output.
    std::string readLine() const;
    // Until it has ended.
    void wait();

private:
    pid_t pid_ = -1;
    int output_ = -1;
};

// Starts the whole program again on a private session bus, unless that has been done.
void onPrivateBus(char** argv);

}  // namespace Bench
