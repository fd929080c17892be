#include "editor/core/RtfCodec.h"

#include "base/TextCodec.h"
#include "base/Utf8.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace {

// Code page 1252 in 0x80 to 0x9F; the five holes stand for themselves.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t FromCp1252(unsigned char b) {
    return b >= 0x80 && b <= 0x9F ? kCp1252High[b - 0x80] : char32_t(b);
}

// The 8-bit byte of a code point: itself up to 0xFF, else its place in code page 1252.
std::optional<unsigned char> To8Bit(char32_t cp) {
    if (cp <= 0xFF) return static_cast<unsigned char>(cp);
    for (size_t i = 0; i < kCp1252High.size(); ++i)
        if (kCp1252High[i] == cp) return static_cast<unsigned char>(0x80 + i);
    return std::nullopt;
}

// A code point from the document's own escapes: one that is not a character becomes U+FFFD.
void AppendChar(std::string& out, char32_t cp) {
    AppendUtf8(out, cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF) ? char32_t(0xFFFD) : cp);
}

const char kHex[] = "0123456789abcdef";

void AppendHexByte(std::string& out, unsigned char b) {
    out += "\\'";
    out += kHex[b >> 4];
    out += kHex[b & 15];
}

// \uN with N as a signed 16-bit number, '?' for readers that cannot show it; code points
// beyond the first plane as a surrogate pair.
void AppendUnicode(std::string& out, char32_t cp) {
    auto unit = [&](char32_t u) {
        out += "\\u";
        out += std::to_string(u > 0x7FFF ? int(u) - 0x10000 : int(u));
        out += '?';
    };
    if (cp > 0xFFFF) {
        cp -= 0x10000;
        unit(0xD800 + (cp >> 10));
        unit(0xDC00 + (cp & 0x3FF));
    } else {
        unit(cp);
    }
}

// Text of a font name or a character run: RTF's three special characters escaped, control
// characters and everything above ASCII as escapes. Returns the bytes consumed at text[i].
size_t AppendChar(std::string& out, std::string_view text, size_t i, bool utf8) {
    auto c = static_cast<unsigned char>(text[i]);
    if (c == '\\' || c == '{' || c == '}') {
        out += '\\';
        out += char(c);
    } else if (c == '\t') {
        out += "\\tab ";
    } else if (c == '\f') {
        out += "\\page\n";
    } else if (c >= 0x20 && c < 0x7F) {
        out += char(c);
    } else if (c < 0x80 || !utf8) {
        AppendHexByte(out, c);
    } else {
        char32_t cp = 0;
        const size_t len = Utf8SequenceAt(text, i, cp);
        // A byte that is not part of a sequence is shown as the Latin-1 character it would be.
        AppendUnicode(out, len ? cp : char32_t(c));
        return len ? len : 1;
    }
    return 1;
}

} // namespace

std::string WriteRtf(std::string_view text, std::string_view styles, const RtfPalette& palette,
                     const RtfFont& font, bool utf8) {
    std::string out;
    out.reserve(text.size() + text.size() / 8 + 512);
    out += "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fmodern\\fcharset0 ";
    for (size_t i = 0; i < font.name.size();) {
        if (font.name[i] == ';') { // ends an entry of the table
            ++i;
            continue;
        }
        i += AppendChar(out, font.name, i, true);
    }
    out += ";}}\n{\\colortbl";
    for (const RtfColor& c : palette)
        out += "\\red" + std::to_string(c.red) + "\\green" + std::to_string(c.green) + "\\blue" +
               std::to_string(c.blue) + ';';
    // \fs counts half points; a size that is no number gets the usual ten points.
    float points = std::isfinite(font.points) ? std::clamp(font.points, 1.0f, 1638.0f) : 10.0f;
    int halfPoints = int(points * 2 + 0.5f);
    out += "}\n\\pard\\plain\\f0\\fs" + std::to_string(halfPoints);
    if (font.bold) out += "\\b";
    if (font.italic) out += "\\i";
    out += "\\cf0 ";

    int current = 0;
    for (size_t i = 0; i < text.size();) {
        char c = text[i];
        if (c == '\r' || c == '\n') {
            i += c == '\r' && i + 1 < text.size() && text[i + 1] == '\n' ? 2 : 1;
            out += "\\par\n";
            continue;
        }
        int slot = i < styles.size() ? static_cast<unsigned char>(styles[i]) : 0;
        if (slot >= kColorSlotCount) slot = 0;
        if (slot != current) {
            out += "\\cf";
            out += char('0' + slot);
            out += ' ';
            current = slot;
        }
        i += AppendChar(out, text, i, utf8);
    }
    out += "}\n";
    return out;
}

// ---------------------------------------------------------------- reading

namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Groups whose content is not text of the document, each name between blanks.
constexpr std::string_view kSkippedGroups =
    " fonttbl stylesheet info pict object header headerl headerr headerf footer footerl"
    " footerr footerf footnote annotation fldinst listtable listoverridetable rsidtbl xmlnstbl"
    " themedata colorschememapping latentstyles datastore revtbl filetbl generator pgdsctbl shp"
    " nonshppict bkmkstart bkmkend template private txe xe tc atnid atnauthor defchp defpap ";

bool IsSkippedDestination(std::string_view w) {
    size_t at = kSkippedGroups.find(w);
    while (at != std::string_view::npos) {
        if (kSkippedGroups[at - 1] == ' ' && kSkippedGroups[at + w.size()] == ' ') return true;
        at = kSkippedGroups.find(w, at + 1);
    }
    return false;
}

// Control words that stand for one character.
struct SymbolWord {
    std::string_view word;
    char32_t cp;
};
constexpr SymbolWord kSymbolWords[] = {
    {"tab", '\t'},      {"page", '\f'},     {"emdash", 0x2014},    {"endash", 0x2013},
    {"lquote", 0x2018}, {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D},
    {"bullet", 0x2022}, {"emspace", ' '},   {"enspace", ' '},      {"qmspace", ' '}};

class RtfReader {
  public:
    RtfReader(const RtfPalette& palette, bool utf8) : palette_(palette), utf8_(utf8) {}

    RtfContent Read(std::string_view rtf) {
        in_ = rtf;
        size_t i = 0;
        while (i < in_.size()) {
            char c = in_[i];
            if (c == '{') {
                OpenGroup();
                ++i;
            } else if (c == '}') {
                if (!CloseGroup()) break; // the document's own group has ended
                ++i;
            } else if (c == '\\') {
                i = Control(i + 1);
            } else if (c == '\r' || c == '\n') {
                ++i; // line breaks of the file are not text
            } else {
                Byte(static_cast<unsigned char>(c));
                ++i;
            }
        }
        FlushSurrogate();
        return std::move(out_);
    }

  private:
    enum class Dest : uint8_t { Body, ColorTable, Skip };
    struct State {
        Dest dest = Dest::Body;
        int cf = 0;
        int uc = 1;
    };
    static constexpr size_t kMaxDepth = 4096;

    void OpenGroup() {
        pendingSkip_ = 0;
        if (stack_.size() >= kMaxDepth) {
            ++overflow_; // deeper groups share the state of the deepest one kept
            return;
        }
        stack_.push_back(st_);
    }

    bool CloseGroup() {
        pendingSkip_ = 0;
        if (overflow_ > 0) {
            --overflow_;
            return true;
        }
        if (stack_.empty()) return false;
        st_ = stack_.back();
        stack_.pop_back();
        return !stack_.empty();
    }

    // Reads the control word or symbol behind a backslash at in_[i]; returns where the text
    // goes on.
    size_t Control(size_t i) {
        if (i >= in_.size()) return i;
        char c = in_[i];
        if (!IsLetter(c)) return Symbol(i);
        size_t start = i;
        while (i < in_.size() && IsLetter(in_[i])) ++i;
        std::string_view word = in_.substr(start, i - start);
        bool hasParam = false;
        int64_t param = 0;
        bool negative =
            i < in_.size() && in_[i] == '-' && i + 1 < in_.size() && IsDigit(in_[i + 1]);
        if (negative) ++i;
        for (int digits = 0; i < in_.size() && IsDigit(in_[i]); ++i, ++digits) {
            hasParam = true;
            if (digits < 10) param = param * 10 + (in_[i] - '0');
        }
        if (negative) param = -param;
        if (i < in_.size() && in_[i] == ' ') ++i; // the delimiter belongs to the word
        if (word == "bin") {
            // Binary data follows the word directly; it is never text.
            size_t skip = size_t(std::max<int64_t>(param, 0));
            return std::min(in_.size(), i + skip);
        }
        Word(word, hasParam, int(std::clamp<int64_t>(param, INT32_MIN, INT32_MAX)));
        return i;
    }

    size_t Symbol(size_t i) {
        char c = in_[i];
        switch (c) {
        case '\'': {
            auto hex = [](char h) {
                if (IsDigit(h)) return h - '0';
                if (h >= 'a' && h <= 'f') return h - 'a' + 10;
                if (h >= 'A' && h <= 'F') return h - 'A' + 10;
                return -1;
            };
            int hi = i + 1 < in_.size() ? hex(in_[i + 1]) : -1;
            int lo = i + 2 < in_.size() ? hex(in_[i + 2]) : -1;
            if (hi < 0 || lo < 0) return i + 1; // a broken escape is dropped
            Byte(static_cast<unsigned char>(hi * 16 + lo));
            return i + 3;
        }
        case '\\':
        case '{':
        case '}':
            Byte(static_cast<unsigned char>(c));
            break;
        case '~':
            CodePoint(0xA0);
            break;
        case '_':
            CodePoint('-');
            break;
        case '*': // a destination this reader does not know
            st_.dest = Dest::Skip;
            break;
        case '\r':
        case '\n':
            LineEnd();
            break;
        default: // optional hyphen, index and formula marks
            break;
        }
        return i + 1;
    }

    void Word(std::string_view w, bool hasParam, int param) {
        if (st_.dest == Dest::Skip) return;
        if (IsSkippedDestination(w)) {
            st_.dest = Dest::Skip;
            return;
        }
        if (w == "colortbl") {
            st_.dest = Dest::ColorTable;
            table_.clear();
            slotOfIndex_.clear();
            return;
        }
        if (st_.dest == Dest::ColorTable) {
            uint8_t v = uint8_t(std::clamp(param, 0, 255));
            uint8_t* part = w == "red"     ? &entry_.red
                            : w == "green" ? &entry_.green
                            : w == "blue"  ? &entry_.blue
                                           : nullptr;
            if (part) *part = v, entryHas_ = true;
            return;
        }
        if (w == "par" || w == "line" || w == "sect") {
            LineEnd();
        } else if (w == "row") {
            EndRow();
        } else if (w == "cell" || w == "nestcell") {
            CodePoint('\t');
            cellTabAt_ = out_.text.size();
        } else if (w == "cf") {
            st_.cf = hasParam ? param : 0;
        } else if (w == "plain") {
            st_.cf = 0;
        } else if (w == "uc") {
            st_.uc = std::clamp(hasParam ? param : 1, 0, 16);
        } else if (w == "u") {
            if (hasParam) Unicode(param < 0 ? char32_t(param + 0x10000) : char32_t(param));
        } else {
            for (const SymbolWord& sym : kSymbolWords)
                if (sym.word == w) return CodePoint(sym.cp);
        }
    }

    // A fallback character behind \uN is dropped when the \u itself was taken.
    bool SkipFallback() {
        if (pendingSkip_ == 0) return false;
        --pendingSkip_;
        return true;
    }

    // A byte of the file's code page: plain text, \'hh, or an escaped special character.
    void Byte(unsigned char b) {
        if (st_.dest == Dest::ColorTable) {
            if (b == ';') {
                table_.push_back(entryHas_ ? std::optional(entry_) : std::nullopt);
                entry_ = {};
                entryHas_ = false;
            }
            return;
        }
        if (st_.dest == Dest::Skip || SkipFallback()) return;
        FlushSurrogate();
        if (b == '\r' || b == '\n') return ControlLineEnd(b);
        lastCr_ = false;
        if (utf8_)
            AppendChar(out_.text, FromCp1252(b));
        else
            out_.text += char(b);
        Paint();
    }

    // A character given by its code point (symbols and control words).
    void CodePoint(char32_t cp) {
        if (st_.dest != Dest::Body || SkipFallback()) return;
        FlushSurrogate();
        Emit(cp);
    }

    void Unicode(char32_t unit) {
        if (st_.dest != Dest::Body) return;
        pendingSkip_ = 0;
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            FlushSurrogate();
            highSurrogate_ = unit;
            pendingSkip_ = st_.uc;
            return;
        }
        char32_t cp = unit;
        if (unit >= 0xDC00 && unit <= 0xDFFF) {
            cp = highSurrogate_ ? 0x10000 + ((highSurrogate_ - 0xD800) << 10) + (unit - 0xDC00)
                                : 0xFFFD;
            highSurrogate_ = 0;
        } else {
            FlushSurrogate();
        }
        // An 8-bit document that cannot hold the character takes the writer's fallback instead.
        if (!utf8_ && !To8Bit(cp)) return;
        Emit(cp);
        pendingSkip_ = st_.uc;
    }

    void FlushSurrogate() {
        if (!highSurrogate_) return;
        highSurrogate_ = 0;
        if (utf8_) Emit(0xFFFD);
    }

    void Emit(char32_t cp) {
        if (cp == '\r' || cp == '\n') return ControlLineEnd(char(cp));
        lastCr_ = false;
        if (utf8_)
            AppendChar(out_.text, cp);
        else
            out_.text += char(To8Bit(cp).value_or('?'));
        Paint();
    }

    // A CR or LF given as a character: a line end of its own, except the LF of a CR LF.
    void ControlLineEnd(char c) {
        if (c == '\n' && lastCr_) {
            lastCr_ = false;
            return;
        }
        LineEnd();
        lastCr_ = c == '\r';
    }

    void LineEnd() {
        if (st_.dest != Dest::Body) return;
        out_.text += "\r\n";
        lastCr_ = false;
        Paint();
    }

    // A table row ends its last cell: the line end stands where that cell's tab would.
    void EndRow() {
        if (st_.dest != Dest::Body) return;
        if (cellTabAt_ && cellTabAt_ == out_.text.size() && out_.text.back() == '\t') {
            out_.text.pop_back();
            out_.styles.pop_back();
        }
        cellTabAt_ = 0;
        LineEnd();
    }

    // Gives the bytes just added the slot of the current colour.
    void Paint() { out_.styles.resize(out_.text.size(), char(CurrentSlot())); }

    uint8_t CurrentSlot() {
        if (slotOfIndex_.size() != table_.size()) {
            slotOfIndex_.assign(table_.size(), 0);
            for (size_t n = 0; n < table_.size(); ++n) {
                if (!table_[n]) continue; // the automatic colour is the text colour
                if (n < palette_.size() && palette_[n] == *table_[n]) {
                    slotOfIndex_[n] = uint8_t(n);
                    continue;
                }
                auto it = std::find(palette_.begin(), palette_.end(), *table_[n]);
                if (it != palette_.end()) slotOfIndex_[n] = uint8_t(it - palette_.begin());
            }
        }
        return st_.cf >= 0 && size_t(st_.cf) < slotOfIndex_.size() ? slotOfIndex_[size_t(st_.cf)]
                                                                   : 0;
    }

    const RtfPalette& palette_;
    bool utf8_;
    std::string_view in_;
    RtfContent out_;
    State st_;
    std::vector<State> stack_;
    size_t overflow_ = 0;
    int pendingSkip_ = 0;
    char32_t highSurrogate_ = 0;
    bool lastCr_ = false;
    size_t cellTabAt_ = 0;
    std::vector<std::optional<RtfColor>> table_;
    std::vector<uint8_t> slotOfIndex_;
    RtfColor entry_;
    bool entryHas_ = false;
};

} // namespace

RtfContent ReadRtf(std::string_view rtf, const RtfPalette& palette, bool utf8) {
    size_t start = rtf.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || rtf.substr(start, 5) != "{\\rtf") {
        RtfContent plain{ToCrLf(rtf), {}};
        plain.styles.assign(plain.text.size(), char(ColorSlot::Text));
        return plain;
    }
    return RtfReader(palette, utf8).Read(rtf.substr(start));
}
