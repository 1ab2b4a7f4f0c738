#pragma once

#include <utility>

namespace Platform {

// Owns one kernel descriptor and closes it exactly once.
// Thread: any, one at a time.
class [[nodiscard]] FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    ~FileDescriptor() { reset(); }

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }
    explicit operator bool() const { return isOpen(); }

    // Gives the descriptor away; the caller closes it.
    int release() { return std::exchange(descriptor_, -1); }
    void reset();

private:
    int descriptor_ = -1;
};

}  // namespace Platform
