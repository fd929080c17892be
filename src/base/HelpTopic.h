#pragma once
// The help is a set of static pages in the folder "Help" beside the program. A topic is
// opened through a generated page, "help.htm", a frameset that puts a header across the top,
// the contents ("index.htm") on the left and the topic's own page in the frame "Main"; the
// browser is then pointed at that page.
#include <array>
#include <string>
#include <string_view>

// Every topic that the program opens; each has its page "<topic>.htm" in the Help folder.
inline constexpr std::array<std::string_view, 12> kHelpTopics = {
    "basic_editing",        "clipboard_functionality", "file_change_dir",
    "file_page_setup",      "search_find_pattern",     "util_editor_options",
    "util_language_setup",  "util_compiler_setup",     "util_file_comparison",
    "advanced_dos_command", "advanced_new_profile",    "advanced_setup_default"};

// The entry page: Help Contents and F1 in the main window.
inline constexpr std::string_view kHelpContentsTopic = "basic_editing";

// Caption of the message box that reports a failed write of the frameset page.
inline constexpr std::string_view kHelpBoxCaption = "Kestrum Help SubSystem";

// The frameset page for a topic, as one line without a line end. The topic names the page
// "<topic>.htm"; '&' and '"' in it are written as entities so that the attribute stays whole.
// pagesBase, when given, is the address of the folder of the pages ("file:///usr/share/
// kestrum/Help/"), for a frameset written elsewhere than beside them.
std::string HelpFrameset(std::string_view topic, std::string_view pagesBase = {});

// Where the frameset page goes: appDir (with its trailing '/') followed by "Help/help.htm".
std::string HelpFramesetPath(std::string_view appDir);

struct HelpFileResult {
    bool ok = false;
    std::string error; // the system's text for the failure; empty on success
};

// Writes HelpFrameset(topic) as the only line of HelpFramesetPath(appDir), replacing the file.
// The text goes to a temporary file in the Help folder first and is renamed over the target,
// so a failed write leaves an older help.htm as it was. Fails when the Help folder is missing,
// is not writable, or help.htm cannot be replaced (a folder of that name, for instance).
HelpFileResult WriteHelpFrameset(std::string_view appDir, std::string_view topic,
                                 std::string_view pagesBase = {});

// The text of the message box for a failed write, ending in the system's error text.
std::string HelpWriteFailureText(std::string_view error);
