#include "tools/core/ToolStore.h"

#include "base/MiscSubs.h"

namespace {
constexpr std::string_view kSettings = "Settings";
} // namespace

std::vector<std::string> ToolStore::ToolNames() {
    std::vector<std::string> names;
    for (auto& [key, value] : store_.GetAllSettings(app_, kToolsSection))
        names.push_back(std::move(key));
    return names;
}

ToolRecord ToolStore::Tool(std::string_view name) {
    return {std::string(name), store_.GetSetting(app_, kToolsSection, name),
            store_.GetSetting(app_, kToolPathsSection, name)};
}

void ToolStore::SaveTool(std::string_view name, std::string_view commandLine,
                         std::string_view dir) {
    store_.SaveSetting(app_, kToolsSection, name, Trim(commandLine));
    store_.SaveSetting(app_, kToolPathsSection, name, Trim(dir));
}

void ToolStore::Remove(std::string_view section, std::string_view key) {
    try {
        store_.DeleteSetting(app_, section, key);
    } catch (const SettingsStoreError&) {
        // Deleting a key that is not there: nothing to do.
    }
}

void ToolStore::RemoveTool(std::string_view name) { Remove(kToolsSection, name); }

void ToolStore::SetDefault(std::string_view name) {
    ToolRecord t = Tool(name);
    store_.SaveSetting(app_, kSettings, "Default Compiler", t.commandLine);
    store_.SaveSetting(app_, kSettings, "Default Compiler Dir", t.workingDir);
}

bool ToolStore::Flag(std::string_view key, bool def) {
    auto v = settings_convert::ToInteger(store_.GetSetting(app_, kSettings, key, def ? "1" : "0"));
    return v ? *v == 1 : def;
}

DefaultCompiler ToolStore::LoadDefault() {
    return {store_.GetSetting(app_, kSettings, "Default Compiler"),
            store_.GetSetting(app_, kSettings, "Default Compiler Dir"), Flag("defCloseWindow", true),
            Flag("defCaptureOutput", false)};
}

void ToolStore::SaveDefault(const DefaultCompiler& d) {
    store_.SaveSetting(app_, kSettings, "Default Compiler", d.commandLine);
    store_.SaveSetting(app_, kSettings, "Default Compiler Dir", d.workingDir);
    store_.SaveSetting(app_, kSettings, "defCloseWindow", d.keepOpen ? "1" : "0");
    store_.SaveSetting(app_, kSettings, "defCaptureOutput", d.capture ? "1" : "0");
}

std::pair<bool, bool> ToolStore::RunFlags() {
    return {Flag("CloseWindow", true), Flag("CaptureOutput", false)};
}

void ToolStore::SaveRunFlags(bool keepOpen, bool capture) {
    store_.SaveSetting(app_, kSettings, "CloseWindow", keepOpen ? "1" : "0");
    store_.SaveSetting(app_, kSettings, "CaptureOutput", capture ? "1" : "0");
}

std::vector<std::pair<std::string, std::string>> ToolStore::Utilities() {
    return store_.GetAllSettings(app_, kUtilitiesSection);
}

std::string ToolStore::UtilityCommand(std::string_view name) {
    return store_.GetSetting(app_, kUtilitiesSection, name);
}

void ToolStore::SaveUtility(std::string_view name, std::string_view commandLine) {
    store_.SaveSetting(app_, kUtilitiesSection, name, commandLine);
}

void ToolStore::RemoveUtility(std::string_view name) { Remove(kUtilitiesSection, name); }
