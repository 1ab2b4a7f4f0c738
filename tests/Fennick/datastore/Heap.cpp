#include "tests/Fennick/datastore/Heap.h"

#include <cstdlib>
#include <new>

#include <malloc.h>

void* operator new(std::size_t size)
{
    void* const block = std::malloc(size);
    if (!block) throw std::bad_alloc();
    ++Tests::Heap::allocations;
    Tests::Heap::bytesInUse += static_cast<std::int64_t>(malloc_usable_size(block));
    return block;
}

void operator delete(void* block) noexcept
{
    Tests::Heap::bytesInUse -= static_cast<std::int64_t>(malloc_usable_size(block));
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}
