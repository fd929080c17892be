#include "base/TextCodec.h"

#include <memory>
#include <random>

#include <gtest/gtest.h>

TEST(TextCodec, LineEndsBecomeCrLf) {
    struct Case {
        std::string in, out;
    };
    for (auto& c : std::vector<Case>{{"a\rb", "a\r\nb"},
                                     {"a\r\nb", "a\r\nb"},
                                     {"\r\r\n\n", "\r\n\r\n\r\n"},
                                     {"end\r", "end\r\n"},
                                     {"", ""},
                                     {std::string("nul\0\n", 5), std::string("nul\0\r\n", 6)}}) {
        EXPECT_EQ(ToCrLf(c.in), c.out);
        EXPECT_EQ(IsAllCrLf(c.in), c.in == c.out);
    }
    EXPECT_EQ(StripCr("a\r\nb\r"), "a\nb");
}

TEST(TextCodec, Utf8Validity) {
    struct Case {
        std::string bytes;
        bool valid;
    };
    for (auto& c : std::vector<Case>{{"plain ascii text, long enough to pass the fast path", true},
                                     {"gr\xC3\xBC\xC3\x9F", true},
                                     {"\xE2\x82\xAC", true},
                                     {"\xF0\x9F\x98\x80", true},
                                     {"caf\xE9", false},          // Latin-1
                                     {"\xC0\xAF", false},         // overlong
                                     {"\xED\xA0\x80", false},     // surrogate
                                     {"\xF4\x90\x80\x80", false}, // above U+10FFFF
                                     {"abcdefgh\xE2\x82", false}, // truncated at the end
                                     {"\x80", false}})
        EXPECT_EQ(IsValidUtf8(c.bytes), c.valid) << c.bytes;
}

// Text is converted 16 bytes a step: a line end of each kind must be found wherever it falls
// in a step, a pair must stay one line end across two steps, and nothing may be written
// beyond the room Convert asks for (2 bytes a byte, plus a CR left from the last chunk).
TEST(TextCodec, BlockwiseConversionFindsEveryLineEnd) {
    // Random texts of line ends, NULs and high bytes: converted whole they agree with the
    // same text fed a byte at a time, which never takes the block path.
    std::mt19937 random(7);
    const char alphabet[] = {'a', '\r', '\n', '\0', '\xE9'};
    for (int i = 0; i < 2000; ++i) {
        std::string text(random() % 80, 'a');
        for (char& c : text) c = alphabet[random() % 5];
        CrLfNormalizer whole, bytewise;
        std::string a, b;
        whole.Feed(text, a);
        whole.Finish(a);
        for (char c : text) bytewise.Feed(std::string_view(&c, 1), b);
        bytewise.Finish(b);
        EXPECT_EQ(a, b) << i;
        EXPECT_EQ(whole.Style(), bytewise.Style()) << i;
    }
    const std::string crs(37, '\r'), plain(37, 'y');
    for (const std::string& chunk : {crs, plain}) {
        CrLfNormalizer norm;
        std::string first;
        norm.Feed("a\r", first); // its CR waits for the next chunk
        auto room = std::make_unique<char[]>(2 * chunk.size() + 2);
        std::string out = first + std::string(room.get(), norm.Convert(chunk, room.get()));
        norm.Finish(out);
        EXPECT_EQ(out, ToCrLf("a\r" + chunk));
    }
}

// The chunked readers agree with the whole-buffer functions wherever the chunks split and see
// the file's line-end style, by which a file of one style is written back byte for byte and a
// mixed one as CR LF.
TEST(TextCodec, ChunkedReadersMatchTheWholeBufferAndSeeTheLineEndStyle) {
    struct Case {
        std::string file;
        LineEndStyle style;
    } cases[] = {
        {"a\r\nb\r\n", LineEndStyle::CrLf},
        {"a\nb\n", LineEndStyle::Lf},
        {"a\rb\r", LineEndStyle::Cr},
        {"", LineEndStyle::Lf},
        {"a\r\nb\n", LineEndStyle::Mixed},
        {"\n\r", LineEndStyle::Mixed},
        {"\r\r\n\n\r", LineEndStyle::Mixed},
        {"gr\xC3\xBC\xC3\x9F\r\n\xE2\x82\xAC\xF0\x9F\x98\x80", LineEndStyle::CrLf},
        {"caf\xE9\n", LineEndStyle::Lf},
        {"ok\xE2\x82", LineEndStyle::Lf},
        {"\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80", LineEndStyle::Lf},
    };
    for (const Case& c : cases) {
        for (size_t chunk = 1; chunk <= std::max<size_t>(c.file.size(), 1); ++chunk) {
            CrLfNormalizer norm;
            Utf8Validator utf;
            std::string out;
            for (size_t p = 0; p < c.file.size(); p += chunk) {
                std::string_view piece = std::string_view(c.file).substr(p, chunk);
                norm.Feed(piece, out);
                utf.Feed(piece);
            }
            norm.Finish(out);
            EXPECT_EQ(out, ToCrLf(c.file)) << c.file << " chunk " << chunk;
            EXPECT_EQ(utf.Finish(), IsValidUtf8(c.file)) << c.file << " chunk " << chunk;
            EXPECT_EQ(norm.Style(), c.style) << c.file << " chunk " << chunk;
        }
        std::string back = FromCrLf(ToCrLf(c.file), c.style);
        EXPECT_EQ(back, c.style == LineEndStyle::Mixed ? ToCrLf(c.file) : c.file) << c.file;
    }
}
