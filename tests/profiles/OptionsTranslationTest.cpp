#include "profiles/core/OptionsTranslation.h"

#include "base/SettingsStore.h"
#include "support/KeywordLists.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

using Entries = std::vector<std::string>;

TEST(OptionsTranslation, KeywordStrings) {
    struct Case {
        const char* name;
        std::string keywords;
        Entries entries;
    };
    const std::string sep(1, kKeywordSeparator);
    const std::vector<Case> cases = {
        {"blanks trimmed, tabs kept",
         KeywordList({" if ", "for\t", "else"}),
         {"if", "for\t", "else"}},
        {"empty list", "", {}},
        {"blank entry skipped", KeywordList({"a", "  ", "b"}), {"a", "b"}},
        {"empty entry ends the list", "a" + sep + sep + "b" + sep, {"a"}},
        {"last word without a separator is lost", "a" + sep + "b", {"a"}},
        {"phrases keep inner blanks", KeywordList({"end if"}), {"end if"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(SplitKeywordList(c.keywords), c.entries);
    }
}

TEST(OptionsTranslation, DelimiterRows) {
    struct Case {
        const char* name;
        DelimiterRow row;
        bool requireStart;
        DelimiterPair pair;
    };
    const std::vector<Case> cases = {
        {"\\n among other text stays", {"'", "\\n\\n", 2}, false, {"'", "\\n\\n", 3}},
        {"no selection", {"/*", "*/", -1}, false, {"/*", "*/", 0}},
        {"start without an end is kept", {"<", "", 0}, true, {"<", "", 1}},
    };
    // A line end typed as \n and the class of a row without a start: through both dialogs.
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        DelimiterRows rows;
        rows[3] = c.row;
        auto pairs = DelimitersFromRows(rows, c.requireStart);
        EXPECT_EQ(pairs[3], c.pair);
    }
    // Back to the boxes: only a used row with a valid class selects it.
    std::array<DelimiterPair, 8> pairs;
    pairs[0] = {"//", "\r\n", 3};
    pairs[1] = {"", "", 3};
    pairs[2] = {"'", "'", kSysColorWindowText};
    DelimiterRows rows = RowsFromDelimiters(pairs);
    EXPECT_EQ(rows[0], (DelimiterRow{"//", "\\n", 2}));
    EXPECT_EQ(rows[1], (DelimiterRow{"", "", 0}));
    EXPECT_EQ(rows[2], (DelimiterRow{"'", "'", 0}));
}

static EditorSettings Sample() {
    EditorSettings s = EditorSettings::Defaults();
    s.Keywords = {KeywordList({"if", "end if"}), "", KeywordList({"#define"})};
    s.KeywordCount = 3;
    s.KeywordColor = {1, 2, 3, 4, 5, RGB(255, 0, 255)};
    s.WordWrap = s.Backup = s.RealTabs = s.CaseSensitive = s.EditorBold = true;
    s.AutoCode = false;
    s.EditorFont = "DejaVu Sans Mono";
    s.EditorSize = 11.5f;
    s.TabWidth = 8;
    s.BGColor = RGB(0, 0, 0);
    s.TextColor = RGB(200, 200, 200);
    s.Delimiters[0] = {"/*", "*/", 1};
    s.Delimiters[1] = {"//", "\r\n", 1};
    s.Delimiters[7] = {"\"", "\"", 2};
    for (int i = 2; i < 7; ++i)
        s.Delimiters[i].DelimiterColor = 1; // an unused row's box shows "Comment"
    return s;
}

TEST(OptionsTranslation, DialogAndStoreRoundTrips) {
    const EditorSettings s = Sample();
    OptionsDialogValues v;
    UpdateDisplayElements(s, true, v);
    EXPECT_EQ(v.lists[0], (Entries{"if", "end if"}));
    EXPECT_EQ(v.delimiters[1].end, "\\n");
    EXPECT_TRUE(v.sysTray);

    EditorSettings back = EditorSettings::Defaults();
    back.CompilerString = "make"; // neither the dialog's nor the store writer's to change
    TranslateSettings(v, back);
    EditorSettings want = s;
    want.CompilerString = "make";
    EXPECT_EQ(back, want);

    TempDir dir;
    SettingsStore store(dir.path());
    store.SaveSetting("Kestrum", "Settings", "CompilerString", "make");
    SaveEditorSettings(store, "Kestrum", s, false);
    EditorSettings read = EditorSettings::Defaults();
    LoadEditorSettings(store, "Kestrum", read);
    EXPECT_EQ(read, want);
    EXPECT_EQ(store.GetSetting("Kestrum", "Settings", "SysTray"), "0");

    // A false count is put right, and a tab width that is empty or too big leaves the old one.
    for (const char* tab : {"", "70000", "-"}) {
        SCOPED_TRACE(tab);
        v.tabWidthText = tab;
        back.KeywordCount = 99;
        TranslateSettings(v, back);
        EXPECT_EQ(back.TabWidth, 8);
        EXPECT_EQ(back.KeywordCount, 3);
    }
}
