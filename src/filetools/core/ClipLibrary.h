#pragma once
// Cliptext libraries and the template catalogue: plain files in two folders beside the
// program, the folder listing being the catalogue and the file name the title shown.
#include <string>
#include <string_view>
#include <vector>

// The snippets of a library file: every line that is not blank once trimmed of spaces, kept
// as it stands. A line ends at CR LF, a lone CR or a lone LF.
std::vector<std::string> ParseClipLibrary(std::string_view bytes);

// A snippet as inserted: each backslash followed by a lower-case n becomes CR LF.
std::string ExpandSnippet(std::string_view snippet);

// The plain files of a folder, by name, hidden ones left out. A missing or unreadable
// folder gives an empty list.
std::vector<std::string> ListPlainFiles(const std::string& folder);

struct TemplateItem {
    std::string text; // what the list shows, and what forms the path when chosen
    int image = 1;    // 1 a text template, 2 a program
    bool operator==(const TemplateItem&) const = default;
};

// The New dialog's list for the file names of the template folder: a name whose extension
// is EXE in any case is shown without it, as a program.
std::vector<TemplateItem> TemplateCatalogue(const std::vector<std::string>& fileNames);
