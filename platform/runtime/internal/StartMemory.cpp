#include "platform/runtime/internal/StartMemory.h"

#include <cstdint>
#include <span>
#include <string>

#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/runtime/FileBytes.h"

namespace Platform {

namespace {

// A debugger's breakpoints are written into the pages and would be lost with them.
bool isTraced()
{
    constexpr std::size_t largestStatus = 16 << 10;
    const auto status = readFileBytes("/proc/self/status", largestStatus);
    return !status || status->find("TracerPid:\t0\n") == std::string::npos;
}

// Whether the loader has written into the code, which the file then does not have.
bool isCodeWritten(const dl_phdr_info& object, const ElfW(Phdr) & segment)
{
    const auto* entry = reinterpret_cast<const ElfW(Dyn)*>(object.dlpi_addr + segment.p_vaddr);
    for (; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_TEXTREL) return true;
        if (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0) return true;
    }
    return false;
}

// Segments that may not be written hold what the file holds.
void release(const dl_phdr_info& object, const ElfW(Phdr) & segment)
{
    static const auto pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const std::uintptr_t start = (object.dlpi_addr + segment.p_vaddr) & ~(pageSize - 1);
    const std::uintptr_t end = (object.dlpi_addr + segment.p_vaddr + segment.p_filesz + pageSize - 1) & ~(pageSize - 1);
    ::madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED);
}

int releaseObject(dl_phdr_info* object, std::size_t, void*)
{
    const auto segments = std::span(object->dlpi_phdr, object->dlpi_phnum);
    for (const auto& segment : segments) {
        if (segment.p_type == PT_DYNAMIC && isCodeWritten(*object, segment)) return 0;
    }
    for (const auto& segment : segments) {
        const bool isOfFile = segment.p_type == PT_LOAD && segment.p_filesz == segment.p_memsz;
        if (isOfFile && (segment.p_flags & PF_W) == 0) release(*object, segment);
    }
    return 0;
}

}  // namespace

void releaseStartMemory()
{
    ::malloc_trim(0);
    if (!isTraced()) ::dl_iterate_phdr(&releaseObject, nullptr);
}

}  // namespace Platform
