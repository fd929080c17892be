#include "base/EditorSettings.h"
#include "base/SettingsStore.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

TEST(EditorSettings, AnEmptyStoreGivesTheDefaultsAndStoredValuesAreRead) {
    TempDir dir;
    SettingsStore store(dir.path());
    EditorSettings s; // all zero
    LoadEditorSettings(store, "Kestrum", s);
    EXPECT_EQ(s, EditorSettings::Defaults());

    store.SaveSetting("Kestrum", "Settings", "WordWrap", "True"); // writer's spelling
    store.SaveSetting("Kestrum", "Settings", "Keywords1", "char\xFFint\xFF");
    store.SaveSetting("Kestrum", "Settings", "DelimiterEnd3", "\r\n");
    store.SaveSetting("Kestrum", "Settings", "DelimiterColor3", "2");
    store.SaveSetting("Kestrum", "Settings", "Case Sensitive", "-1");
    store.SaveSetting("Kestrum", "Settings", "TextColor", "255");
    LoadEditorSettings(store, "Kestrum", s);
    EXPECT_TRUE(s.WordWrap);
    EXPECT_EQ(s.Keywords[1], "char\xFFint\xFF");
    EXPECT_EQ(s.Delimiters[3].DelimiterEnd, "\r\n");
    EXPECT_EQ(s.Delimiters[3].DelimiterColor, 2);
    EXPECT_TRUE(s.CaseSensitive);
    EXPECT_EQ(s.TextColor, RGB(255, 0, 0));
}

// A hand-edited number is held to the range in which it means something; a value that is no
// number keeps the field.
TEST(EditorSettings, NumbersOutsideTheirRangeAreHeldToIt) {
    struct Case {
        const char* text;
        float size;
        int16_t tab;
        float margin;
    };
    for (const Case& c :
         {Case{"1e30", 400, 256, 100}, Case{"-3", 1, 0, 0}, Case{"99999", 400, 256, 100},
          Case{"nan", 13, 7, 2}, Case{"12", 12, 12, 12}}) {
        TempDir dir;
        SettingsStore store(dir.path());
        for (const char* key : {"EditorSize", "TabWidth"})
            store.SaveSetting("Kestrum", "Settings", key, c.text);
        for (const char* key : {"TopMargin", "LeftMargin"})
            store.SaveSetting("Kestrum", "Printer Settings", key, c.text);
        EditorSettings s = EditorSettings::Defaults();
        s.EditorSize = 13;
        s.TabWidth = 7;
        PrintMargins m{2, 2, 2, 2};
        LoadEditorSettings(store, "Kestrum", s);
        LoadPrintMargins(store, "Kestrum", m);
        EXPECT_FLOAT_EQ(s.EditorSize, c.size) << c.text;
        EXPECT_EQ(s.TabWidth, c.tab) << c.text;
        EXPECT_FLOAT_EQ(m.Top, c.margin) << c.text;
        EXPECT_FLOAT_EQ(m.Left, c.margin) << c.text;
        EXPECT_FLOAT_EQ(m.Bottom, 1.5f) << c.text; // absent: the default
    }
}
