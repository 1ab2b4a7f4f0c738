#include "platform/runtime/FileDescriptor.h"

#include <unistd.h>

namespace Platform {

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    if (this != &other) {
        reset();
        descriptor_ = other.release();
    }
    return *this;
}

void FileDescriptor::reset()
{
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

}  // namespace Platform
