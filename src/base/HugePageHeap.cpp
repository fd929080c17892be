// The program's own operator new and delete: large blocks come with transparent huge pages.
//
// The edit control keeps its text, its style bytes and its line index in contiguous buffers
// that it grows by copying into a fresh block, and the painter reads a whole file into one.
// Fresh memory is paid for at its first touch, one page fault and a cleared page every 4 KB,
// which on a virtual machine costs up to 20 ms a megabyte: growing two 11 MB buffers froze
// the window for over 100 ms. A block of 1 MB or more is therefore placed on a 2 MB boundary,
// rounded up to whole 2 MB pages and advised for huge pages (where the system runs them in
// "madvise" mode, as most distributions do), so that it takes one fault per 2 MB. What a block
// may hold beyond its request is less than one huge page.
//
// Linked into the executables only (not the libraries), and left out under the sanitizers,
// which bring their own operator new to check every block.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

#include <cstddef>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {

constexpr size_t kLargeBlock = size_t(1) << 20;
constexpr size_t kHugePage = size_t(2) << 20;

void* TryAllocate(size_t size) noexcept {
    if (size < kLargeBlock) return std::malloc(size ? size : 1);
    if (size > ~size_t(0) - kHugePage) return nullptr;
    const size_t whole = (size + kHugePage - 1) & ~(kHugePage - 1);
    void* block = nullptr;
    if (::posix_memalign(&block, kHugePage, whole) != 0) return nullptr;
    // Advice only: where huge pages are off or none are free, the block gets small ones.
    ::madvise(block, whole, MADV_HUGEPAGE);
    return block;
}

void* Allocate(size_t size) {
    for (;;) {
        if (void* block = TryAllocate(size)) return block;
        std::new_handler handler = std::get_new_handler();
        if (!handler) throw std::bad_alloc();
        handler();
    }
}

void* AllocateNoThrow(size_t size) noexcept {
    try {
        return Allocate(size);
    } catch (...) {
        return nullptr;
    }
}

} // namespace

void* operator new(size_t size) { return Allocate(size); }
void* operator new[](size_t size) { return Allocate(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return AllocateNoThrow(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return AllocateNoThrow(size); }

// Every block, large or small, came from malloc or posix_memalign: free takes both.
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, size_t) noexcept { std::free(block); }
void operator delete[](void* block, size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

#endif
