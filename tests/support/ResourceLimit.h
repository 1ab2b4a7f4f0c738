#pragma once

#include <csignal>

#include <sys/resource.h>

namespace Tests {

// Lowers one of this process's limits for a scope: RLIMIT_FSIZE for a disk that
// is full, RLIMIT_NOFILE for descriptors that are used up.
class ResourceLimit {
public:
    ResourceLimit(__rlimit_resource resource, rlim_t value) : resource_(resource)
    {
        std::signal(SIGXFSZ, SIG_IGN);  // a write past the limit is refused then
        ::getrlimit(resource, &usual_);
        const rlimit lowered{value, usual_.rlim_max};
        ::setrlimit(resource, &lowered);
    }
    ResourceLimit(const ResourceLimit&) = delete;
    ResourceLimit& operator=(const ResourceLimit&) = delete;
    ~ResourceLimit() { ::setrlimit(resource_, &usual_); }

private:
    __rlimit_resource resource_;
    rlimit usual_{};
};

}  // namespace Tests
