#include "filetools/core/LockStepCompare.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {
// Rows as "pair icon text1|text2", one string per row. Blank lines, the shorter file and a
// missing side are run by kestrum_do_compare.sh.
std::vector<std::string> Rows(const ComparisonResult& r) {
    std::vector<std::string> out;
    for (const auto& row : r.rows)
        out.push_back(std::to_string(row.pair) + " " + std::to_string(ComparisonResult::Icon(row)) +
                      " " + std::string(r.Text1(row)) + "|" + std::string(r.Text2(row)));
    return out;
}

ComparisonResult Compare(std::string a, std::string b, CompareOptions o) {
    ComparisonResult r;
    r.bytes1.assign(a);
    r.bytes2.assign(b);
    CompareLockStep(r, true, true, o);
    return r;
}
} // namespace

TEST(LockStepCompare, Rules) {
    struct Case {
        const char* name;
        std::string first, second;
        CompareOptions options;
        std::vector<std::string> rows;
    };
    const CompareOptions plain{}, diff{false, true, false};
    const std::vector<Case> cases = {
        {"CR LF, LF, lone CR", "a\r\nb\rc", "a\nb\nc\n", plain, {"1 2 a|a", "2 2 b|b", "3 2 c|c"}},
        {"inserted", "new\na\nb\nc\n", "a\nb\nc\n", plain, {"1 1 new|a", "2 1 a|b", "3 1 b|c"}},
        {"pair numbers under diff", "a\nx\nc\ny\n", "a\nb\nc\nd\n", diff, {"2 1 x|b", "4 1 y|d"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Rows(Compare(c.first, c.second, c.options)), c.rows) << c.name;
}

TEST(LockStepCompare, UnreadableSideIsEmptyAndEndsAfterOnePair) {
    TempDir dir;
    const std::string one = dir.write("one", "x\ny\n");
    const std::string fifo = dir.file("fifo");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // A device, a pipe nobody writes to, the file against itself; a folder and a missing file
    // are kestrum_do_compare.sh's.
    struct Case {
        std::string second;
        std::vector<std::string> rows;
    } cases[] = {{"/dev/zero", {"1 1 x|"}}, {fifo, {"1 1 x|"}}, {one, {"1 2 x|x", "2 2 y|y"}}};
    for (const auto& c : cases)
        EXPECT_EQ(Rows(CompareFiles(one, c.second, {})), c.rows) << c.second;
}

TEST(LockStepCompare, LongLinesAndManyLines) {
    const std::string big(5 << 20, 'z');
    auto r = Compare(big + "\n", big + "\r\n", {});
    ASSERT_EQ(r.rows.size(), 1u);
    EXPECT_EQ(r.Text1(r.rows[0]).size(), big.size());
    EXPECT_TRUE(r.rows[0].identical);

    // Only lone CRs: each line found once (a quadratic scan would take minutes here).
    std::string crs;
    for (int i = 0; i < 200000; ++i) crs += "l\r";
    EXPECT_EQ(Compare(crs, crs, {}).rows.size(), 200000u);
}
