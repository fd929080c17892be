#include "editor/core/LineCommand.h"

#include <gtest/gtest.h>

namespace {
// Applies the edits from the back, as the editor does, and returns the text and selection.
struct Applied {
    std::string text;
    std::string selected;
};
Applied Apply(std::string text, const LineCommandResult& r) {
    for (auto it = r.edits.rbegin(); it != r.edits.rend(); ++it)
        text.replace(size_t(it->start), size_t(it->length), it->text);
    return {text, text.substr(size_t(r.selStart), size_t(r.selLength))};
}
} // namespace

// Indent and unindent of a plain selection are followed in the typing aids' block Tab test,
// the line comment in the menu commands' test.
TEST(LineTransforms, LineStepsOverTheSelectedLines) {
    struct Case {
        const char* name;
        std::string text;
        int64_t start, length;
        LineStep step;
        std::string unit;
        std::string want, wantSelected;
    };
    const std::string three = "one\r\ntwo\r\nthree\r\nfour";
    std::vector<Case> cases = {
        {"selection ending at a line start skips that line", three, 5, 5, LineStep::Indent, "\t",
         "one\r\n\ttwo\r\nthree\r\nfour", "\ttwo"},
        {"just CR LF works on the line before", three, 3, 2, LineStep::Indent, "\t",
         "\tone\r\ntwo\r\nthree\r\nfour", "\tone"},
        {"empty lines are indented too", "a\r\n\r\nb", 0, 6, LineStep::Indent, "  ",
         "  a\r\n  \r\n  b", "  a\r\n  \r\n  b"},
        {"unindent whole units only", "    a\r\n  b\r\n    c", 0, 15, LineStep::Unindent, "    ",
         "a\r\n  b\r\nc", "a\r\n  b\r\nc"},
        {"unindent leaves a tab line in spaces mode", "\tx\r\n    y", 0, 9, LineStep::Unindent,
         "    ", "\tx\r\ny", "\tx\r\ny"},
        {"trim trailing stops at a tab", "abc  \t  \r\nz", 0, 0, LineStep::TrimTrailing, "",
         "abc  \t\r\nz", "abc  \t"},
        {"trim both ends of a blank line keeps the line", "   \r\nq", 0, 0, LineStep::Trim, "",
         "\r\nq", ""},
        {"trim preceding", "  a  \r\n b", 0, 9, LineStep::TrimPreceding, "", "a  \r\nb",
         "a  \r\nb"},
        {"empty document", "", 0, 0, LineStep::Indent, "\t", "\t", "\t"},
    };
    for (const auto& c : cases) {
        auto r = LineCommand(c.text, c.start, c.length, c.step, c.unit);
        Applied a = Apply(c.text, r);
        EXPECT_EQ(a.text, c.want) << c.name;
        EXPECT_EQ(a.selected, c.wantSelected) << c.name;
    }
}

TEST(LineTransforms, UnindentOnAShortLastLineRemovesNothing) {
    EXPECT_TRUE(LineCommand("ab\r\n    c", 0, 0, LineStep::Unindent, "    ").edits.empty());
}
