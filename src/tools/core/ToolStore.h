#pragma once
// The stored lists of configured tools and utilities and the default compiler record.
// A tool is two entries tied by its name: its command line in "Compilers and Viewers" and its
// working directory in "Compilers and Viewers Paths". Store failures propagate as
// SettingsStoreError; the dialogs that call these ignore them.
#include "base/SettingsStore.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

inline constexpr std::string_view kToolsSection = "Compilers and Viewers";
inline constexpr std::string_view kToolPathsSection = "Compilers and Viewers Paths";
inline constexpr std::string_view kUtilitiesSection = "Utilities";
// The configuration dialog refuses to add more than this many utilities.
inline constexpr int kMaxUtilities = 20;

struct ToolRecord {
    std::string name;
    std::string commandLine;
    std::string workingDir;
    bool operator==(const ToolRecord&) const = default;
};

// The default compiler: a copy of one tool plus its two run flags, in section "Settings".
struct DefaultCompiler {
    std::string commandLine;
    std::string workingDir;
    bool keepOpen = true; // "defCloseWindow": despite the name, 1 keeps the console open
    bool capture = false; // "defCaptureOutput"
    bool operator==(const DefaultCompiler&) const = default;
};

class ToolStore {
  public:
    ToolStore(SettingsStore& store, std::string app) : store_(store), app_(std::move(app)) {}

    // Tool names in the order the store hands them back; never sorted.
    std::vector<std::string> ToolNames();
    ToolRecord Tool(std::string_view name);
    // Saves the trimmed command line and directory under the untrimmed name.
    void SaveTool(std::string_view name, std::string_view commandLine, std::string_view dir);
    // Deletes the command line only: the directory entry stays behind and is overwritten when
    // a tool of that name is added again. A missing name is no error.
    void RemoveTool(std::string_view name);
    // Copies the named tool (empty values for an unknown one) to the default compiler.
    void SetDefault(std::string_view name);

    DefaultCompiler LoadDefault();
    // Saves the four keys, texts as typed.
    void SaveDefault(const DefaultCompiler& d);

    // The run dialog's last-used flags, "CloseWindow" and "CaptureOutput".
    std::pair<bool, bool> RunFlags();
    void SaveRunFlags(bool keepOpen, bool capture);

    // Utilities: name and command line as stored (not trimmed), in store order.
    std::vector<std::pair<std::string, std::string>> Utilities();
    std::string UtilityCommand(std::string_view name);
    void SaveUtility(std::string_view name, std::string_view commandLine);
    void RemoveUtility(std::string_view name);

  private:
    bool Flag(std::string_view key, bool def);
    void Remove(std::string_view section, std::string_view key);

    SettingsStore& store_;
    std::string app_;
};
