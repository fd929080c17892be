// The file dialogs' filters as Qt takes them: "*.*" stands for every file, names without a
// dot included.
#include "components/cDialogs.h"

#include <gtest/gtest.h>

TEST(FileFilter, ToQt) {
    const struct {
        const char* filter;
        QStringList qt;
    } cases[] = {
        {"All Profiles|*.*", {"All Profiles (*)"}},
        {"All Files (*.*)|*.*", {"All Files (*)"}},
        {"Keyword Lists (*.kwd)|*.kwd|All Files (*.*)|*.*",
         {"Keyword Lists (*.kwd)", "All Files (*)"}},
        {"Text|*.txt;*.doc", {"Text (*.txt *.doc)"}},
        {"Backups|*.*.bak", {"Backups (*.*.bak)"}},
        {"", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(FilterToQt(c.filter), c.qt) << c.filter;
}
