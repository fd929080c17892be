#include "search/core/GotoNumber.h"

#include <gtest/gtest.h>

namespace {

TEST(ReadNumber, ReadsTheLeadingNumber) {
    struct {
        const char* answer;
        int64_t expected;
    } cases[] = {
        {"12", 12},  {"  7", 7},  {"3abc", 3}, {"abc", 0}, {"", 0},    {"2.5", 2},
        {"3.5", 4},  {"2.51", 3}, {"-4", -4},  {"+5", 5},  {"0.4", 0}, {".5", 0},
        {"1.5x", 2}, {"4 5", 4},  {"\t9", 9},  {"-", 0},
    };
    for (const auto& c : cases) EXPECT_EQ(ReadNumber(c.answer), c.expected) << c.answer;
    EXPECT_EQ(ReadNumber(std::string(23, '9')), 9'000'000'000'000'000'000); // saturated
}

} // namespace
