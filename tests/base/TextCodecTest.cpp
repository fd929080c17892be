#include "base/TextCodec.h"

#include <memory>
#include <random>

#include <gtest/gtest.h>

TEST(TextCodec, LineEndsBecomeCrLf) {
    struct Case {
        std::string in, out;
    };
    for (auto& c : std::vector<Case>{{"a\nb", "a\r\nb"},
                                     {"a\rb", "a\r\nb"},
                                     {"a\r\nb", "a\r\nb"},
                                     {"\n\n", "\r\n\r\n"},
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

// The chunked readers must agree with the whole-buffer functions wherever the chunks split.
TEST(TextCodec, ChunkedConversionMatchesWholeBuffer) {
    const std::vector<std::string> texts = {
        "a\r\nb\rc\nd\r", "\r\r\n\n\r", "gr\xC3\xBC\xC3\x9F\r\n\xE2\x82\xAC\xF0\x9F\x98\x80",
        "caf\xE9\n",      "ok\xE2\x82", "\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80"};
    for (const auto& t : texts) {
        for (size_t chunk = 1; chunk <= t.size(); ++chunk) {
            CrLfNormalizer norm;
            Utf8Validator utf;
            std::string out;
            for (size_t p = 0; p < t.size(); p += chunk) {
                std::string_view piece = std::string_view(t).substr(p, chunk);
                norm.Feed(piece, out);
                utf.Feed(piece);
            }
            norm.Finish(out);
            EXPECT_EQ(out, ToCrLf(t)) << "chunk " << chunk;
            EXPECT_EQ(utf.Finish(), IsValidUtf8(t)) << "chunk " << chunk << " of " << t;
        }
    }
}

// Text is converted 16 bytes a step: a line end of each kind must be found wherever it falls
// in a step, a pair must stay one line end across two steps, and nothing may be written
// beyond the room Convert asks for (2 bytes a byte, plus a CR left from the last chunk).
TEST(TextCodec, BlockwiseConversionFindsEveryLineEnd) {
    std::string line(40, 'x');
    line[3] = '\0';
    line[19] = '\xE9';
    for (const char* end : {"\n", "\r", "\r\n", "\n\r", "\r\r\n"}) {
        for (size_t at = 0; at <= line.size(); ++at) {
            const std::string text = line.substr(0, at) + end + line.substr(at);
            CrLfNormalizer norm;
            std::string out;
            norm.Feed(text, out);
            norm.Finish(out);
            EXPECT_EQ(out, ToCrLf(text)) << "offset " << at;
        }
    }
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

// The style seen at load, in every chunking, and the way back to the file's own bytes.
TEST(TextCodec, LineEndStyleIsSeenAndWrittenBack) {
    struct Case {
        std::string file;
        LineEndStyle style;
    } cases[] = {
        {"a\r\nb\r\n", LineEndStyle::CrLf},
        {"a\nb\n", LineEndStyle::Lf},
        {"a\rb\r", LineEndStyle::Cr},
        {"no line end", LineEndStyle::Lf},
        {"", LineEndStyle::Lf},
        {"a\r\nb\n", LineEndStyle::Mixed},
        {"a\rb\r\n", LineEndStyle::Mixed},
        {"\n\r", LineEndStyle::Mixed},
    };
    for (const Case& c : cases) {
        for (size_t chunk = 1; chunk <= std::max<size_t>(c.file.size(), 1); ++chunk) {
            CrLfNormalizer norm;
            std::string buffer;
            for (size_t p = 0; p < c.file.size(); p += chunk)
                norm.Feed(std::string_view(c.file).substr(p, chunk), buffer);
            norm.Finish(buffer);
            EXPECT_EQ(norm.Style(), c.style) << c.file << " chunk " << chunk;
        }
        // A file of one style comes back byte for byte; a mixed one comes back as CR LF.
        std::string back = FromCrLf(ToCrLf(c.file), c.style);
        EXPECT_EQ(back, c.style == LineEndStyle::Mixed ? ToCrLf(c.file) : c.file) << c.file;
    }
}
