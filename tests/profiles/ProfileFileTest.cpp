#include "profiles/core/ProfileFile.h"
#include "support/TempDir.h"

#include <cctype>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace {

// Bytes from hex digits; blanks are skipped so that the golden record can be laid out field
// by field.
std::string Hex(std::string_view digits) {
    std::string out;
    int high = -1;
    for (char c : digits) {
        if (c == ' ') continue;
        int v = std::isdigit(static_cast<unsigned char>(c)) ? c - '0' : std::tolower(c) - 'a' + 10;
        if (high < 0) {
            high = v;
        } else {
            out += char(high * 16 + v);
            high = -1;
        }
    }
    return out;
}

// A record in which every field differs from the zero record and from Sentinel().
EditorSettings Rich() {
    EditorSettings s;
    s.Keywords = {std::string("for\xFFwhile\xFF", 10), "", std::string("a\0b\xFF", 4)};
    s.KeywordColor = {1, -2, RGB(255, 0, 0), kSysColorWindowText, 70000, -70000};
    s.KeywordCount = 4;
    s.WordWrap = true;
    for (int i = 0; i < 8; ++i)
        s.Delimiters[i] = {"open" + std::to_string(i), i % 2 ? "\r\n" : "close", i % 4};
    s.AutoCode = true;
    s.Backup = false;
    s.EditorFont = "Lucida Console";
    s.EditorSize = 10.5f;
    s.CompilerString = "cc -O2 \"%f\"";
    s.CodeOrder = false;
    s.CaseSensitive = true;
    s.AutoComplete = true;
    s.TabWidth = -3;
    s.EditorBold = true;
    s.EditorItalic = false;
    s.BGColor = kSysColorWindow;
    s.TextColor = RGB(1, 2, 3);
    s.AutoBracers = false;
    s.RealTabs = true;
    return s;
}

// What a reader's target held before: unlike Rich() in every field.
EditorSettings Sentinel() {
    EditorSettings s;
    s.Keywords = {"k0", "k1", "k2"};
    s.KeywordColor = {9, 9, 9, 9, 9, 9};
    s.KeywordCount = 99;
    s.WordWrap = false;
    for (auto& d : s.Delimiters) d = {"s", "e", 77};
    s.reserved = "junk";
    s.AutoCode = false;
    s.Backup = true;
    s.EditorFont = "f";
    s.EditorSize = 99;
    s.CompilerString = "c";
    s.CodeOrder = true;
    s.CaseSensitive = false;
    s.AutoComplete = false;
    s.TabWidth = 99;
    s.EditorBold = false;
    s.EditorItalic = true;
    s.BGColor = 9;
    s.TextColor = 9;
    s.AutoBracers = true;
    s.RealTabs = false;
    return s;
}

// The record's fields in file order, each as "does it match between two records".
using FieldEq = std::function<bool(const EditorSettings&, const EditorSettings&)>;
std::vector<FieldEq> FieldsInFileOrder() {
    std::vector<FieldEq> f;
    auto add = [&](auto member) {
        f.push_back([member](const EditorSettings& a, const EditorSettings& b) {
            return member(a) == member(b);
        });
    };
    for (int i = 0; i < 3; ++i) add([i](const EditorSettings& s) { return s.Keywords[i]; });
    for (int i = 0; i < 6; ++i) add([i](const EditorSettings& s) { return s.KeywordColor[i]; });
    add([](const EditorSettings& s) { return s.KeywordCount; });
    add([](const EditorSettings& s) { return s.WordWrap; });
    for (int i = 0; i < 8; ++i) {
        add([i](const EditorSettings& s) { return s.Delimiters[i].DelimiterStart; });
        add([i](const EditorSettings& s) { return s.Delimiters[i].DelimiterEnd; });
        add([i](const EditorSettings& s) { return s.Delimiters[i].DelimiterColor; });
    }
    add([](const EditorSettings& s) { return s.reserved; });
    add([](const EditorSettings& s) { return s.AutoCode; });
    add([](const EditorSettings& s) { return s.Backup; });
    add([](const EditorSettings& s) { return s.EditorFont; });
    add([](const EditorSettings& s) { return s.EditorSize; });
    add([](const EditorSettings& s) { return s.CompilerString; });
    add([](const EditorSettings& s) { return s.CodeOrder; });
    add([](const EditorSettings& s) { return s.CaseSensitive; });
    add([](const EditorSettings& s) { return s.AutoComplete; });
    add([](const EditorSettings& s) { return s.TabWidth; });
    add([](const EditorSettings& s) { return s.EditorBold; });
    add([](const EditorSettings& s) { return s.EditorItalic; });
    add([](const EditorSettings& s) { return s.BGColor; });
    add([](const EditorSettings& s) { return s.TextColor; });
    add([](const EditorSettings& s) { return s.AutoBracers; });
    add([](const EditorSettings& s) { return s.RealTabs; });
    return f;
}

std::string Encode(const EditorSettings& s) {
    EncodedProfile p = EncodeProfile(s);
    EXPECT_TRUE(p.ok()) << p.error;
    return p.bytes;
}

} // namespace

TEST(ProfileFile, ARecordSurvivesWriteAndReadFieldForField) {
    const EditorSettings rich = Rich();
    const std::string bytes = Encode(rich);
    EditorSettings back = Sentinel();
    ProfileReadResult r = ReadProfile(bytes, back);
    EXPECT_EQ(r.status, ProfileReadStatus::Complete);
    EXPECT_EQ(r.length, bytes.size());
    EXPECT_EQ(back, rich);

    // Through a file, and with bytes behind the record, which readers never reach.
    TempDir dir;
    std::string path = dir.write("P", bytes + "trailing tail");
    back = Sentinel();
    r = ReadProfileFile(path, back);
    EXPECT_EQ(r.status, ProfileReadStatus::Complete);
    EXPECT_EQ(r.length, bytes.size());
    EXPECT_EQ(back, rich);
}

TEST(ProfileFile, TheReservedStringIsAlwaysWrittenEmpty) {
    EditorSettings s = Rich();
    s.reserved = "something";
    EditorSettings back = Sentinel();
    ReadProfile(Encode(s), back);
    EXPECT_EQ(back.reserved, "");
    EXPECT_EQ(Encode(s), Encode(Rich()));
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
    expect.Keywords[0] = "if\xFF";
    expect.KeywordColor = {RGB(128, 0, 0), RGB(0, 128, 0), kSysColorWindow, -1,
                           65536,          RGB(1, 2, 3)};
    expect.KeywordCount = 1;
    expect.WordWrap = true;
    expect.Delimiters[0] = {"/*", "*/", 1};
    expect.Delimiters[1] = {"\"", "\"", 2};
    expect.Delimiters[7] = {"", "\r\n", kSysColorWindowText};
    expect.AutoCode = true;
    expect.EditorFont = "Courier New";
    expect.EditorSize = 10;
    expect.CompilerString = "cc";
    expect.CodeOrder = true;
    expect.AutoComplete = true;
    expect.TabWidth = 4;
    expect.EditorItalic = true;
    expect.BGColor = RGB(255, 0, 0);
    expect.TextColor = kSysColorWindowText;
    expect.AutoBracers = true;

    EditorSettings read = Sentinel();
    ProfileReadResult r = ReadProfile(golden, read);
    EXPECT_EQ(r.status, ProfileReadStatus::Complete);
    EXPECT_EQ(r.length, golden.size());
    EXPECT_EQ(read, expect);
    EXPECT_EQ(Encode(expect), golden);
}

TEST(ProfileFile, AnyNonZeroBooleanReadsAsTrue) {
    std::string bytes = Encode(EditorSettings{});
    // WordWrap stands behind three empty strings, six colours and the count.
    const size_t wordWrap = 3 * 2 + 6 * 4 + 4;
    for (auto [lo, hi] : {std::pair{'\x01', '\x00'}, {'\x00', '\x80'}, {'\xFF', '\xFF'}}) {
        bytes[wordWrap] = lo;
        bytes[wordWrap + 1] = hi;
        EditorSettings s;
        ReadProfile(bytes, s);
        EXPECT_TRUE(s.WordWrap);
    }
}

TEST(ProfileFile, EveryTruncationGivesThePartialRecordInFieldOrder) {
    const EditorSettings rich = Rich();
    const std::string bytes = Encode(rich);
    const auto fields = FieldsInFileOrder();
    // The two records must differ everywhere, or a field could not show where reading stopped.
    for (size_t i = 0; i < fields.size(); ++i)
        ASSERT_FALSE(fields[i](rich, Sentinel())) << "field " << i;

    size_t lastSet = 0;
    for (size_t n = 0; n <= bytes.size(); ++n) {
        EditorSettings s = Sentinel();
        ProfileReadResult r = ReadProfile(std::string_view(bytes).substr(0, n), s);
        EXPECT_EQ(r.status,
                  n == bytes.size() ? ProfileReadStatus::Complete : ProfileReadStatus::Short);
        EXPECT_LE(r.length, n);
        // A prefix of the fields comes from the data, the rest is as it was.
        size_t set = 0;
        while (set < fields.size() && fields[set](s, rich)) ++set;
        for (size_t k = set; k < fields.size(); ++k)
            EXPECT_TRUE(fields[k](s, Sentinel())) << "cut at " << n << ", field " << k;
        EXPECT_GE(set, lastSet) << "cut at " << n;
        lastSet = set;
        // The bytes taken are exactly those of the fields that were set.
        EditorSettings again = Sentinel();
        ReadProfile(std::string_view(bytes).substr(0, r.length), again);
        EXPECT_EQ(again, s) << "cut at " << n;
    }
    EXPECT_EQ(lastSet, fields.size());
}

TEST(ProfileFile, ALengthPastTheEndStopsReadingAndKeepsTheField) {
    EditorSettings s = Sentinel();
    ProfileReadResult r = ReadProfile(Hex("0500 6162"), s);
    EXPECT_EQ(r.status, ProfileReadStatus::Short);
    EXPECT_EQ(r.length, 0u);
    EXPECT_EQ(s, Sentinel());

    // A whole record whose second list claims 65,535 bytes.
    std::string bytes = Encode(Rich());
    const size_t second = 2 + Rich().Keywords[0].size();
    bytes[second] = '\xFF';
    bytes[second + 1] = '\xFF';
    s = Sentinel();
    r = ReadProfile(bytes, s);
    EXPECT_EQ(r.status, ProfileReadStatus::Short);
    EXPECT_EQ(r.length, second);
    EXPECT_EQ(s.Keywords[0], Rich().Keywords[0]);
    EXPECT_EQ(s.Keywords[1], "k1");
    EXPECT_EQ(s.TextColor, Sentinel().TextColor);
}

TEST(ProfileFile, RandomBytesNeverCrash) {
    std::mt19937 rng(1234);
    const std::string valid = Encode(Rich());
    for (int round = 0; round < 3000; ++round) {
        std::string bytes;
        if (round % 2) {
            bytes = valid; // a valid record with a few bytes spoiled
            for (int k = 0; k < 4; ++k) bytes[rng() % bytes.size()] = char(rng());
        } else {
            bytes.resize(rng() % 400);
            for (char& c : bytes) c = char(rng() % 4 == 0 ? rng() : 0); // small lengths too
        }
        EditorSettings s;
        ProfileReadResult r = ReadProfile(bytes, s);
        EXPECT_LE(r.length, bytes.size());
    }
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

TEST(ProfileFile, WritingCreatesTheFileOrOverwritesItsStartWithoutTruncating) {
    TempDir dir;
    const std::string path = dir.file("New Profile");
    ASSERT_EQ(WriteProfileFile(path, Rich()), "");
    EXPECT_EQ(ReadFileBytes(path), Encode(Rich()));

    // The older profile is longer: its tail stays behind the new record.
    EditorSettings shorter;
    shorter.Keywords[0] = "x\xFF";
    const std::string longer = Encode(Rich()), newer = Encode(shorter);
    ASSERT_LT(newer.size(), longer.size());
    ASSERT_EQ(WriteProfileFile(path, shorter), "");
    const std::string now = ReadFileBytes(path);
    EXPECT_EQ(now, newer + longer.substr(newer.size()));

    EditorSettings back = Sentinel();
    ProfileReadResult r = ReadProfileFile(path, back);
    EXPECT_EQ(r.status, ProfileReadStatus::Complete);
    EXPECT_EQ(r.length, newer.size());
    EXPECT_EQ(back, shorter);
}

TEST(ProfileFile, AStringOverTheLimitRefusesTheWholeWrite) {
    struct Case {
        const char* field;
        std::function<void(EditorSettings&, std::string)> set;
    };
    const std::vector<Case> cases = {
        {"Keywords(1)", [](EditorSettings& s, std::string v) { s.Keywords[1] = v; }},
        {"Delimiters(7).DelimiterEnd",
         [](EditorSettings& s, std::string v) { s.Delimiters[7].DelimiterEnd = v; }},
        {"EditorFont", [](EditorSettings& s, std::string v) { s.EditorFont = v; }},
        {"CompilerString", [](EditorSettings& s, std::string v) { s.CompilerString = v; }},
    };
    TempDir dir;
    for (const auto& c : cases) {
        EditorSettings s = Rich();
        c.set(s, std::string(kMaxProfileString, 'k')); // the longest that fits
        EditorSettings back;
        ASSERT_EQ(ReadProfile(Encode(s), back).status, ProfileReadStatus::Complete);
        EXPECT_EQ(back, s) << c.field;

        c.set(s, std::string(kMaxProfileString + 1, 'k'));
        EncodedProfile p = EncodeProfile(s);
        EXPECT_FALSE(p.ok());
        EXPECT_EQ(p.bytes, "");
        EXPECT_NE(p.error.find(c.field), std::string::npos) << p.error;

        // Nothing is written: an old file keeps its bytes, a missing one is not made.
        const std::string old = dir.write("Old", "old profile");
        EXPECT_EQ(WriteProfileFile(old, s), p.error);
        EXPECT_EQ(ReadFileBytes(old), "old profile");
        EXPECT_NE(WriteProfileFile(dir.file("None"), s), "");
        EXPECT_FALSE(FileExists(dir.file("None")));
    }
}

TEST(ProfileFile, TheProfileEditorsRecordCarriesOnlyLanguageFields) {
    std::array<std::string, 3> keywords = {"if\xFF", "", "int\xFF"};
    std::array<DelimiterPair, 8> delimiters;
    delimiters[0] = {"//", "\r\n", 1};
    EditorSettings s = NewProfileRecord(keywords, delimiters, true, true);
    EXPECT_EQ(s.Keywords, keywords);
    EXPECT_EQ(s.Delimiters, delimiters);
    EXPECT_TRUE(s.CodeOrder);
    EXPECT_TRUE(s.CaseSensitive);
    // Font size and colours 0: harmless, as painting takes them from the active settings.
    EXPECT_EQ(s.EditorSize, 0);
    EXPECT_EQ(s.KeywordColor[3], 0);
    EXPECT_EQ(s.KeywordCount, 0);
    EXPECT_EQ(s.EditorFont, "");
    s.Keywords = {};
    s.Delimiters = {};
    s.CodeOrder = s.CaseSensitive = false;
    EXPECT_EQ(s, EditorSettings{});
}
