#include "tools/core/ToolStore.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace {
constexpr const char* kApp = "Kestrum";
}

TEST(ToolStore, ToolsRoundTripThroughTheSettingsFile) {
    TempDir tmp;
    {
        SettingsStore store(tmp.path());
        ToolStore tools(store, kApp);
        EXPECT_EQ(tools.LoadDefault(), (DefaultCompiler{"", "", true, false}));
        EXPECT_EQ(tools.RunFlags(), std::make_pair(true, false));
        tools.SaveTool("zc", "zc %F", "");
        tools.SaveTool(" gcc ", "  gcc -Wall %F  ", "  /src/dir ");
        tools.SaveTool("viewer", "less %F", "/tmp");
        tools.RemoveTool("viewer");  // its directory entry stays behind
        tools.RemoveTool("no such"); // nothing to remove: no error
        tools.SetDefault(" gcc ");
        tools.SaveRunFlags(false, true);
        tools.SaveUtility("Top", "  top -d 1 ");
        tools.SaveUtility("Calc", "bc");
        tools.SaveUtility("Calc", "bc -l"); // same name overwrites
        tools.RemoveUtility("Gone");
    }
    SettingsStore store(tmp.path());
    ToolStore tools(store, kApp);
    // Store order, not sorted; the name is kept untrimmed, the values trimmed.
    EXPECT_EQ(tools.ToolNames(), (std::vector<std::string>{"zc", " gcc "}));
    EXPECT_EQ(tools.Tool(" gcc "), (ToolRecord{" gcc ", "gcc -Wall %F", "/src/dir"}));
    EXPECT_EQ(tools.Tool("viewer"), (ToolRecord{"viewer", "", "/tmp"}));
    EXPECT_EQ(store.GetSetting(kApp, kToolPathsSection, "zc", "unset"), "");
    // The default is a copy: removing its tool leaves it in force.
    tools.RemoveTool(" gcc ");
    EXPECT_EQ(tools.LoadDefault(), (DefaultCompiler{"gcc -Wall %F", "/src/dir", true, false}));
    EXPECT_EQ(tools.RunFlags(), std::make_pair(false, true));
    EXPECT_EQ(tools.Utilities(), (std::vector<std::pair<std::string, std::string>>{
                                     {"Top", "  top -d 1 "}, {"Calc", "bc -l"}}));
    // A flag that is not a number reads as unset; only 1 sets it.
    store.SaveSetting(kApp, "Settings", "defCaptureOutput", "yes");
    store.SaveSetting(kApp, "Settings", "defCloseWindow", "2");
    EXPECT_EQ(tools.LoadDefault(), (DefaultCompiler{"gcc -Wall %F", "/src/dir", false, false}));
    // Adding a tool of a name left in the paths section overwrites the stale directory.
    tools.SaveTool("viewer", "more %F", "");
    EXPECT_EQ(tools.Tool("viewer").workingDir, "");
}
