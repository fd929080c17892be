#pragma once
// The text form of a shipped syntax profile, from which the build writes the binary files.
// The format is described in src/profiles/defaults/README.md:
//
//   name: C and C++ Default Profile
//   case-sensitive: yes
//   code-order: yes
//
//   [keywords 1] free description
//   if
//   ...
//   [delimiters]
//   comment   /*  */
//   comment   //  \n
//
// Before the first section, blank lines and lines starting with '#' are skipped. Inside a
// keyword section every non-blank line is one entry, trimmed of blanks and tabs. A delimiter
// line is a class ("comment", "delimiter1" or "delimiter2"), the opener and the closer,
// separated by blanks; in opener and closer "\n" stands for CR LF, "\s" for a blank, "\t" for
// a tab and "\\" for a backslash.
#include "base/EditorSettings.h"

#include <string>
#include <string_view>

struct ProfileSource {
    std::string name;        // the profile's file name
    EditorSettings settings; // the program's defaults, with the source's lists and pairs
};

// Parses a source. On success returns an empty string; otherwise "line N: reason", and out
// is unspecified.
std::string ParseProfileSource(std::string_view text, ProfileSource& out);
