#include "editor/core/SlotBuffer.h"

#include <gtest/gtest.h>

namespace {
using R = SlotBuffer::Run;
constexpr ColorSlot T = ColorSlot::Text, K = ColorSlot::Keywords0, C = ColorSlot::Comment;

struct Spans {
    std::vector<std::pair<int64_t, std::vector<uint8_t>>> list;
    void operator()(int64_t s, const uint8_t* p, int64_t n) { list.push_back({s, {p, p + n}}); }
};
} // namespace

TEST(SlotBuffer, RunsAreMaximalAndSkipUnpainted) {
    struct Paint {
        int64_t start, length;
        ColorSlot slot;
    };
    struct Case {
        const char* name;
        int64_t base;
        std::vector<Paint> paints;
        std::vector<R> runs;
    };
    const std::vector<Case> cases = {
        {"one paint", 0, {{0, 5, T}}, {{0, 5, T}}},
        {"overpaint splits", 0, {{0, 10, T}, {3, 2, K}}, {{0, 3, T}, {3, 2, K}, {5, 5, T}}},
        {"equal neighbours merge", 0, {{0, 3, K}, {3, 3, K}}, {{0, 6, K}}},
        {"gap stays unpainted", 10, {{10, 2, K}, {20, 2, K}}, {{10, 2, K}, {20, 2, K}}},
        {"grows behind", 5, {{5, 2, T}, {100, 3, C}}, {{5, 2, T}, {100, 3, C}}},
        {"grows in front", 50, {{50, 2, T}, {10, 3, C}}, {{10, 3, C}, {50, 2, T}}},
        {"negative start is cut", 0, {{-5, 7, K}}, {{0, 2, K}}},
        {"empty and negative lengths paint nothing", 0, {{3, 0, K}, {3, -2, K}}, {}},
        {"long run across word steps", 0, {{0, 1000, T}, {999, 1, K}}, {{0, 999, T}, {999, 1, K}}},
    };
    for (auto& c : cases) {
        SlotBuffer b(c.base);
        for (auto& p : c.paints) b.Paint(p.start, p.length, p.slot);
        EXPECT_EQ(b.Runs(), c.runs) << c.name;
        int64_t covered = 0;
        for (auto& r : c.runs) covered += r.length;
        Spans spans;
        b.ForEachSpan(spans);
        int64_t spanned = 0;
        for (auto& [s, bytes] : spans.list) {
            spanned += int64_t(bytes.size());
            for (size_t i = 0; i < bytes.size(); ++i)
                EXPECT_EQ(bytes[i], b.At(s + int64_t(i))) << c.name;
        }
        EXPECT_EQ(spanned, covered) << c.name;
    }
}

TEST(SlotBuffer, SpansJoinSlotsButNotGaps) {
    SlotBuffer b;
    b.Paint(0, 2, T);
    b.Paint(2, 1, K);
    b.Paint(6, 1, C);
    Spans spans;
    b.ForEachSpan(spans);
    ASSERT_EQ(spans.list.size(), 2u);
    EXPECT_EQ(spans.list[0].first, 0);
    EXPECT_EQ(spans.list[0].second, (std::vector<uint8_t>{0, 0, 1}));
    EXPECT_EQ(spans.list[1].first, 6);
    EXPECT_EQ(b.At(4), SlotBuffer::kNotPainted);
    EXPECT_EQ(b.At(-1), SlotBuffer::kNotPainted);
    EXPECT_EQ(b.At(7), SlotBuffer::kNotPainted);
}
