#pragma once
// Keyword list files (.kwd): the three keyword lists of a profile as text, one entry a line
// with CR LF, each list ended by a line of exactly "\NL\". No header.
#include <array>
#include <string>
#include <string_view>

using KeywordLists = std::array<std::string, 3>;

// The two import dialogs differ only in which lines they skip.
enum class KeywordImportRule {
    Options,       // a line that is empty when trimmed is skipped
    CreateProfile, // a line starting with "~" after trimming is a comment; empty lines count
};

inline constexpr std::string_view kListEndLine = "\\NL\\";

// The three keyword strings (each entry followed by the separator character) from the file's
// text. A "\NL\" line moves on to the next list; from the third list on, everything goes into
// the third. Lines end with CR LF, LF or CR; an entry keeps its blanks.
KeywordLists ParseKeywordListFile(std::string_view bytes,
                                  KeywordImportRule rule = KeywordImportRule::Options);
// The file's text: each entry of each list on its own line, then the list's "\NL\" line.
// Text behind a list's last separator counts as an entry too, so that nothing is lost.
std::string FormatKeywordListFile(const KeywordLists& lists);

// Import: clears lists, then fills them from the file. False with the system's reason in
// error when the file cannot be read; the lists are then empty.
bool ReadKeywordListFile(const std::string& path, KeywordLists& lists, std::string& error,
                         KeywordImportRule rule = KeywordImportRule::Options);
// Export, replacing any old file. False with the system's reason in error.
bool WriteKeywordListFile(const std::string& path, const KeywordLists& lists, std::string& error);
