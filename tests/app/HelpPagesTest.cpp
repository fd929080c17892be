// Checks of the help pages and the tips file that ship in data/: every topic that the program
// opens has its page, the contents frame reaches every page, and no link names a missing file.
#include "app/core/TipFile.h"
#include "base/HelpTopic.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

namespace fs = std::filesystem;

namespace {
// The source tree's data folder (beside tests/), if it is there.
fs::path DataDir() {
    if (const char* t = std::getenv("KESTRUM_TEST_DATA"); t && *t) {
        fs::path p = fs::path(t).parent_path().parent_path() / "data";
        if (fs::is_directory(p / "Help")) return p;
    }
    return {};
}

struct Link {
    std::string tag, href, target;
};

std::string Lower(std::string s) {
    for (char& c : s) c = char(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string Attribute(const std::string& tag, const std::string& name) {
    static const std::regex attr(R"re(([A-Za-z-]+)\s*=\s*"([^"]*)")re");
    for (std::sregex_iterator it(tag.begin(), tag.end(), attr), end; it != end; ++it)
        if (Lower((*it)[1]) == name) return (*it)[2];
    return {};
}

// Every href and src of the page's tags, with the tag's target.
std::vector<Link> Links(const std::string& html) {
    static const std::regex tagRe(R"(<([A-Za-z]+)\b[^>]*>)");
    std::vector<Link> links;
    for (std::sregex_iterator it(html.begin(), html.end(), tagRe), end; it != end; ++it) {
        std::string tag = (*it)[0];
        for (const char* a : {"href", "src"})
            if (std::string v = Attribute(tag, a); !v.empty())
                links.push_back({Lower((*it)[1]), v, Attribute(tag, "target")});
    }
    return links;
}

bool IsExternal(const std::string& href) {
    return href.rfind("http:", 0) == 0 || href.rfind("https:", 0) == 0 ||
           href.rfind("mailto:", 0) == 0;
}

struct HelpPages : ::testing::Test {
    fs::path help;
    std::map<std::string, std::string> pages; // file name -> text, every .htm of the folder

    void SetUp() override {
        fs::path data = DataDir();
        ASSERT_FALSE(data.empty()) << "no data folder with Help/ found from KESTRUM_TEST_DATA";
        help = data / "Help";
        for (auto& e : fs::directory_iterator(help))
            if (e.path().extension() == ".htm")
                pages[e.path().filename().string()] = ReadFileBytes(e.path().string());
    }
};
} // namespace

// Every topic that the program opens is linked from here; the next test finds each linked page.
TEST_F(HelpPages, TheContentsOpenEveryPageInTheMainFrame) {
    // help.htm is written at run time; a stale copy would open one fixed topic whenever writing
    // the real one fails.
    EXPECT_FALSE(fs::exists(help / "help.htm"));
    ASSERT_TRUE(pages.count("index.htm"));
    ASSERT_TRUE(pages.count("header.htm"));
    std::set<std::string> linked;
    for (auto& l : Links(pages["index.htm"])) {
        if (l.tag != "a") continue;
        EXPECT_EQ(l.target, "Main") << l.href << " would open inside the contents frame";
        linked.insert(l.href.substr(0, l.href.find('#')));
    }
    for (auto topic : kHelpTopics) EXPECT_TRUE(linked.count(std::string(topic) + ".htm")) << topic;
    for (auto& [name, text] : pages)
        EXPECT_TRUE(linked.count(name) || name == "index.htm" || name == "header.htm")
            << name << " is not reachable from the contents";
    // The header frame is too small to show a page; its links go to the main frame as well.
    for (auto& l : Links(pages["header.htm"]))
        EXPECT_TRUE(l.tag != "a" || l.target == "Main") << l.href << " opens in " << l.target;
}

TEST_F(HelpPages, EveryLocalLinkNamesAShippedFile) {
    int checked = 0;
    for (auto& [name, text] : pages) {
        for (auto& l : Links(text)) {
            if (IsExternal(l.href) || l.href[0] == '#') continue;
            ++checked;
            std::string file = l.href.substr(0, l.href.find('#'));
            EXPECT_TRUE(fs::is_regular_file(help / file)) << name << " links " << l.href;
        }
    }
    EXPECT_GT(checked, int(kHelpTopics.size()));
}

TEST(ShippedTips, TheTipsFileHoldsPlainOneLineTips) {
    fs::path data = DataDir();
    ASSERT_FALSE(data.empty());
    TipOfTheDay tips;
    ASSERT_TRUE(tips.LoadTips((data / kTipFileName).string()));
    EXPECT_GE(tips.Count(), 25u);
    EXPECT_LE(tips.Count(), 40u);
    std::set<std::string> seen;
    for (std::size_t i = 0; i < tips.Count(); ++i, tips.DoNextTip()) {
        std::string tip = tips.CurrentTip().value_or("");
        EXPECT_FALSE(tip.empty()) << "tip " << i + 1;
        EXPECT_TRUE(seen.insert(tip).second) << "repeated: " << tip;
        EXPECT_NE(tip.front(), ' ');
        EXPECT_NE(tip.back(), ' ');
        for (char c : tip) EXPECT_TRUE(c >= 32 && c < 127) << "tip " << i + 1 << ": " << tip;
    }
}
