#include "profiles/core/SyntaxAssociations.h"

#include "base/SettingsStore.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

constexpr std::string_view kAsp = "ASP Default Profile";
constexpr std::string_view kHtml = "HTML Default Profile";
constexpr std::string_view kC = "C and C++ Default Profile";
constexpr std::string_view kJava = "Java Default Profile";
constexpr std::string_view kPerl = "Perl 5 Default Profile";
constexpr std::string_view kText = "Text Files - No Syntax";
constexpr std::string_view kPascal = "Object Pascal Default Profile";
constexpr std::string_view kAsm = "ASM Default Profile";
constexpr std::string_view kBatch = "MS-DOS Batch Default Profile";
constexpr std::string_view kSql = "SQL Default Profile";
constexpr std::string_view kQBasic = "QBASIC Default Profile";
constexpr std::string_view kClipper = "Clipper Default Profile";
constexpr std::string_view kAda = "Ada Default Profile";
constexpr std::string_view kRexx = "REXX Default Profile";
constexpr std::string_view kParadox = "Paradox ObjectPal Default Profile";
constexpr std::string_view kCobol = "COBOL Default Profile";
constexpr std::string_view kDataFlex = "DataFlex Default Profile";
constexpr std::string_view kEiffel = "Eiffel Default Profile";
constexpr std::string_view kVhdl = "VHDL Default Profile";
constexpr std::string_view kLimbo = "Limbo Default Profile";
constexpr std::string_view kLisp = "LISP Default Profile";
constexpr std::string_view kModula2 = "Modula2 Default Profile";
constexpr std::string_view kBlue = "BLUE Default Profile";
constexpr std::string_view kProgress = "Progress Default Profile";
constexpr std::string_view kFortran = "FORTRAN Default Profile";
constexpr std::string_view kVerilog = "Verilog Default Profile";
constexpr std::string_view kIni = "Windows INI Default Profile";
constexpr std::string_view kLiteStep = "LiteStep Default Profile";
constexpr std::string_view kSmalltalk = "Smalltalk Default Profile";
constexpr std::string_view kAml = "AML Default Profile";
constexpr std::string_view kCicode = "CICODE Default Profile";
constexpr std::string_view kPl1 = "PL1 Default Profile";
constexpr std::string_view kRebol = "REBOL Default Profile";
constexpr std::string_view kPhp = "PHP3 Default Profile";
constexpr std::string_view kPython = "Python Default Profile";
constexpr std::string_view kShell = "Shell Default Profile";
constexpr std::string_view kMake = "Makefile Default Profile";
constexpr std::string_view kCMake = "CMake Default Profile";
constexpr std::string_view kJs = "JavaScript Default Profile";
constexpr std::string_view kTs = "TypeScript Default Profile";
constexpr std::string_view kJson = "JSON Default Profile";
constexpr std::string_view kYaml = "YAML Default Profile";
constexpr std::string_view kToml = "TOML Default Profile";
constexpr std::string_view kMarkdown = "Markdown Default Profile";
constexpr std::string_view kCss = "CSS Default Profile";
constexpr std::string_view kXml = "XML Default Profile";
constexpr std::string_view kRust = "Rust Default Profile";
constexpr std::string_view kGo = "Go Default Profile";
constexpr std::string_view kCSharp = "C Sharp Default Profile";
constexpr std::string_view kKotlin = "Kotlin Default Profile";
constexpr std::string_view kSwift = "Swift Default Profile";
constexpr std::string_view kLua = "Lua Default Profile";
constexpr std::string_view kRuby = "Ruby Default Profile";
constexpr std::string_view kDocker = "Dockerfile Default Profile";
constexpr std::string_view kDiff = "Diff Default Profile";

// The order is part of the table: BAT and INI go first to the plain-text profile and then to
// their own, and REX ends with the COBOL profile although REXX has one.
constexpr std::array<SyntaxAssoc, 68> kClassic{{
    {"ASP", kAsp},      {"HTM", kHtml},      {"HTML", kHtml},    {"C", kC},
    {"CPP", kC},        {"H", kC},           {"HPP", kC},        {"DLG", kC},
    {"JAV", kJava},     {"JAVA", kJava},     {"PL", kPerl},      {"PM", kPerl},
    {"CGI", kPerl},     {"TXT", kText},      {"DOC", kText},     {"FAQ", kText},
    {"BAT", kText},     {"INI", kText},      {"NFO", kText},     {"PAS", kPascal},
    {"ASM", kAsm},      {"INC", kAsm},       {"BAT", kBatch},    {"SQL", kSql},
    {"BAS", kQBasic},   {"CH", kClipper},    {"PRG", kClipper},  {"ADA", kAda},
    {"ADB", kAda},      {"ADS", kAda},       {"REX", kRexx},     {"SC", kParadox},
    {"CBL", kCobol},    {"COB", kCobol},     {"SUB", kCobol},    {"DEF", kCobol},
    {"REX", kCobol},    {"FRM", kDataFlex},  {"SRC", kDataFlex}, {"PKG", kDataFlex},
    {"PFX", kDataFlex}, {"EI", kEiffel},     {"VHD", kVhdl},     {"VHDL", kVhdl},
    {"B", kLimbo},      {"M", kLimbo},       {"LSP", kLisp},     {"MOD", kModula2},
    {"BLU", kBlue},     {"P", kProgress},    {"PP", kProgress},  {"I", kProgress},
    {"IP", kProgress},  {"W", kProgress},    {"FOR", kFortran},  {"F90", kFortran},
    {"V", kVerilog},    {"VLG", kVerilog},   {"INI", kIni},      {"RC", kLiteStep},
    {"ST", kSmalltalk}, {"SMT", kSmalltalk}, {"AML", kAml},      {"CI", kCicode},
    {"PLI", kPl1},      {"RBL", kRebol},     {"PHP", kPhp},      {"PHP3", kPhp},
}};

// Today's languages are written after the classic table and take none of its extensions.
// Names without a dot (Makefile, Dockerfile) get no row, as only extensions are looked up.
constexpr std::array<SyntaxAssoc, 41> kToday{{
    {"PY", kPython},
    {"PYW", kPython},
    {"PYI", kPython},
    {"SH", kShell},
    {"BASH", kShell},
    {"MK", kMake},
    {"MAK", kMake},
    {"CMAKE", kCMake},
    {"JS", kJs},
    {"MJS", kJs},
    {"CJS", kJs},
    {"JSX", kJs},
    {"TS", kTs},
    {"MTS", kTs},
    {"CTS", kTs},
    {"TSX", kTs},
    {"JSON", kJson},
    {"YML", kYaml},
    {"YAML", kYaml},
    {"TOML", kToml},
    {"MD", kMarkdown},
    {"MARKDOWN", kMarkdown},
    {"CSS", kCss},
    {"XML", kXml},
    {"XSD", kXml},
    {"XSL", kXml},
    {"XSLT", kXml},
    {"SVG", kXml},
    {"RS", kRust},
    {"GO", kGo},
    {"CS", kCSharp},
    {"KT", kKotlin},
    {"KTS", kKotlin},
    {"SWIFT", kSwift},
    {"LUA", kLua},
    {"RB", kRuby},
    {"RAKE", kRuby},
    {"GEMSPEC", kRuby},
    {"DOCKERFILE", kDocker},
    {"DIFF", kDiff},
    {"PATCH", kDiff},
}};

constexpr auto kDefaults = [] {
    std::array<SyntaxAssoc, kClassic.size() + kToday.size()> all{};
    std::ranges::copy(kToday, std::ranges::copy(kClassic, all.begin()).out);
    return all;
}();

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::toupper(x) == std::toupper(y); });
}

} // namespace

std::span<const SyntaxAssoc> DefaultSyntaxAssocs() {
    return kDefaults;
}

std::vector<std::string_view> DefaultProfileNames() {
    std::vector<std::string_view> names;
    for (const auto& a : kDefaults)
        if (std::ranges::find(names, a.profile) == names.end()) names.push_back(a.profile);
    return names;
}

bool CreateSyntaxAssocs(SettingsStore& store, std::string_view app) {
    if (!store.GetAllSettings(app, kSyntaxAssocSection).empty()) return false;
    RestoreDefaultSyntaxAssocs(store, app);
    return true;
}

void RestoreDefaultSyntaxAssocs(SettingsStore& store, std::string_view app) {
    SettingsStore::Batch batch(store); // one save for the whole table
    for (const auto& a : kDefaults)
        store.SaveSetting(app, kSyntaxAssocSection, a.extension, a.profile);
    batch.Commit();
}

std::string SyntaxExtension(std::string_view path) {
    auto dot = path.rfind('.');
    if (dot == std::string_view::npos) return {};
    return std::string(path.substr(dot + 1));
}

SyntaxChoice ResolveSyntax(SettingsStore& store, std::string_view app, std::string_view path) {
    std::string ext = SyntaxExtension(path);
    if (ext.empty()) return {};
    std::string value = store.GetSetting(app, kSyntaxAssocSection, ext, kNoFileAssoc);
    if (EqualsIgnoringCase(value, kNoFileAssoc)) return {};
    // A profile is a file of the profile folder: a value that would lead out of it (a path,
    // "." or "..") names no profile, so that reading it fails as for a missing one.
    if (value.find('/') != std::string::npos || value == "." || value == "..") value = "/";
    return {false, std::move(value)};
}

std::string AssocListLine(std::string_view extension, std::string_view profile) {
    std::string line(extension);
    line += "\t\t";
    line += profile;
    return line;
}

std::string AssocListExtension(std::string_view line) {
    return std::string(line.substr(0, line.find('\t')));
}

std::string DefaultProfileFor(std::string_view extension) {
    auto same = [](std::string_view a, std::string_view b) {
        return a.size() == b.size() &&
               std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
                   return std::toupper(static_cast<unsigned char>(x)) ==
                          std::toupper(static_cast<unsigned char>(y));
               });
    };
    std::string profile;
    if (extension.empty()) return profile;
    for (const SyntaxAssoc& a : DefaultSyntaxAssocs())
        if (same(a.extension, extension)) profile = a.profile;
    return profile;
}
