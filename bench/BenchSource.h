#pragma once
// Inputs shared by the painter benchmarks: a deterministic C source of any size, an
// 80-entry C keyword list in three lists, and the four usual delimiter pairs.
#include "base/EditorSettings.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace bench {

// A C source of about size bytes with CR LF line ends: functions with declarations, loops,
// conditions, calls, string and character literals, block and line comments.
inline std::string GenerateCSource(size_t size, uint32_t seed = 12345) {
    uint64_t state = seed;
    auto next = [&](uint32_t n) {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        return uint32_t(state >> 33) % n;
    };
    static const char* types[] = {"int",    "unsigned long", "char *",       "double",
                                  "size_t", "struct node *", "const char *", "uint32_t"};
    static const char* names[] = {
        "count", "index",  "buffer",   "length",  "result",  "node", "value",    "offset",
        "total", "format", "interval", "printer", "do_work", "iffy", "for_each", "elsewhere"};
    static const char* calls[] = {"printf", "memcpy",  "strlen",       "malloc",
                                  "free",   "fprintf", "update_state", "lookup"};
    std::string s;
    s.reserve(size + 4096);
    s += "#include <stdio.h>\r\n#include <stdlib.h>\r\n\r\n";
    int fn = 0;
    while (s.size() < size) {
        const char* t = types[next(8)];
        s += "/* Function ";
        s += std::to_string(fn);
        s += ": computes the next value of the table.\r\n   Returns 0 when done. */\r\n";
        s += "static ";
        s += t;
        s += " compute_";
        s += std::to_string(fn++);
        s += "(const char *name, int limit)\r\n{\r\n";
        for (int line = 0, lines = 4 + int(next(12)); line < lines; ++line) {
            const char* a = names[next(16)];
            const char* b = names[next(16)];
            switch (next(8)) {
            case 0:
                s += std::string("    ") + types[next(8)] + " " + a + " = " +
                     std::to_string(next(1000)) + ";\r\n";
                break;
            case 1:
                s += std::string("    for (int i = 0; i < limit; i++) {\r\n        ") + a +
                     " += " + b + "[i];\r\n    }\r\n";
                break;
            case 2:
                s += std::string("    if (") + a + " > " + b + ") return " + a +
                     "; // early exit\r\n";
                break;
            case 3:
                s += std::string("    ") + calls[next(8)] + "(\"%s: %d\\n\", name, " + a + ");\r\n";
                break;
            case 4:
                s += std::string("    while (") + a + "-- != 0) { if (" + b +
                     " == '\\0') break; }\r\n";
                break;
            case 5:
                s += std::string("    else ") + a + " = sizeof(" + types[next(8)] + ") * " + b +
                     ";\r\n";
                break;
            case 6:
                s += std::string("    switch (") + a + ") { case 1: " + b +
                     " = 'x'; break; default: break; }\r\n";
                break;
            default:
                s += std::string("    ") + a + " = " + calls[next(8)] + "(" + b + ", limit); /* " +
                     names[next(16)] + " */\r\n";
            }
        }
        s += "    return 0;\r\n}\r\n\r\n";
    }
    return s;
}

inline std::string KeywordList(std::initializer_list<const char*> words) {
    std::string l;
    for (auto w : words) l += std::string(w) + kKeywordSeparator;
    return l;
}

// 80 entries: the C keywords, common types and library names, preprocessor words.
inline void SetCProfile(EditorSettings& s) {
    s.Keywords[0] = KeywordList(
        {"auto",         "break",    "case",     "char",     "const",     "continue",
         "default",      "do",       "double",   "else",     "enum",      "extern",
         "float",        "for",      "goto",     "if",       "inline",    "int",
         "long",         "register", "restrict", "return",   "short",     "signed",
         "sizeof",       "static",   "struct",   "switch",   "typedef",   "union",
         "unsigned",     "void",     "volatile", "while",    "_Bool",     "_Complex",
         "_Alignas",     "_Alignof", "_Atomic",  "_Generic", "_Noreturn", "_Static_assert",
         "_Thread_local"});
    s.Keywords[1] = KeywordList(
        {"size_t",   "ptrdiff_t", "int8_t",   "int16_t", "int32_t", "int64_t", "uint8_t",
         "uint16_t", "uint32_t",  "uint64_t", "FILE",    "NULL",    "EOF",     "bool",
         "true",     "false",     "printf",   "fprintf", "malloc",  "free",    "memcpy",
         "memset",   "strlen",    "strcmp",   "calloc",  "realloc", "exit"});
    s.Keywords[2] = KeywordList({"#include", "#define", "#undef", "#if", "#ifdef", "#ifndef",
                                 "#else", "#elif", "#endif", "#pragma"});
    s.Delimiters = {};
    s.Delimiters[0] = {"/*", "*/", 1};
    s.Delimiters[1] = {"//", "\r\n", 1};
    s.Delimiters[2] = {"\"", "\"", 2};
    s.Delimiters[3] = {"'", "'", 3};
    s.CaseSensitive = true;
    s.CodeOrder = true;
}

// Best of several runs, in seconds.
template <typename F> double BestOf(int runs, F&& f) {
    double best = 1e30;
    for (int i = 0; i < runs; ++i) {
        auto a = std::chrono::steady_clock::now();
        f();
        auto b = std::chrono::steady_clock::now();
        best = std::min(best, std::chrono::duration<double>(b - a).count());
    }
    return best;
}

} // namespace bench
