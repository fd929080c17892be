#include "transforms/core/CaseTransforms.h"

#include "base/Utf8.h"

#include <locale.h>
#include <wctype.h>

namespace {

bool IsWordBreak(unsigned char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v' || c == 0;
}

// Latin-1: A-Z, and À-Þ without the multiplication sign, pair with the letters 32 above.
bool IsLatin1Upper(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}
bool IsLatin1Lower(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
}
std::string ChangeLatin1(std::string_view text, CaseChange how) {
    std::string out(text);
    bool wordStart = true;
    for (char& ch : out) {
        unsigned char c = static_cast<unsigned char>(ch);
        bool upper = how == CaseChange::Upper || (how == CaseChange::Capitalize && wordStart);
        if (upper && IsLatin1Lower(c)) c = static_cast<unsigned char>(c - 32);
        if (!upper && IsLatin1Upper(c)) c = static_cast<unsigned char>(c + 32);
        ch = static_cast<char>(c);
        wordStart = IsWordBreak(c);
    }
    return out;
}

// The C library's Unicode tables, whatever locale the program runs in.
locale_t Utf8Locale() {
    static locale_t loc = [] {
        locale_t l = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t(nullptr));
        return l ? l : duplocale(LC_GLOBAL_LOCALE);
    }();
    return loc;
}

// Decodes one well-formed sequence at s[i]; returns its length, or 0 for a stray byte.
size_t Decode(std::string_view s, size_t i, char32_t& cp) {
    unsigned char c = static_cast<unsigned char>(s[i]);
    size_t len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 0;
    if (len == 0 || i + len > s.size()) return 0;
    cp = len == 1 ? c : len == 2 ? (c & 0x1F) : len == 3 ? (c & 0x0F) : (c & 0x07);
    for (size_t k = 1; k < len; ++k) {
        unsigned char d = static_cast<unsigned char>(s[i + k]);
        if ((d & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (d & 0x3F);
    }
    return len;
}

std::string ChangeUtf8(std::string_view text, CaseChange how) {
    locale_t loc = Utf8Locale();
    std::string out;
    out.reserve(text.size() + text.size() / 8);
    bool wordStart = true;
    for (size_t i = 0; i < text.size();) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) { // the common case without the library
            bool upper = how == CaseChange::Upper || (how == CaseChange::Capitalize && wordStart);
            if (upper && c >= 'a' && c <= 'z') c = static_cast<unsigned char>(c - 32);
            if (!upper && c >= 'A' && c <= 'Z') c = static_cast<unsigned char>(c + 32);
            out += char(c);
            wordStart = IsWordBreak(c);
            ++i;
            continue;
        }
        char32_t cp = 0;
        size_t len = Decode(text, i, cp);
        if (len == 0) { // not a character: kept as it is
            out += text[i++];
            wordStart = false;
            continue;
        }
        bool upper = how == CaseChange::Upper ||
                     (how == CaseChange::Capitalize && wordStart && iswalpha_l(wint_t(cp), loc));
        wint_t mapped = upper ? towupper_l(wint_t(cp), loc) : towlower_l(wint_t(cp), loc);
        // Surrogates and out-of-range results cannot be encoded; keep the character then.
        if (mapped > 0x10FFFF || (mapped >= 0xD800 && mapped <= 0xDFFF)) mapped = wint_t(cp);
        AppendUtf8(out, char32_t(mapped));
        wordStart = false;
        i += len;
    }
    return out;
}

} // namespace

std::string ChangeCase(std::string_view text, CaseChange how, bool utf8) {
    return utf8 ? ChangeUtf8(text, how) : ChangeLatin1(text, how);
}
