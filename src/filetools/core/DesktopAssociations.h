#pragma once
// The desktop's association data, per user, as the freedesktop.org rules lay it out: a MIME
// package that gives an extension a type of its own, the program's desktop entry that says
// which types it opens, and mimeapps.list, which makes it the default for them. Only text is
// made here; the writing is the caller's.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// An extension a MIME glob and a file name can hold: letters, digits, '_', '-', '+' and
// inner dots, at most 64 characters.
bool IsAssociableExtension(std::string_view extension);

// The type this program gives an extension that the desktop does not know:
// "text/x-kestrum-" and the extension in lower case.
std::string OwnMimeType(std::string_view extension);
// The MIME package that declares it: "kestrum-<extension in lower case>.xml".
std::string MimePackageFileName(std::string_view extension);
// The package's text: one type, described by comment, a subclass of text/plain, with the glob
// "*.<extension in lower case>" (globs match without regard to case).
std::string MimePackageXml(std::string_view mimeType, std::string_view extension,
                           std::string_view comment);

// A further verb of the class, shown by the desktop as an action of the entry.
struct DesktopVerb {
    std::string name; // "print": the action's key
    std::string text; // "&Print": the menu text; the '&' of the access key is dropped
    std::string exec; // the whole command line, quoted as an Exec line ("/usr/bin/kestrum /p %f")
    bool operator==(const DesktopVerb&) const = default;
};

struct DesktopEntryFields {
    std::string name;    // the open text; the '&' of the access key is dropped
    std::string comment; // the class description
    std::string exec;    // the open command line, quoted as an Exec line
    std::string icon;    // icon name or path; nothing when empty
    std::vector<std::string> mimeTypes;
    std::vector<DesktopVerb> verbs;
};

// The desktop entry's text. It is hidden from the menus (NoDisplay): it stands for the
// association, not for a second launcher beside the installed one.
std::string DesktopEntryText(const DesktopEntryFields& fields);
// One argument of an Exec line, quoted as the desktop entry rules ask when it holds a
// reserved character ('%' doubled); the line is escaped as a whole when it is written.
std::string QuoteExecArgument(std::string_view argument);
// The MIME types and the verbs of an existing entry, so that a new one keeps them: nothing
// is ever removed from an association. A verb's text comes back as a menu text ('&' doubled).
std::vector<std::string> MimeTypesOfDesktopEntry(std::string_view text);
std::vector<DesktopVerb> VerbsOfDesktopEntry(std::string_view text);
// A key's value in the entry's "[Desktop Entry]" group, unescaped; empty when it has none.
std::string DesktopEntryValue(std::string_view text, std::string_view key);
// The types of `add` that `into` lacks go to its end, in order.
void AddMissing(std::vector<std::string>& into, const std::vector<std::string>& add);

struct MimeAppsResult {
    bool ok = false;
    std::string text;  // the whole new file
    std::string error; // why the file was left alone
};

// mimeapps.list with each type's default application set to desktopId, under
// "[Default Applications]", and desktopId put first in the type's "[Added Associations]"
// list. Every other line stays as it was, comments and unknown groups included; a missing
// group is added at the end. A file holding NUL bytes or text that is not UTF-8 is refused.
MimeAppsResult MergeMimeApps(std::string_view existing,
                             const std::vector<std::string>& mimeTypes,
                             std::string_view desktopId);

// The extensions the association dialog offers: the keys of the language table as they are,
// less those whose trimmed upper-case form is a program's ("EXE", "COM", "BAT"), then "KWS",
// the workspace extension, always last.
std::vector<std::string> ExtensionsToOffer(const std::vector<std::string>& tableKeys);
