#include "tools/core/LineIndex.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

// Every way of cutting the text in two, and byte by byte, indexes the same lines as one piece.
TEST(LineIndex, LinesSurviveAnyCutBetweenAppends) {
    const struct {
        const char* name;
        std::string text;
        std::vector<std::uint64_t> starts;
        std::uint64_t longest;
    } cases[] = {
        {"empty", "", {0}, 0},
        {"ended lines", "ab\ncde\n", {0, 3, 7}, 3},
        {"CR LF stays in its line", "a\r\nb", {0, 3}, 2},
        {"binary", std::string("\0\xff\n\0", 4), {0, 3}, 2},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        std::vector<std::vector<std::string>> feeds;
        for (std::size_t cut = 0; cut <= k.text.size(); ++cut)
            feeds.push_back({k.text.substr(0, cut), k.text.substr(cut)});
        std::vector<std::string> bytes;
        for (char c : k.text) bytes.emplace_back(1, c);
        feeds.push_back(bytes);
        for (const auto& feed : feeds) {
            LineIndex index;
            index.Append("stale\nbytes"); // cleared away first
            index.Clear();
            for (const auto& piece : feed) index.Append(piece);
            ASSERT_EQ(index.lines(), k.starts.size());
            EXPECT_EQ(index.size(), k.text.size());
            EXPECT_EQ(index.longest(), k.longest);
            for (std::size_t i = 0; i < k.starts.size(); ++i) {
                EXPECT_EQ(index.Start(i), k.starts[i]) << "line " << i;
                const std::uint64_t end =
                    i + 1 < k.starts.size() ? k.starts[i + 1] - 1 : k.text.size();
                EXPECT_EQ(index.End(i), end) << "line " << i;
                EXPECT_EQ(index.LineOf(k.starts[i]), i);
                EXPECT_EQ(index.LineOf(end), i);
            }
        }
    }
}

// Far more lines than the first blocks hold, up to blocks laid on huge pages: the lines on
// both sides of each block's edge are found.
TEST(LineIndex, LinesAcrossBlocks) {
    LineIndex index;
    const std::size_t n = 600000;
    std::string text;
    for (std::size_t i = 0; i < n; ++i) text += i % 2 ? "odd line\n" : "even\n";
    index.Append(std::string_view(text).substr(0, 1000));
    index.Append(std::string_view(text).substr(1000));
    ASSERT_EQ(index.lines(), n + 1);
    for (std::size_t first = 4096, k = 1; first < n; first += 4096 << k, ++k) {
        for (std::size_t i : {first, first + 1}) {
            const std::uint64_t start = (i / 2) * 14 + (i % 2) * 5;
            EXPECT_EQ(index.Start(i), start) << i;
            EXPECT_EQ(index.LineOf(start + 2), i);
        }
    }
    EXPECT_EQ(index.Start(n), index.size());
    EXPECT_EQ(index.longest(), 8u);
}
