// The program's operator new, linked into this test as into the executables.
#include <cstdint>
#include <fstream>
#include <new>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kOwnHeap = false;
#else
constexpr bool kOwnHeap = true;
#endif

// The VmFlags of the mapping that holds address, from /proc/self/smaps.
std::string MappingFlags(const void* address) {
    const auto at = reinterpret_cast<uintptr_t>(address);
    std::ifstream smaps("/proc/self/smaps");
    bool inside = false;
    for (std::string line; std::getline(smaps, line);) {
        uintptr_t from = 0, to = 0;
        char dash = 0;
        std::istringstream head(line);
        if (head >> std::hex >> from >> dash >> to && dash == '-' &&
            line.find(':') > line.find(' '))
            inside = from <= at && at < to;
        else if (inside && line.rfind("VmFlags:", 0) == 0)
            return line;
    }
    return {};
}

TEST(HugePageHeap, LargeBlocksLieOnWholeHugePagesAdvisedForThem) {
    if (!kOwnHeap) GTEST_SKIP() << "the sanitizers' operator new is in use";
    constexpr size_t kHuge = size_t(2) << 20;
    volatile size_t size = 3 * kHuge + 1; // neither a whole number of huge pages nor aligned
    char* block = static_cast<char*>(::operator new(size));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % kHuge, 0u);
    // Its last byte and the rest of its last huge page lie in the advised mapping.
    EXPECT_NE(MappingFlags(block).find(" hg"), std::string::npos) << MappingFlags(block);
    EXPECT_NE(MappingFlags(block + 4 * kHuge - 1).find(" hg"), std::string::npos);
    block[0] = block[size - 1] = 'x';
    ::operator delete(block);
}

TEST(HugePageHeap, SizesThatCannotBeRoundedUpAreRefused) {
    if (!kOwnHeap) GTEST_SKIP() << "the sanitizers report such a size instead of refusing it";
    // Rounding such a size up to whole huge pages would wrap round to a tiny block.
    volatile size_t size = SIZE_MAX - 100;
    EXPECT_THROW(::operator delete(::operator new(size)), std::bad_alloc);
    EXPECT_EQ(::operator new(size, std::nothrow), nullptr);
}

} // namespace
