#include "tools/core/ErrorLocation.h"

#include <gtest/gtest.h>

TEST(ErrorLocation, FindsTheFirstLocationOfALine) {
    struct Case {
        const char* line;
        std::optional<ErrorLocation> expected;
    };
    const Case cases[] = {
        {"src/a.c:12:5: error: expected ';'", ErrorLocation{"src/a.c", 12, 5}},
        {"/abs/b.h:3: warning: unused", ErrorLocation{"/abs/b.h", 3, 0}},
        {"ld: main.o:main.c:7: undefined reference", ErrorLocation{"main.c", 7, 0}},
        {"make: *** [Makefile:12: all] Error 1", ErrorLocation{"Makefile", 12, 0}},
        {"  File \"/p/run.py\", line 41, in <module>", ErrorLocation{"/p/run.py", 41, 0}},
        {"x.c:9:0x: odd column", ErrorLocation{"x.c", 9, 0}},
        {"In file included from a.h:3,", std::nullopt},
        {"at 12:30:45 the build started", std::nullopt},
        {"file.c:0: nothing at line zero", std::nullopt},
        {"file.c:99999999999: too big", std::nullopt},
        {":12: no file", std::nullopt},
        {"Tool finished (exit 2)", std::nullopt},
        {"  File \"\", line 3", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(ParseErrorLocation(c.line), c.expected) << c.line;
}

TEST(ErrorLocation, RelativePathsResolveAgainstTheDocumentFolder) {
    EXPECT_EQ(ResolveToolPath("src/a.c", "/home/u/p/"), "/home/u/p/src/a.c");
    EXPECT_EQ(ResolveToolPath("./a.c", "/home/u/p"), "/home/u/p/a.c");
    EXPECT_EQ(ResolveToolPath("/abs/a.c", "/home/u/p/"), "/abs/a.c");
    EXPECT_EQ(ResolveToolPath("a.c", ""), "a.c");
}
