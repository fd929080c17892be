#pragma once
// The table that maps a file extension to the syntax profile of its language. It lives in the
// settings section "Syntax Associations": the key is the extension without its dot, the value
// the name of a file in PROFILES/. Keys compare without regard to case, through the store.
#include <span>
#include <string>
#include <string_view>
#include <vector>

class SettingsStore;

constexpr std::string_view kSyntaxAssocSection = "Syntax Associations";
// The default of a lookup, telling a missing row.
constexpr std::string_view kNoFileAssoc = "NO FILE ASSOC";

struct SyntaxAssoc {
    std::string_view extension;
    std::string_view profile;
};

// The shipped table as it is written, in order. Some extensions are written twice; the later
// write stands.
std::span<const SyntaxAssoc> DefaultSyntaxAssocs();
// The profile names of the shipped table, each once, in the table's order.
std::vector<std::string_view> DefaultProfileNames();

// Writes the shipped table when the section is empty or missing; an existing table is never
// touched. Returns whether it wrote. Errors of the store propagate.
bool CreateSyntaxAssocs(SettingsStore& store, std::string_view app);
// Writes the shipped table over the section as it is: the shipped extensions take their
// default profiles again, and every other key stays.
void RestoreDefaultSyntaxAssocs(SettingsStore& store, std::string_view app);

// The extension of a document's path: what follows the last '.', or empty when there is no
// '.' or nothing behind the last one.
std::string SyntaxExtension(std::string_view path);

// What a document with this path gets: the global record, or the profile of that name.
struct SyntaxChoice {
    bool useGlobal = true;
    std::string profile; // when useGlobal is false
};

// The profile that the shipped table gives an extension (compared without regard to case,
// the later write standing); empty when it has no row.
std::string DefaultProfileFor(std::string_view extension);

// An empty extension, an extension without a row, and a row whose value is "NO FILE ASSOC"
// in any case all give the global record.
SyntaxChoice ResolveSyntax(SettingsStore& store, std::string_view app, std::string_view path);

// A line of the association dialog's list: the extension, two tabs and the profile name.
std::string AssocListLine(std::string_view extension, std::string_view profile);
// The extension of such a line: what stands before the first tab (the whole line without one).
std::string AssocListExtension(std::string_view line);
