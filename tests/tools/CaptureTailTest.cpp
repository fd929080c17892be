#include "tools/core/CaptureTail.h"

#include "support/TempDir.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace {
void Write(const std::string& path, const std::string& bytes, const char* mode) {
    std::FILE* f = std::fopen(path.c_str(), mode);
    ASSERT_NE(f, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size(), f);
    std::fclose(f);
}
} // namespace

TEST(CaptureTail, FollowsAppendsAndNoticesRewrites) {
    using K = CaptureTail::Kind;
    TempDir tmp;
    const std::string path = tmp.file("cap.txt");
    CaptureTail tail(path);
    struct Step {
        const char* write; // nullptr: leave the file; "-": delete it
        const char* mode;
        std::size_t max;
        K kind;
        std::string bytes;
        bool more;
    };
    const std::string binary("a\0\xff\n", 4);
    const Step steps[] = {
        {nullptr, "", 100, K::Failed, "", false}, // never created yet
        {"", "wb", 100, K::Replace, "", false},   // empty file: the view empties
        {nullptr, "", 100, K::Unchanged, "", false},
        {"line 1\n", "ab", 100, K::Append, "line 1\n", false},
        {"line 2\nline 3\n", "ab", 4, K::Append, "line", true},
        {nullptr, "", 100, K::Append, " 2\nline 3\n", false},
        {"new\n", "wb", 100, K::Replace, "new\n", false}, // a shorter rewrite
        {"NEW RUN WITH MUCH MORE OUTPUT THAN BEFORE\n", "wb", 100, K::Replace,
         "NEW RUN WITH MUCH MORE OUTPUT THAN BEFORE\n", false}, // a longer one
        {"-", "", 100, K::Failed, "", false},
        {"back\n", "wb", 100, K::Replace, "back\n", false},
    };
    int i = 0;
    for (const auto& s : steps) {
        if (s.write && std::string(s.write) == "-")
            std::remove(path.c_str());
        else if (s.write)
            Write(path, s.write, s.mode);
        auto u = tail.Poll(s.max);
        EXPECT_EQ(u.kind, s.kind) << "step " << i;
        EXPECT_EQ(u.bytes, s.bytes) << "step " << i;
        EXPECT_EQ(tail.more(), s.more) << "step " << i;
        ++i;
    }
    Write(path, binary, "ab"); // bytes as they are, NUL included
    EXPECT_EQ(tail.Poll(100).bytes, binary);
}
