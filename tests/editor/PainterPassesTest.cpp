// How a pass gives way to the event loop while it runs. What the coders paint, in every pass and
// range, is checked against the literal reference painter in PainterCrossCheckTest.
#include "editor/PaintHarness.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {
void SetPairs(EditorSettings& s, std::vector<DelimiterPair> pairs) {
    for (size_t i = 0; i < s.Delimiters.size(); ++i)
        s.Delimiters[i] = i < pairs.size() ? pairs[i] : DelimiterPair{};
}
} // namespace

TEST(PainterPasses, YieldsByTimeAndStopsWhenTheTextChanged) {
    std::string text;
    while (text.size() < 300000) text += "int x; /* c */ \"s\"\r\n";
    struct Case {
        const char* name;
        std::chrono::milliseconds interval;
        bool goOn;
        PassResult result;
    };
    const std::vector<Case> cases = {{"text changed", 0ms, false, PassResult::Aborted},
                                     {"goes on", 0ms, true, PassResult::Done},
                                     {"no time used up", 1h, false, PassResult::Done}};
    for (auto& c : cases) {
        for (int pass = 0; pass < 3; ++pass) {
            PaintHarness h(text);
            h.settings.Keywords = {"int\xFF", "", ""};
            SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}});
            int calls = 0;
            h.ctx.YieldInterval = c.interval;
            h.ctx.Yield = [&calls, &c] { return ++calls, c.goOn; };
            PassResult r = pass == 0   ? ColorCode(h.ctx)
                           : pass == 1 ? CodePassage(h.ctx, 0, int64_t(text.size()))
                                       : CodeLine(h.ctx, 0, int64_t(text.size()));
            EXPECT_EQ(r, c.result) << c.name << " pass " << pass;
            if (c.result == PassResult::Aborted) {
                EXPECT_EQ(calls, 1) << c.name << ": stops at the first refusal";
                EXPECT_EQ(FlagPair(h.flags), FlagPair(kStale)) << c.name << ": runs again later";
                // Keywords come first (CodeOrder true): no pair was painted after the stop.
                EXPECT_EQ(h.Show().find('4'), std::string::npos) << c.name;
            } else {
                EXPECT_FALSE(h.flags.ChangedHighLight) << c.name;
                // By time, not per find: there are 45000 finds here.
                EXPECT_LT(calls, int(text.size() / 1000)) << c.name;
                if (c.interval.count() > 0)
                    EXPECT_EQ(calls, 0) << c.name;
                else
                    EXPECT_GT(calls, 0) << c.name;
            }
        }
    }
}
