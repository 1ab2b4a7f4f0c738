// Runs a fuzz target over the files of the folders named as arguments, each
// again and again: first its first allocation fails, then its second, until it
// has had all. It may answer otherwise then or throw std::bad_alloc, but it
// neither crashes nor loses memory.
#include <cerrno>
#include <new>
#include <utility>

#include <malloc.h>

#include "tests/fuzz/Fuzz.h"

namespace {

long untilFailure = -1;  // allocations; negative: none fails

bool fails()
{
    const bool isLast = untilFailure >= 0 && untilFailure-- == 0;
    if (isLast) errno = ENOMEM;
    return isLast;
}

}  // namespace

// The system's allocator under the names that it has for those who replace it.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size)
{
    return fails() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size)
{
    return fails() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size)
{
    return fails() ? nullptr : __libc_realloc(block, size);
}
}

namespace {

using Input = std::vector<std::uint8_t>;

// False once nothing was left to fail.
bool runStarved(const Input& input, long allocations)
{
    untilFailure = allocations;
    try {
        LLVMFuzzerTestOneInput(input.data(), input.size());
    } catch (const std::bad_alloc&) {
    }
    return std::exchange(untilFailure, -1) < 0;
}

// How many allocations failed.
long starve(const std::vector<Input>& inputs)
{
    long failures = 0;
    for (const Input& input : inputs) {
        for (long allocations = 0; allocations < 20'000 && runStarved(input, allocations); ++allocations) ++failures;
    }
    return failures;
}

}  // namespace

int main(int argc, char** argv)
{
    const auto inputs = inputsIn(argc, argv);
    for (const Input& input : inputs) LLVMFuzzerTestOneInput(input.data(), input.size());  // what a thread makes once
    isStarving = true;
    const long failures = starve(inputs);
    const std::size_t before = mallinfo2().uordblks;
    starve(inputs);
    const auto lost = static_cast<long>(mallinfo2().uordblks - before);
    std::printf("%ld failed allocations, %ld bytes lost\n", failures, lost);
    return failures > 0 && lost <= 0 ? 0 : 1;
}
