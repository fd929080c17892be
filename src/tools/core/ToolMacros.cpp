#include "tools/core/ToolMacros.h"

#include "base/MiscSubs.h"
#include "base/PathHelpers.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <sys/stat.h>
#include <vector>

std::string ShortPathOf(std::string_view path) {
    if (path.empty()) return {};
    std::string p(path);
    struct stat st;
    return ::stat(p.c_str(), &st) == 0 ? p : std::string();
}

std::string BaseNameOf(std::string_view path) {
    return StripExtension(FileNameOf(path));
}

namespace {
// The macro letters in the order of their passes: lower case (short path) first.
constexpr char kLetters[] = "fpnltFPNLT";
constexpr int kPasses = 10;
constexpr unsigned kShortForms = 0x1F; // the first five passes use ShortPathOf

// The pass of each byte that may follow '%', or -1.
constexpr std::array<signed char, 256> kPassOf = [] {
    std::array<signed char, 256> t{};
    t.fill(-1);
    for (int k = 0; k < kPasses; ++k) t[static_cast<unsigned char>(kLetters[k])] = char(k);
    return t;
}();

// The value of pass k for the path: passes 0 to 4 take its short form, 5 to 9 the path
// itself, each five in the same order; the long full path alone may be quoted.
std::string PassValue(int k, std::string_view path, const std::string& shortPath, bool quote) {
    const std::string_view p = k < 5 ? std::string_view(shortPath) : path;
    switch (k % 5) {
    case 0:
        return k == 5 && quote ? '"' + std::string(p) : std::string(p);
    case 1:
        return PathOf(p);
    case 2:
        return FileNameOf(p);
    case 3:
        return StripExtension(p);
    default:
        return BaseNameOf(p);
    }
}
} // namespace

std::string ToolMacros(std::string_view line, std::string_view path, MacroQuoting quoting) {
    const bool quote = quoting == MacroQuoting::QuoteFileAndLineEnd;
    // One scan finds the macros of the line: where each stands and its pass.
    struct Found {
        std::uint32_t at;
        std::uint32_t pass;
    };
    std::vector<Found> found;
    std::array<std::size_t, kPasses> count{};
    bool doublePercent = false;
    const char* const begin = line.data();
    const char* const last = begin + line.size() - (line.empty() ? 0 : 1); // a '%' here ends it
    for (const char* p = begin; p < last;) {
        p = static_cast<const char*>(std::memchr(p, '%', std::size_t(last - p)));
        if (!p) break;
        const unsigned char next = static_cast<unsigned char>(p[1]);
        const int k = kPassOf[next];
        if (k >= 0) {
            found.push_back({std::uint32_t(p - begin), std::uint32_t(k)});
            ++count[std::size_t(k)];
            p += 2; // the macro's letter is no '%'
        } else {
            doublePercent = doublePercent || next == '%';
            p += 1;
        }
    }
    unsigned used = 0;
    for (int k = 0; k < kPasses; ++k)
        if (count[std::size_t(k)]) used |= 1u << k;
    // The file system is asked only when a short form is wanted.
    const std::string shortPath = used & kShortForms ? ShortPathOf(path) : std::string();
    std::array<std::string, kPasses> values;
    bool percentInValue = false;
    std::size_t size = line.size() + (quote ? 1 : 0);
    for (int k = 0; k < kPasses; ++k) {
        if (!(used & (1u << k))) continue;
        std::string& v = values[std::size_t(k)];
        v = PassValue(k, path, shortPath, quote);
        percentInValue = percentInValue || v.find('%') != std::string::npos;
        size += count[std::size_t(k)] * v.size();
        size -= count[std::size_t(k)] * 2; // the macros it replaces
    }
    std::string s;
    if (!doublePercent && !percentInValue && line.size() < UINT32_MAX) {
        // No pass can make a new macro (a '%' inside a value, or a "%%" of the line whose
        // second '%' begins a macro), so the one scan gives what the ten passes give.
        s.resize(size);
        char* out = s.data();
        std::size_t from = 0;
        for (const Found& f : found) {
            std::memcpy(out, begin + from, f.at - from);
            out += f.at - from;
            const std::string& v = values[f.pass];
            std::memcpy(out, v.data(), v.size());
            out += v.size();
            from = f.at + 2;
        }
        if (line.size() > from) std::memcpy(out, begin + from, line.size() - from);
        if (quote) out[line.size() - from] = '"';
        return s;
    }
    // Each pass over the result of the one before, every value known.
    const std::string sp = used & kShortForms ? shortPath : ShortPathOf(path);
    for (int k = 0; k < kPasses; ++k)
        if (!(used & (1u << k))) values[std::size_t(k)] = PassValue(k, path, sp, quote);
    s.assign(line);
    for (int k = 0; k < kPasses; ++k) {
        const char macro[] = {'%', kLetters[k]};
        const std::string_view m(macro, 2);
        if (s.find(m) != std::string::npos) s = ReplaceText(s, m, values[std::size_t(k)]);
    }
    if (quote) s += '"';
    return s;
}
