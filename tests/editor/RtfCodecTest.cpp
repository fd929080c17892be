#include "editor/core/RtfCodec.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

namespace {

// Seven distinct colours, as a document shows its slots.
const RtfPalette kPalette = {{{0, 0, 0},
                              {0, 0, 128},
                              {0, 128, 128},
                              {128, 128, 128},
                              {0, 128, 0},
                              {128, 0, 0},
                              {255, 0, 255}}};
const RtfFont kFont{"Courier New", 10, false, false};

std::string Slots(std::initializer_list<std::pair<size_t, ColorSlot>> runs) {
    std::string s;
    for (auto [n, slot] : runs) s.append(n, char(slot));
    return s;
}

// The text part of what WriteRtf writes: behind the header, before the closing brace.
std::string Body(const std::string& rtf) {
    size_t start = rtf.find("\\cf0 ");
    EXPECT_NE(start, std::string::npos) << rtf;
    EXPECT_EQ(rtf.substr(rtf.size() - 2), "}\n");
    return rtf.substr(start + 5, rtf.size() - 2 - start - 5);
}

// Slots compared where they can be seen: a line end takes the colour around it.
void ExpectSameColours(const std::string& text, const std::string& expected,
                       const std::string& actual) {
    ASSERT_EQ(actual.size(), text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') continue;
        EXPECT_EQ(int(actual[i]), int(expected[i])) << "at byte " << i;
    }
}

} // namespace

// That the reader takes it back is the random round trip's.
TEST(RtfCodec, SmallColouredTextMatchesTheGoldenFile) {
    std::string text = "int main() {\r\n\t/* a\\b {c} */\r\n\treturn 0;\r\n}\r\n";
    std::string slots = Slots({{3, ColorSlot::Keywords0},
                               {12, ColorSlot::Text},
                               {13, ColorSlot::Comment},
                               {3, ColorSlot::Text},
                               {6, ColorSlot::Keywords0},
                               {8, ColorSlot::Text}});
    ASSERT_EQ(slots.size(), text.size());
    RtfFont font{"Courier New", 10.5f, true, false};
    std::string rtf = WriteRtf(text, slots, kPalette, font, false);
    const char* data = std::getenv("KESTRUM_TEST_DATA");
    std::string golden =
        ReadFileBytes(std::string(data ? data : "tests/data") + "/rtf/coloured.rtf");
    EXPECT_EQ(rtf, golden);
}

// Characters are escaped for the document's encoding (braces, backslashes, tabs and line ends
// are in the golden file); colours change only where the slot does. That the reader takes it
// all back is the random round trip's.
TEST(RtfCodec, TheBodyEscapesCharactersAndMarksEachChangeOfColour) {
    struct Case {
        std::string text;
        bool utf8;
        std::string body;
        std::string slots = {};
    };
    const std::vector<Case> cases = {
        {"caf\xE9 \x80", false, "caf\\'e9 \\'80"},
        {"\xF0\x9F\x98\x80", true, "\\u-10179?\\u-8704?"}, // a surrogate pair
        {"bad \xE9 byte", true, "bad \\u233? byte"},       // not UTF-8: taken as Latin-1
        {std::string("\x01\x7F\0", 3), false, "\\'01\\'7f\\'00"},
        {"page\fnext", false, "page\\page\nnext"},
        // A line end inside a run of one colour does not start a new run.
        {"ab cd\r\nef", false, "\\cf6 ab\\cf0  \\cf6 cd\\par\nef",
         Slots({{2, ColorSlot::Delimiter2}, {1, ColorSlot::Text}, {6, ColorSlot::Delimiter2}})},
        // Slots past the end of a short slot string, and unknown slot values, are Text.
        {"abc", false, "\\cf1 a\\cf0 bc", std::string("\x01\x09", 2)},
    };
    for (const Case& c : cases) {
        std::string rtf = WriteRtf(c.text, c.slots, kPalette, kFont, c.utf8);
        EXPECT_EQ(Body(rtf), c.body) << c.text;
    }
}

// The palette's table in slot order is in the golden file.
TEST(RtfCodec, HeaderCarriesTheFontWhateverItsNameAndSize) {
    RtfFont font{"Odd;{Name}", 12, true, true};
    std::string rtf = WriteRtf("x", {}, kPalette, font, false);
    EXPECT_NE(rtf.find("{\\fonttbl{\\f0\\fmodern\\fcharset0 Odd\\{Name\\};}}"), std::string::npos);
    EXPECT_NE(rtf.find("\\fs24\\b\\i\\cf0 x}"), std::string::npos);
    // Sizes out of range, or no number at all, still give a valid \fs.
    for (auto [points, fs] : {std::pair{0.2f, "\\fs2\\"}, std::pair{1e9f, "\\fs3276\\"},
                              std::pair{std::nanf(""), "\\fs20\\"}}) {
        std::string r = WriteRtf("x", {}, kPalette, {"F", points, false, false}, false);
        EXPECT_NE(r.find(fs), std::string::npos) << points;
    }
}

// Whatever the writer makes of a document, the reader makes the same document of it.
TEST(RtfCodec, RandomDocumentsSurviveTheRoundTrip) {
    std::mt19937 rng(20240611);
    const std::vector<std::string> ascii = {"a", " ", "\t", "\r\n", "\\", "{", "}", "?", ";", "\f"};
    const std::vector<std::string> latin1 = {"\xE9", "\x80", "\x9F", "\xFF"};
    const std::vector<std::string> utf8Chars = {"\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
                                                "\xEF\xBF\xBF", "\xC2\x80"};
    // Slots that show the same colour still come back each with its own number.
    RtfPalette same = kPalette;
    same[2] = same[1];
    same[5] = same[0];
    for (bool utf8 : {false, true}) {
        const RtfPalette& palette = utf8 ? kPalette : same;
        std::vector<std::string> from = ascii;
        for (const std::string& p : utf8 ? utf8Chars : latin1) from.push_back(p);
        for (int round = 0; round < 200; ++round) {
            std::string text, slots;
            int n = int(rng() % 40);
            for (int k = 0; k < n; ++k) {
                const std::string& p = from[rng() % from.size()];
                text += p;
                slots.append(p.size(), char(rng() % kColorSlotCount));
            }
            RtfContent back = ReadRtf(WriteRtf(text, slots, palette, kFont, utf8), palette, utf8);
            ASSERT_EQ(back.text, text) << "utf8 " << utf8 << " round " << round;
            // A multi-byte character has one colour, that of its first byte.
            std::string expected = slots;
            for (size_t i = 1; i < text.size(); ++i)
                if (utf8 && (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80)
                    expected[i] = expected[i - 1];
            ExpectSameColours(text, expected, back.styles);
        }
    }
}

TEST(RtfCodec, WordProcessorOutputIsReadForItsTextAndColours) {
    // The kind of file a word processor writes: tables and groups to skip, an automatic first
    // colour, its own order of colours, fields, Unicode with two fallback bytes.
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}{\\f1 Courier;}}\r\n"
        "{\\colortbl ;\\red255\\green0\\blue255;\\red0\\green0\\blue128;\\red1\\green2\\blue3;}\r\n"
        "{\\stylesheet{\\s0 Normal;}}{\\info{\\title Secret}{\\author Me}}"
        "{\\*\\generator Writer 1.0;}\\viewkind4\\uc1\\pard\\sa200\\f0\\fs22 "
        "Plain {\\cf2\\b bold blue}\\cf1  pink\\plain  back\\par\r\n"
        "{\\cf3 unknown}\\line tab\\tab end\\par\n"
        "\\'80 \\u8364\\'80 {\\uc2\\u20013\\'3f\\'3f}\\emdash\\~x\\-y\\_z\r\n"
        "{\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt link}}"
        "{\\pict\\wmetafile8 0123456789abcdef}\\bin3 {}}after\\par "
        "\\trowd\\cellx100\\cellx200 c1\\cell c2\\cell\\row done}trailing junk";
    RtfContent utf = ReadRtf(rtf, kPalette, true);
    EXPECT_EQ(utf.text, "Plain bold blue pink back\r\n"
                        "unknown\r\ntab\tend\r\n"
                        "\xE2\x82\xAC \xE2\x82\xAC \xE4\xB8\xAD\xE2\x80\x94\xC2\xA0xy-z"
                        "linkafter\r\nc1\tc2\r\ndone");
    auto slotAt = [&](const RtfContent& c, std::string_view word) {
        size_t at = c.text.find(word);
        EXPECT_NE(at, std::string::npos) << word;
        return at == std::string::npos ? -1 : int(c.styles[at]);
    };
    EXPECT_EQ(slotAt(utf, "bold"), int(ColorSlot::Keywords0)); // 0,0,128 is slot 1 here
    EXPECT_EQ(slotAt(utf, "pink"), int(ColorSlot::Delimiter2));
    EXPECT_EQ(slotAt(utf, "back"), int(ColorSlot::Text));
    EXPECT_EQ(slotAt(utf, "unknown"), int(ColorSlot::Text)); // no slot shows 1,2,3

    // An 8-bit document takes the code page's bytes, and the fallback where it has no byte.
    RtfContent latin = ReadRtf(rtf, kPalette, false);
    EXPECT_NE(latin.text.find("\x80 \x80 ??\x97\xA0xy-z"), std::string::npos) << latin.text;
    EXPECT_EQ(latin.styles.size(), latin.text.size());
}

TEST(RtfCodec, OddAndBadInputGiveADefinedResult) {
    struct Case {
        std::string rtf;
        std::string text;
    };
    const std::vector<Case> cases = {
        {"plain\ntext", "plain\r\ntext"}, // not RTF at all
        {"", ""},
        {"  {\\rtf1 lead}", "lead"},           // blanks before the group
        {"{\\rtf1 open {group", "open group"}, // groups never closed
        {"{\\rtf1 x\\", "x"},                  // a backslash at the very end
        {"{\\rtf1 x\\'4", "x4"},               // a broken hex escape
        {"{\\rtf1 \\u}", ""},                  // \u without a number
        {"{\\rtf1 \\u-99999?x}", "?x"},        // not a character: the fallback
        {"{\\rtf1 \\bin999999999 data}", ""},  // binary data past the end
        {"{\\rtf1 \\cf99 c\\cf-5 d}", "cd"},   // colours the table does not have
        {"{\\rtf1 \\verylongcontrolwordthatgoesonandonandon123456789012345 t}", "t"},
        {"{\\rtf1 \\u55357?}", ""},    // a lone high surrogate
        {"{\\rtf1 \\u56832?z}", "?z"}, // a lone low surrogate
        // Every line end of the result is CR LF, whatever escapes spelled it.
        {"{\\rtf1 a\\'0d\\'0ab\\'0dc\\'0ad\\u13?e\\\nf}", "a\r\nb\r\nc\r\nd\r\ne\r\nf"},
    };
    for (const Case& c : cases) {
        RtfContent r = ReadRtf(c.rtf, kPalette, false);
        EXPECT_EQ(r.text, c.text) << c.rtf;
        EXPECT_EQ(r.styles.size(), r.text.size()) << c.rtf;
        for (char s : r.styles) EXPECT_EQ(s, char(ColorSlot::Text)) << c.rtf;
    }
    // Nesting far deeper than any real document neither overflows nor loses the text.
    std::string deep = "{\\rtf1{\\colortbl;\\red0\\green0\\blue128;}" + std::string(200000, '{') +
                       "\\cf1 deep" + std::string(200000, '}') + " out}";
    RtfContent r = ReadRtf(deep, kPalette, true);
    EXPECT_EQ(r.text, "deep out");
    EXPECT_EQ(r.styles, Slots({{4, ColorSlot::Keywords0}, {4, ColorSlot::Text}}));
}
