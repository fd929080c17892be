#include "search/core/PatternMatch.h"

#include <bitset>
#include <cstring>
#include <optional>
#include <vector>

namespace {

struct Element {
    enum Kind { Byte, Set, Star } kind;
    std::bitset<256> set; // Byte and Set: the bytes it takes
};

// Compiles the expression; nothing when a '[' is left unclosed.
std::optional<std::vector<Element>> Compile(std::string_view expr) {
    std::vector<Element> out;
    for (size_t i = 0; i < expr.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(expr[i]);
        Element e{Element::Byte, {}};
        if (c == '*') {
            if (!out.empty() && out.back().kind == Element::Star) continue;
            e.kind = Element::Star;
        } else if (c == '?') {
            e.set.set();
        } else if (c == '#') {
            for (unsigned char d = '0'; d <= '9'; ++d) e.set.set(d);
        } else if (c == '[') {
            size_t close = expr.find(']', i + 1);
            if (close == std::string_view::npos) return std::nullopt;
            std::string_view list = expr.substr(i + 1, close - i - 1);
            bool negate = !list.empty() && list[0] == '!';
            if (negate) list.remove_prefix(1);
            for (size_t k = 0; k < list.size(); ++k) {
                unsigned char a = static_cast<unsigned char>(list[k]);
                if (k + 2 < list.size() && list[k + 1] == '-') {
                    unsigned char b = static_cast<unsigned char>(list[k + 2]);
                    for (unsigned x = a; x <= b; ++x) e.set.set(x);
                    k += 2;
                } else {
                    e.set.set(a);
                }
            }
            if (negate) e.set.flip();
            i = close;
        } else {
            e.set.set(c);
        }
        out.push_back(e);
    }
    return out;
}

enum class Outcome { Match, NoMatch, NeverAfter };

// Matches the elements against text from its start. A match may stop before the text ends
// (the expression behaves as if it ended in '*'). A failure once a '*' has been passed means
// that the rest cannot be placed in any later part of the text either, so no later start can
// match: NeverAfter.
Outcome MatchAt(std::string_view text, const std::vector<Element>& p) {
    size_t i = 0, j = 0;
    size_t starJ = SIZE_MAX, starI = 0;
    for (;;) {
        if (j == p.size()) return Outcome::Match;
        if (p[j].kind == Element::Star) {
            starJ = j++;
            starI = i;
            continue;
        }
        if (i < text.size() && p[j].set.test(static_cast<unsigned char>(text[i]))) {
            ++i;
            ++j;
            continue;
        }
        if (starJ == SIZE_MAX) return Outcome::NoMatch;
        if (starI >= text.size()) return Outcome::NeverAfter;
        i = ++starI;
        j = starJ + 1;
    }
}

bool ValidFirst(unsigned char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'z'); }

} // namespace

int64_t FindPatternPos(int64_t start, std::string_view text, std::string_view expression) {
    if (expression.empty() || !ValidFirst(static_cast<unsigned char>(expression[0]))) return -1;
    auto compiled = Compile(expression);
    if (!compiled) return 0;
    if (start < 1) start = 1;
    const char first = expression[0];
    size_t from = size_t(start - 1);
    while (from < text.size()) {
        const void* hit = std::memchr(text.data() + from, first, text.size() - from);
        if (!hit) return 0;
        size_t at = size_t(static_cast<const char*>(hit) - text.data());
        switch (MatchAt(text.substr(at), *compiled)) {
        case Outcome::Match:
            return int64_t(at) + 1;
        case Outcome::NeverAfter:
            return 0;
        case Outcome::NoMatch:
            break;
        }
        from = at + 1;
    }
    return 0;
}
