#include "profiles/core/ProfileFile.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace {

// Bytes from hex digits; blanks are skipped so that the golden record can be laid out field
// by field.
std::string Hex(std::string_view digits) {
    std::string clean, out;
    for (char c : digits)
        if (c != ' ') clean += c;
    for (size_t i = 0; i + 1 < clean.size(); i += 2)
        out += char(std::stoi(clean.substr(i, 2), nullptr, 16));
    return out;
}

// A record with an empty list, embedded NUL and separator bytes, negative and system colours,
// a fractional size and a negative tab width.
EditorSettings Rich() {
    EditorSettings s;
    s.Keywords = {std::string("for\xFFwhile\xFF", 10), "", std::string("a\0b\xFF", 4)};
    s.KeywordColor = {1, -2, RGB(255, 0, 0), kSysColorWindowText, 70000, -70000};
    s.KeywordCount = 4;
    s.WordWrap = s.AutoCode = s.CaseSensitive = s.AutoComplete = s.EditorBold = s.RealTabs = true;
    s.EditorFont = "Lucida Console";
    s.EditorSize = 10.5f;
    s.CompilerString = "cc -O2 \"%f\"";
    s.TabWidth = -3;
    s.BGColor = kSysColorWindow;
    s.TextColor = RGB(1, 2, 3);
    for (int i = 0; i < 8; ++i)
        s.Delimiters[i] = {"open" + std::to_string(i), i % 2 ? "\r\n" : "close", i % 4};
    return s;
}

// What a reader's target held before: unlike Rich() in every field.
EditorSettings Sentinel() {
    EditorSettings s;
    s.Keywords = {"k0", "k1", "k2"};
    s.KeywordColor = {9, 9, 9, 9, 9, 9};
    s.KeywordCount = s.BGColor = s.TextColor = 99;
    s.reserved = "junk";
    s.Backup = s.CodeOrder = s.EditorItalic = s.AutoBracers = true;
    s.EditorFont = "f";
    s.EditorSize = 99;
    s.CompilerString = "c";
    s.TabWidth = 99;
    s.Delimiters.fill({"s", "e", 77});
    return s;
}

// The record's fields in file order, each printed, so that records compare field by field.
std::vector<std::string> Fields(const EditorSettings& s) {
    std::vector<std::string> f;
    auto add = [&](const auto&... v) { (f.push_back(testing::PrintToString(v)), ...); };
    for (const auto& list : s.Keywords) add(list);
    for (int32_t color : s.KeywordColor) add(color);
    add(s.KeywordCount, s.WordWrap);
    for (const auto& d : s.Delimiters) add(d.DelimiterStart, d.DelimiterEnd, d.DelimiterColor);
    add(s.reserved, s.AutoCode, s.Backup, s.EditorFont, s.EditorSize, s.CompilerString, s.CodeOrder,
        s.CaseSensitive, s.AutoComplete, s.TabWidth, s.EditorBold, s.EditorItalic, s.BGColor,
        s.TextColor, s.AutoBracers, s.RealTabs);
    return f;
}

std::string Encode(const EditorSettings& s) {
    EncodedProfile p = EncodeProfile(s);
    EXPECT_TRUE(p.ok()) << p.error;
    return p.bytes;
}

} // namespace

TEST(ProfileFile, ARecordSurvivesTheFileAndAShorterOneOverwritesOnlyItsStart) {
    TempDir dir;
    const std::string path = dir.file("New Profile");
    EditorSettings withReserved = Rich();
    withReserved.reserved = "something"; // always written empty
    ASSERT_EQ(WriteProfileFile(path, withReserved), "");
    const std::string longer = ReadFileBytes(path);
    EXPECT_EQ(longer, Encode(Rich()));

    // The file is not truncated: the older record's tail stays behind the new one, and readers
    // never reach it.
    EditorSettings shorter;
    shorter.Keywords[0] = "x\xFF";
    const std::string newer = Encode(shorter);
    ASSERT_LT(newer.size(), longer.size());
    ASSERT_EQ(WriteProfileFile(path, shorter), "");
    EXPECT_EQ(ReadFileBytes(path), newer + longer.substr(newer.size()));
    EditorSettings back = Sentinel();
    ProfileReadResult r = ReadProfileFile(path, back);
    EXPECT_EQ(r.status, ProfileReadStatus::Complete);
    EXPECT_EQ(r.length, newer.size());
    EXPECT_EQ(back, shorter);
}

TEST(ProfileFile, AHandAssembledFileReadsAndWritesByteForByte) {
    const std::string golden =
        Hex("0300 6966ff"                  // Keywords(0) "if" and the separator
            "0000 0000"                    // Keywords(1), Keywords(2) empty
            "80000000"                     // KeywordColor(0) RGB(128, 0, 0)
            "00800000"                     // KeywordColor(1) RGB(0, 128, 0)
            "05000080"                     // KeywordColor(2) the window colour &H80000005
            "ffffffff"                     // KeywordColor(3) -1
            "00000100"                     // KeywordColor(4) 65536
            "01020300"                     // KeywordColor(5) RGB(1, 2, 3)
            "01000000"                     // KeywordCount 1
            "ffff"                         // WordWrap true
            "0200 2f2a 0200 2a2f 01000000" // Delimiters(0) "/*" "*/" class 1
            "0100 22 0100 22 02000000"     // Delimiters(1) quote to quote, class 2
            "0000 0000 00000000"           // Delimiters(2) to (6) unused
            "0000 0000 00000000"
            "0000 0000 00000000"
            "0000 0000 00000000"
            "0000 0000 00000000"
            "0000 0200 0d0a 08000080"     // Delimiters(7) "" and CR LF, class &H80000008
            "0000"                        // reserved, empty
            "ffff 0000"                   // AutoCode true, Backup false
            "0b00 436f7572696572204e6577" // EditorFont "Courier New"
            "00002041"                    // EditorSize 10.0
            "0200 6363"                   // CompilerString "cc"
            "ffff 0000 ffff"              // CodeOrder true, CaseSensitive false, AutoComplete true
            "0400"                        // TabWidth 4
            "0000 ffff"                   // EditorBold false, EditorItalic true
            "ff000000"                    // BGColor RGB(255, 0, 0)
            "08000080"                    // TextColor &H80000008
            "ffff 0000");                 // AutoBracers true, RealTabs false
    EditorSettings expect;
    expect.Keywords = {"if\xFF", "", ""};
    expect.KeywordColor = {RGB(128, 0, 0), RGB(0, 128, 0), kSysColorWindow, -1,
                           65536,          RGB(1, 2, 3)};
    expect.KeywordCount = 1;
    expect.WordWrap = expect.AutoCode = expect.CodeOrder = expect.AutoComplete = true;
    expect.EditorItalic = expect.AutoBracers = true;
    expect.EditorFont = "Courier New";
    expect.EditorSize = 10;
    expect.CompilerString = "cc";
    expect.TabWidth = 4;
    expect.BGColor = RGB(255, 0, 0);
    expect.TextColor = kSysColorWindowText;
    expect.Delimiters[0] = {"/*", "*/", 1};
    expect.Delimiters[1] = {"\"", "\"", 2};
    expect.Delimiters[7] = {"", "\r\n", kSysColorWindowText};

    EditorSettings read = Sentinel();
    ProfileReadResult r = ReadProfile(golden, read);
    EXPECT_EQ(r.status, ProfileReadStatus::Complete);
    EXPECT_EQ(r.length, golden.size());
    EXPECT_EQ(read, expect);
    EXPECT_EQ(Encode(expect), golden);

    // Any non-zero Boolean reads as true, not only the -1 that is written.
    const size_t wordWrap = 5 + 2 + 2 + 6 * 4 + 4; // behind the lists, the colours and the count
    for (auto [lo, hi] : {std::pair{'\x01', '\x00'}, {'\x00', '\x80'}}) {
        std::string bytes = golden;
        bytes[wordWrap] = lo;
        bytes[wordWrap + 1] = hi;
        EditorSettings s;
        ReadProfile(bytes, s);
        EXPECT_TRUE(s.WordWrap) << int(lo) << " " << int(hi);
    }
}

TEST(ProfileFile, EveryTruncationGivesThePartialRecordInFieldOrder) {
    const std::string bytes = Encode(Rich());
    const auto full = Fields(Rich()), old = Fields(Sentinel());
    // The two records must differ everywhere, or a field could not show where reading stopped.
    for (size_t i = 0; i < full.size(); ++i) ASSERT_NE(full[i], old[i]) << "field " << i;

    size_t lastSet = 0;
    for (size_t n = 0; n <= bytes.size(); ++n) {
        EditorSettings s = Sentinel();
        ProfileReadResult r = ReadProfile(std::string_view(bytes).substr(0, n), s);
        EXPECT_EQ(r.status,
                  n == bytes.size() ? ProfileReadStatus::Complete : ProfileReadStatus::Short);
        EXPECT_LE(r.length, n);
        // A prefix of the fields comes from the data, the rest is as it was.
        const auto got = Fields(s);
        size_t set = 0;
        while (set < got.size() && got[set] == full[set]) ++set;
        for (size_t k = set; k < got.size(); ++k)
            EXPECT_EQ(got[k], old[k]) << "cut at " << n << ", field " << k;
        EXPECT_GE(set, lastSet) << "cut at " << n;
        lastSet = set;
        // The bytes taken are exactly those of the fields that were set.
        EditorSettings again = Sentinel();
        ReadProfile(std::string_view(bytes).substr(0, r.length), again);
        EXPECT_EQ(again, s) << "cut at " << n;
    }
    EXPECT_EQ(lastSet, full.size());
}

// The reader stops in front of a length that runs past the end, not behind it.
TEST(ProfileFile, ALengthPastTheEndStopsReadingInFrontOfTheField) {
    std::string bytes = Encode(Rich()); // whole, but its second list claims 65,535 bytes
    const size_t second = 2 + Rich().Keywords[0].size();
    bytes.replace(second, 2, "\xFF\xFF");
    EditorSettings s = Sentinel(), want = Sentinel();
    ProfileReadResult r = ReadProfile(bytes, s);
    EXPECT_EQ(r.status, ProfileReadStatus::Short);
    EXPECT_EQ(r.length, second);
    want.Keywords[0] = Rich().Keywords[0];
    EXPECT_EQ(s, want);
}

TEST(ProfileFile, FilesThatAreEmptyMissingOrFolders) {
    TempDir dir;
    EditorSettings s = Sentinel();
    ProfileReadResult r = ReadProfileFile(dir.write("Empty", ""), s);
    EXPECT_EQ(r.status, ProfileReadStatus::Short);
    EXPECT_EQ(r.length, 0u);
    EXPECT_EQ(s, Sentinel());

    for (std::string path : {dir.path(), dir.file("Missing"), dir.file("Missing/Deeper")}) {
        r = ReadProfileFile(path, s);
        EXPECT_EQ(r.status, ProfileReadStatus::NotOpened) << path;
        EXPECT_NE(r.error.find(path), std::string::npos) << r.error;
        EXPECT_EQ(s, Sentinel());
    }
    EXPECT_NE(WriteProfileFile(dir.path(), Rich()), "");
    EXPECT_NE(WriteProfileFile(dir.file("Missing/Deeper"), Rich()), "");
}

// A keyword list over the limit is refused in the save dialog's test.
TEST(ProfileFile, AStringOverTheLimitRefusesTheWholeWrite) {
    EditorSettings s = Rich();
    s.Delimiters[7].DelimiterEnd = std::string(kMaxProfileString, 'k'); // the longest that fits
    EditorSettings back;
    ASSERT_EQ(ReadProfile(Encode(s), back).status, ProfileReadStatus::Complete);
    EXPECT_EQ(back, s);

    s.Delimiters[7].DelimiterEnd += 'k';
    EncodedProfile p = EncodeProfile(s);
    EXPECT_EQ(p.bytes, "");
    EXPECT_NE(p.error.find("Delimiters(7).DelimiterEnd"), std::string::npos) << p.error;

    // Nothing is written: an old file keeps its bytes, a missing one is not made.
    TempDir dir;
    const std::string old = dir.write("Old", "old profile");
    EXPECT_EQ(WriteProfileFile(old, s), p.error);
    EXPECT_EQ(ReadFileBytes(old), "old profile");
    EXPECT_NE(WriteProfileFile(dir.file("None"), s), "");
    EXPECT_FALSE(FileExists(dir.file("None")));
}
