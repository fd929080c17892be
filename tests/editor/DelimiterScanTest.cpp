// The pairs searched ahead, in steps as the keyword scan's rounds take them, against the
// delimiter coder painting the same pairs over the whole text.
#include "editor/core/DelimiterScan.h"
#include "editor/PaintHarness.h"

#include <gtest/gtest.h>

#include <random>

TEST(DelimiterScan, StepsFindWhatTheCoderPaints) {
    const std::vector<std::string> pieces = {"a",  "ab", "/*", "*/", "/", "*",
                                             "\"", "'",  "\n", " ",  "x", "\r\n"};
    const std::vector<std::string> needles = {"a", "ab", "/*", "*/", "\"", "'", "\n", "*/a"};
    std::mt19937 gen(7);
    auto pick = [&](const std::vector<std::string>& v) {
        return v[std::uniform_int_distribution<size_t>(0, v.size() - 1)(gen)];
    };
    for (int round = 0; round < 400; ++round) {
        std::string text;
        for (int i = std::uniform_int_distribution<int>(0, 80)(gen); i > 0; --i)
            text += pick(pieces);
        std::vector<DelimiterScan::Pair> pairs;
        for (int i = std::uniform_int_distribution<int>(1, 4)(gen); i > 0; --i)
            pairs.push_back({pick(needles), pick(needles)});

        DelimiterScan scan(text, pairs);
        const int64_t step = std::uniform_int_distribution<int64_t>(1, 9)(gen);
        for (int64_t limit = step; !scan.Finished(); limit += step) {
            scan.Advance(limit);
            ASSERT_EQ(scan.Reached(), std::min<int64_t>(limit, int64_t(text.size())));
        }
        ASSERT_EQ(scan.PairCount(), pairs.size());
        for (size_t p = 0; p < pairs.size(); ++p) {
            // Each pair's spans painted alone give what the coder paints for it.
            PaintHarness coder(text), spans(text);
            int32_t colour = 1;
            CodeDelimiters(coder.ctx, 0, int64_t(text.size()), pairs[p].opener, pairs[p].closer,
                           colour);
            for (auto& s : scan.Spans(p)) spans.slots.Paint(s.start, s.length, ColorSlot::Comment);
            ASSERT_EQ(spans.Show(), coder.Show())
                << "round " << round << " pair " << p << " step " << step << " text " << text;
        }
    }
}
