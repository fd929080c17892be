#include "base/SettingsStore.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
struct StoreTest : ::testing::Test {
    TempDir dir;
    SettingsStore store{dir.path() + "config"};
};
} // namespace

TEST_F(StoreTest, MissingKeysGiveTheDefaultAndKeysIgnoreCase) {
    EXPECT_EQ(store.GetSetting("Kestrum", "Settings", "Wordwrap", "False"), "False");
    store.SaveSetting("Kestrum", "Settings", "WordWrap", "True");
    EXPECT_EQ(store.GetSetting("Kestrum", "settings", "Wordwrap", "False"), "True");
    // Another application title is another file.
    EXPECT_EQ(store.GetSetting("Previstance", "Settings", "WordWrap", "x"), "x");
}

TEST_F(StoreTest, ValuesSurviveAReloadByteForByte) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Keywords0", std::string("for\xFFwhile\xFF", 10)},
        {"DelimiterEnd1", "\r\n"},
        {"Spaces", "  both ends  "},
        {"Backslash", R"(C:\dir\x41)"},
        {"Quote", "\"quoted\""},
        {"Empty", ""},
        {"key=with;odd#chars[]", "v"},
        {" padded key ", "w"},
    };
    for (auto& [k, v] : cases) store.SaveSetting("Kestrum", "Settings", k, v);
    SettingsStore reread(dir.path() + "config");
    for (auto& [k, v] : cases) EXPECT_EQ(reread.GetSetting("Kestrum", "Settings", k, "?"), v) << k;
}

TEST_F(StoreTest, GetAllSettingsKeepsFirstWriteOrderAcrossRuns) {
    for (auto k : {"ZIP", "ASP", "htm", "C"})
        store.SaveSetting("Kestrum", "Syntax Associations", k, k);
    store.SaveSetting("Kestrum", "Syntax Associations", "asp", "again"); // update keeps position
    SettingsStore reread(dir.path() + "config");
    auto all = reread.GetAllSettings("Kestrum", "syntax associations");
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[0].first, "ZIP");
    EXPECT_EQ(all[1].first, "ASP");
    EXPECT_EQ(all[1].second, "again");
    EXPECT_EQ(all[3].first, "C");
    EXPECT_TRUE(reread.GetAllSettings("Kestrum", "Nothing").empty());
}

TEST_F(StoreTest, DeletingWhatIsNotThereIsAnError) {
    EXPECT_THROW(store.DeleteSetting("Kestrum", "Settings"), SettingsStoreError);
    store.SaveSetting("Kestrum", "Settings", "A", "1");
    store.SaveSetting("Kestrum", "Settings", "B", "2");
    EXPECT_THROW(store.DeleteSetting("Kestrum", "Settings", "C"), SettingsStoreError);
    store.DeleteSetting("Kestrum", "settings", "a");
    EXPECT_EQ(store.GetSetting("Kestrum", "Settings", "A", "gone"), "gone");
    store.DeleteSetting("Kestrum", "SETTINGS");
    EXPECT_FALSE(store.SectionExists("Kestrum", "Settings"));
    EXPECT_THROW(store.DeleteSetting("Kestrum", "Settings", "B"), SettingsStoreError);
}

TEST_F(StoreTest, AFailedWriteLeavesFileAndMemoryAsTheyWere) {
    store.SaveSetting("Kestrum", "Settings", "A", "1");
    std::string before = ReadFileBytes(store.FileFor("Kestrum"));
    // A folder where the temporary file must go makes every write fail, even for root.
    std::string tmp = store.FileFor("Kestrum") + ".tmp" + std::to_string(::getpid());
    ASSERT_EQ(::mkdir(tmp.c_str(), 0700), 0);
    EXPECT_THROW(store.SaveSetting("Kestrum", "Settings", "A", "2"), SettingsStoreError);
    EXPECT_THROW(store.SaveSetting("Kestrum", "Settings", "New", "x"), SettingsStoreError);
    EXPECT_EQ(store.GetSetting("Kestrum", "Settings", "A"), "1");
    EXPECT_EQ(store.GetSetting("Kestrum", "Settings", "New", "none"), "none");
    EXPECT_EQ(ReadFileBytes(store.FileFor("Kestrum")), before);
}

TEST_F(StoreTest, ABatchWritesTheFileOnceAtItsOutermostEnd) {
    store.SaveSetting("Kestrum", "Settings", "A", "1");
    const std::string before = ReadFileBytes(store.FileFor("Kestrum"));
    {
        SettingsStore::Batch outer(store);
        store.SaveSetting("Kestrum", "Settings", "A", "2");
        {
            SettingsStore::Batch inner(store);
            store.SaveSetting("Kestrum", "Settings", "B", "3");
            store.DeleteSetting("Kestrum", "Settings", "A");
        }
        EXPECT_EQ(ReadFileBytes(store.FileFor("Kestrum")), before) << "written inside a batch";
        EXPECT_EQ(store.GetSetting("Kestrum", "Settings", "B"), "3"); // memory is current
    }
    SettingsStore reread(dir.path() + "config");
    EXPECT_EQ(reread.GetSetting("Kestrum", "Settings", "A", "gone"), "gone");
    EXPECT_EQ(reread.GetSetting("Kestrum", "Settings", "B"), "3");

    // A write that fails at the end is the commit's error; the next write succeeds again.
    std::string tmp = store.FileFor("Kestrum") + ".tmp" + std::to_string(::getpid());
    ASSERT_EQ(::mkdir(tmp.c_str(), 0700), 0);
    SettingsStore::Batch failing(store);
    store.SaveSetting("Kestrum", "Settings", "C", "4");
    EXPECT_THROW(failing.Commit(), SettingsStoreError);
    ASSERT_EQ(::rmdir(tmp.c_str()), 0);
    store.SaveSetting("Kestrum", "Settings", "D", "5");
    EXPECT_EQ(SettingsStore(dir.path() + "config").GetSetting("Kestrum", "Settings", "C"), "4");
}

TEST(SettingsConvert, TextToTypes) {
    using namespace settings_convert;
    struct BoolCase {
        const char* text;
        std::optional<bool> want;
    };
    for (auto c : std::vector<BoolCase>{{"false", false},
                                        {" TRUE ", true},
                                        {"0", false},
                                        {"2.5", true},
                                        {"yes", {}},
                                        {"", {}}})
        EXPECT_EQ(ToBool(c.text), c.want) << c.text;
    EXPECT_EQ(ToInteger("-2147483640"), -2147483640LL); // exact, no float rounding
    EXPECT_EQ(ToInteger("2.5"), 2);
    EXPECT_EQ(ToInteger("True"), -1);
    EXPECT_EQ(ToInteger("abc"), std::nullopt);
    EXPECT_EQ(ToInteger("1e300"), std::nullopt); // beyond any integer: not one
    EXPECT_FLOAT_EQ(*ToSingle("10.5"), 10.5f);
    EXPECT_EQ(ToSingle("1,5"), std::nullopt);
    EXPECT_EQ(*ToSingle(FromSingle(1234.25f)), 1234.25f);
    EXPECT_EQ(ToSingle("1e300"), std::nullopt); // beyond float: not one
    EXPECT_EQ(ToDoubleIn("1e300", -5, 5), 5.0);
    EXPECT_EQ(ToDoubleIn("-7.5", -5, 5), -5.0);
    EXPECT_EQ(ToDoubleIn("nan", -5, 5), std::nullopt);
    EXPECT_EQ(ToDoubleIn("x", -5, 5), std::nullopt);
}
