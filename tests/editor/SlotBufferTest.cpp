#include "editor/core/SlotBuffer.h"

#include <gtest/gtest.h>

namespace {
using R = SlotBuffer::Run;
constexpr ColorSlot T = ColorSlot::Text, K = ColorSlot::Keywords0, C = ColorSlot::Comment;
} // namespace

// Runs are maximal stretches of one slot; spans are maximal stretches of painted positions,
// whatever their slots, and both skip what nobody painted.
TEST(SlotBuffer, RunsSpansAndUnpaintedGaps) {
    struct Paint {
        int64_t start, length;
        ColorSlot slot;
    };
    struct Case {
        const char* name;
        int64_t base;
        std::vector<Paint> paints;
        std::vector<R> runs;
        std::vector<int64_t> spanStarts;
    };
    const std::vector<Case> cases = {
        {"overpaint splits", 0, {{0, 10, T}, {3, 2, K}}, {{0, 3, T}, {3, 2, K}, {5, 5, T}}, {0}},
        {"equal neighbours merge", 0, {{0, 3, K}, {3, 3, K}}, {{0, 6, K}}, {0}},
        {"gap stays unpainted", 10, {{10, 2, K}, {20, 2, K}}, {{10, 2, K}, {20, 2, K}}, {10, 20}},
        {"grows in front", 50, {{50, 2, T}, {10, 3, C}}, {{10, 3, C}, {50, 2, T}}, {10, 50}},
        {"negative start is cut", 0, {{-5, 7, K}}, {{0, 2, K}}, {0}},
        {"empty and negative lengths paint nothing", 0, {{3, 0, K}, {3, -2, K}}, {}, {}},
    };
    for (auto& c : cases) {
        SlotBuffer b(c.base);
        for (auto& p : c.paints) b.Paint(p.start, p.length, p.slot);
        EXPECT_EQ(b.Runs(), c.runs) << c.name;
        // Every position from one in front of the window to one behind it.
        for (int64_t pos = b.Base() - 1; pos <= b.Base() + b.Size(); ++pos) {
            uint8_t slot = SlotBuffer::kNotPainted;
            for (auto& r : c.runs)
                if (pos >= r.start && pos < r.start + r.length) slot = uint8_t(r.slot);
            EXPECT_EQ(b.At(pos), slot) << c.name << " at " << pos;
        }
        std::vector<int64_t> starts;
        int64_t spanned = 0, covered = 0;
        b.ForEachSpan([&](int64_t start, const uint8_t* bytes, int64_t n) {
            starts.push_back(start);
            spanned += n;
            for (int64_t i = 0; i < n; ++i) EXPECT_EQ(bytes[i], b.At(start + i)) << c.name;
        });
        for (auto& r : c.runs) covered += r.length;
        EXPECT_EQ(starts, c.spanStarts) << c.name;
        EXPECT_EQ(spanned, covered) << c.name;
    }
}
