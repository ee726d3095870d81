#include "core/modules/LibraryPages.h"

#include <cstdint>

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

namespace driftbox {

namespace {

void release(uintptr_t begin, uintptr_t end)
{
    const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    begin &= ~(page - 1);
    // Safe for pages that are never written: they are read from the file again when needed.
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader reports addresses as integers.
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
}

bool contains(const dl_phdr_info& library, uintptr_t address)
{
    for (int i = 0; i < library.dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = library.dlpi_phdr[i];
        if (segment.p_type == PT_LOAD &&
            address - (library.dlpi_addr + segment.p_vaddr) < segment.p_memsz)
            return true;
    }
    return false;
}

// Libraries are visited in load order: this module before its dependencies.
int visit(dl_phdr_info* library, size_t /*size*/, void* data)
{
    bool& hasReachedModule = *static_cast<bool*>(data);
    if (!hasReachedModule)
        hasReachedModule = contains(*library, reinterpret_cast<uintptr_t>(&releaseLibraryPages));
    if (!hasReachedModule)
        return 0;
    for (int i = 0; i < library->dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = library->dlpi_phdr[i];
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_W) == 0) {
            const uintptr_t begin = library->dlpi_addr + segment.p_vaddr;
            release(begin, begin + segment.p_filesz);
        }
    }
    return 0;
}

} // namespace

void releaseLibraryPages()
{
    bool hasReachedModule = false;
    dl_iterate_phdr(visit, &hasReachedModule);
}

} // namespace driftbox
