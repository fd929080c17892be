#include "base/NameCodec.h"

#include <gtest/gtest.h>

// Every byte string comes back unchanged; bytes that are not UTF-8 decode to their escapes.
// Which sequences are well formed is the shared decoder's: TextCodec's UTF-8 validity.
TEST(NameCodec, BytesSurviveTheRoundTrip) {
    struct Case {
        std::string bytes;
        std::u16string text;
    };
    for (const Case& c : std::vector<Case>{
             {"plain.txt", u"plain.txt"},
             {"gr\xC3\xBC\xC3\x9F", u"gr\u00FC\u00DF"},
             {"caf\xE9.txt", u"caf\xDCE9.txt"},
             // A valid pair whose low half lies in the escape range is a character, not bytes.
             {"\xF0\x90\x82\x80", u"\xD800\xDC80"},
             {"\xF0\x9F\x98\x80", u"\xD83D\xDE00"},
             // Each byte of a broken sequence on its own; a valid one right after it stays.
             {"\xE9\xC3\xA9", u"\xDCE9\u00E9"},
             {"\xE2\x82x", u"\xDCE2\xDC82x"},
             {"\xED\xB2\x80", u"\xDCED\xDCB2\xDC80"}, // an encoded surrogate
             {"\xFF\x80", u"\xDCFF\xDC80"},
             {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
             {"", u""}}) {
        EXPECT_EQ(DecodeNameBytes(c.bytes), c.text) << c.bytes;
        EXPECT_EQ(EncodeNameText(c.text), c.bytes) << c.bytes;
    }
}

// Text no decoding makes: a lone surrogate outside the escape range, or one cut off a pair.
TEST(NameCodec, StraySurrogatesBecomeReplacementCharacters) {
    EXPECT_EQ(EncodeNameText(u"a\xD800"), "a\xEF\xBF\xBD");
    EXPECT_EQ(EncodeNameText(u"\xDC10z"), "\xEF\xBF\xBDz");
    EXPECT_EQ(EncodeNameText(u"\xD83D\xDCE9"), "\xF0\x9F\x93\xA9"); // a pair, not an escape
}
