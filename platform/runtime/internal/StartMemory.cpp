#include "platform/runtime/internal/StartMemory.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include <fcntl.h>
#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"

namespace Platform {

namespace {

struct Pages {
    std::uintptr_t first, count;
};

std::uintptr_t pageSize()
{
    static const auto size = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    return size;
}

// What the kernel says of each page of the process.
class PageMap {
public:
    bool isOpen() const { return file_.isOpen(); }

    // Nothing stands in memory but what the file holds: a page that has been
    // written (breakpoints, hooks, relocated code) is lost when it is given back.
    bool isAllOfFile(Pages pages) const
    {
        std::array<std::uint64_t, 512> entries;
        while (pages.count > 0) {
            const auto known = std::span(entries).first(std::min(pages.count, entries.size()));
            const auto size = static_cast<ssize_t>(known.size_bytes());
            const auto place = static_cast<off_t>(pages.first * sizeof(std::uint64_t));
            if (::pread(file_.get(), known.data(), known.size_bytes(), place) != size) return false;
            if (!std::ranges::all_of(known, isOfFile)) return false;
            pages.first += known.size();
            pages.count -= known.size();
        }
        return true;
    }

private:
    // Documentation/admin-guide/mm/pagemap.rst of the kernel.
    static bool isOfFile(std::uint64_t entry)
    {
        constexpr std::uint64_t isPresent = 1ULL << 63, isSwapped = 1ULL << 62, isFilePage = 1ULL << 61;
        return (entry & (isPresent | isSwapped)) == 0 || (entry & isFilePage) != 0;
    }

    const FileDescriptor file_{::open("/proc/self/pagemap", O_RDONLY | O_CLOEXEC)};
};

Pages pagesOf(const dl_phdr_info& object, const ElfW(Phdr) & segment)
{
    const std::uintptr_t start = object.dlpi_addr + segment.p_vaddr;
    const std::uintptr_t first = start / pageSize();
    return {first, (start + segment.p_filesz + pageSize() - 1) / pageSize() - first};
}

int release(dl_phdr_info* object, std::size_t, void* map)
{
    for (const auto& segment : std::span(object->dlpi_phdr, object->dlpi_phnum)) {
        if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) != 0) continue;
        const Pages pages = pagesOf(*object, segment);
        if (!static_cast<const PageMap*>(map)->isAllOfFile(pages)) continue;
        ::madvise(reinterpret_cast<void*>(pages.first * pageSize()), pages.count * pageSize(), MADV_DONTNEED);
    }
    return 0;
}

}  // namespace

void releaseStartMemory()
{
    ::malloc_trim(0);
    PageMap map;
    if (map.isOpen()) ::dl_iterate_phdr(&release, &map);
}

}  // namespace Platform
