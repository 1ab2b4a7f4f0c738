#pragma once

#include <cstddef>

namespace Fennick {

// The memory of any values. What a decoding makes stands side by side in pages
// of at most 16 kB, each of which goes with the last of its pieces; everything
// else has memory of its own. Thread: any; a piece may go on another thread.
namespace AnyMemory {

// Never null; throws std::bad_alloc. Aligned for pointers and numbers.
void* take(std::size_t bytes);
void give(void* piece) noexcept;

struct Page;

// While it lives, what its thread takes comes from pages.
class Paged {
public:
    Paged() noexcept;
    ~Paged();
    Paged(const Paged&) = delete;
    Paged& operator=(const Paged&) = delete;

    void* take(std::size_t bytes);

private:
    void turnPage(std::size_t atLeast);
    void leavePage() noexcept;

    Paged* outer_;
    bool isFirst_ = true;
    Page* page_ = nullptr;
    std::byte* next_ = nullptr;  // free from here
    std::byte* end_ = nullptr;
    std::size_t taken_ = 0;  // pieces of the page
    std::size_t size_;       // of the next page
};

// While it lives, pieces of one page that its thread gives one after the other
// are counted off together.
class Giving {
public:
    Giving() noexcept;
    ~Giving();
    Giving(const Giving&) = delete;
    Giving& operator=(const Giving&) = delete;

private:
    bool isOutermost_;
};

}  // namespace AnyMemory

// For the standard containers.
template <typename T>
struct AnyAllocator {
    using value_type = T;

    AnyAllocator() = default;
    template <typename U>
    AnyAllocator(const AnyAllocator<U>&) noexcept
    {
    }

    T* allocate(std::size_t count)
    {
        static_assert(alignof(T) <= alignof(std::size_t));
        return static_cast<T*>(AnyMemory::take(count * sizeof(T)));
    }
    void deallocate(T* piece, std::size_t) noexcept { AnyMemory::give(piece); }

    friend bool operator==(AnyAllocator, AnyAllocator) { return true; }
};

}  // namespace Fennick
